#pragma once

#include "host/db/object_id.h"
#include "host/db/resbuf.h"
#include "kernel/point3d.h"

#include <string>
#include <string_view>
#include <vector>

/// How a polygon selects.
enum class PolygonMode
{
    kCrossing = 0, ///< what is inside or touches it
    kFence = 1,
    kWindow = 2
};

/// One search in the current drawing: criteria are added, a selection is run, its ids are read. Owns the host's filter
/// list made from the criteria. A selection that finds nothing, or that the host refuses, answers 0.
class FilterObjects
{
public:
    FilterObjects() = default;

    /// A class of objects to select, by its name in drawing files. Names differ by more than their case.
    void AddClass(std::u16string_view dxfName);
    /// A layer to select on, unless its name is part of what was added already.
    void AddLayer(const std::u16string& name);
    /// An application whose extended data an object must carry.
    void AddXdataApp(const std::u16string& name);

    /// Makes the filter list from the criteria; every selection does so first.
    void BuildFilter();
    /// The list as it was built last; null when there are no criteria at all.
    const resbuf* filter() const { return m_filter.get(); }

    /// Selects in the whole drawing. Answers how many objects were found.
    int SelectAll();
    /// Selects by a polygon or fence, of what the view shows. Answers how many objects were found.
    int SelectByPolygon(const AcGePoint3dArray& points, PolygonMode mode);

    /// What the last selection that found anything found, in the host's order.
    const AcDbObjectIdArray& ids() const { return m_ids; }

    /// Forgets criteria and results.
    void Reset();

private:
    int Collect(const ads_name set);
    int Select(const char16_t* mode, const resbuf* points);

    ResbufPtr m_filter;
    std::vector<std::u16string> m_includedClasses;
    std::vector<std::u16string> m_excludedClasses = DefaultExclusion();
    std::u16string m_layers;       ///< joined by ","
    std::u16string m_applications; ///< joined by ","
    AcDbObjectIdArray m_ids;

    static std::vector<std::u16string> DefaultExclusion();
};

/// The index of the first element that is `text`, with or without regard to case; -1 when there is none, or the text
/// is empty.
int FindInStringArray(const std::vector<std::u16string>& array, std::u16string_view text, bool ignoreCase);
