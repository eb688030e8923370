#pragma once

#include <string>
#include <string_view>

/// Describes a class of the host: its name, the name its objects have in drawing files, and its base.
/// All descriptors are static objects of the program.
class AcRxClass
{
public:
    AcRxClass(const char16_t* name, const char16_t* dxfName, const AcRxClass* parent)
        : m_name{name}, m_dxfName{dxfName}, m_parent{parent}
    {
    }

    std::u16string_view nameView() const { return m_name; }
    const char16_t* name() const { return m_name; }
    /// Null for a class whose objects never stand in a drawing by themselves.
    const char16_t* dxfName() const { return m_dxfName; }
    const AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const
    {
        for (const AcRxClass* at = this; at != nullptr; at = at->m_parent)
            if (at == other)
                return true;
        return false;
    }

private:
    const char16_t* m_name;
    const char16_t* m_dxfName;
    const AcRxClass* m_parent;
};

class AcRxObject
{
public:
    virtual ~AcRxObject() = default;

    static const AcRxClass* desc();
    virtual const AcRxClass* isA() const { return desc(); }
    bool isKindOf(const AcRxClass* other) const { return isA()->isDerivedFrom(other); }
};

/// In a class body: the descriptor's accessors.
#define ACRX_DECLARE_MEMBERS()                                                                                         \
    static const AcRxClass* desc();                                                                                    \
    const AcRxClass* isA() const override                                                                              \
    {                                                                                                                  \
        return desc();                                                                                                 \
    }

/// In a source file: the descriptor. `DXFNAME` is a u"" literal or nullptr.
#define ACRX_DEFINE_MEMBERS(CLASS, PARENT, DXFNAME)                                                                    \
    const AcRxClass* CLASS::desc()                                                                                     \
    {                                                                                                                  \
        static const AcRxClass descriptor{u## #CLASS, DXFNAME, PARENT::desc()};                                        \
        return &descriptor;                                                                                            \
    }
