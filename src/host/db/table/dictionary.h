#pragma once

#include "host/db/object.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Objects by name. A name leads to the entry of its own spelling, else to one that differs in case and composition
/// only.
class AcDbDictionary : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS()
    /// `eKeyNotFound` when there is nothing of that name, or only something erased.
    Acad::ErrorStatus getAt(const std::u16string& name, AcDbObjectId& id) const;
    /// Takes a fresh object into the dictionary under `name`, replacing (erasing) what stood there: it belongs to the
    /// database from then on, stays open for write, and must be closed.
    Acad::ErrorStatus setAt(const std::u16string& name, AcDbObject* object, AcDbObjectId& id);
    const std::vector<std::pair<std::u16string, AcDbObjectId>>& entries() const { return m_entries; }

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    template <class Counts>
    size_t indexOf(std::u16string_view name, Counts counts) const;
    Acad::ErrorStatus replaceEntry(size_t index, AcDbObjectId id);
    void appendEntry(const std::u16string& name, AcDbObjectId id);

    std::vector<std::pair<std::u16string, AcDbObjectId>> m_entries;
};

/// A list of tagged values kept in a dictionary.
class AcDbXrecord : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS()
    /// The values as a chain of the host's; the caller releases it.
    Acad::ErrorStatus rbChain(resbuf** chain) const;
    /// Takes the values of a chain. The xrecord must be in a drawing; a loaded one answers `eNotImplementedYet`.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain);

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    std::string m_values; ///< the values as pairs
};
