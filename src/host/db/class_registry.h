#pragma once

#include "host/db/object.h"

#include <memory>
#include <span>
#include <string_view>
#include <vector>

/// A class of objects that drawings hold.
struct HostClass
{
    const AcRxClass* kind = nullptr;
    std::unique_ptr<AcDbObject> (*make)() = nullptr;
    std::string_view dxfName; ///< of its objects in drawing files; empty when only other classes or tables lead to it
    std::string_view table;   ///< of a table's class: the name of its TABLE in drawing files
    /// Which class derived from this one an object is of, where its own pairs decide that; null when they do not.
    /// `head` is the entity that a sub-entity belongs to, else the object itself.
    const AcRxClass* (*narrowed)(const ObjectRecord& record, const ObjectRecord& head) = nullptr;
};

/// The row of a class whose objects are named `dxfName` in drawing files.
template <class T>
HostClass hostClass(std::string_view dxfName = {}, std::string_view table = {})
{
    return {T::desc(), [] { return std::unique_ptr<AcDbObject>{std::make_unique<T>()}; }, dxfName, table};
}

/// The classes that the program is put together of. Registered once, before a drawing is opened: what is of no
/// registered class is a plain `AcDbEntity` or `AcDbObject`.
class ClassRegistry
{
public:
    /// `plainEntity`: the class of entities of no other class. Pointers to earlier rows are void afterwards.
    static void set(std::vector<HostClass> classes, const AcRxClass* plainEntity);

    /// The class of objects with a DXF name; null when there is none.
    static const HostClass* ofDxfName(std::string_view dxfName);
    static const HostClass* plainEntity();
    /// The class of a table by the name of its TABLE, and that name by the class; null and empty when there is none.
    static const AcRxClass* ofTable(std::string_view table);
    static std::string_view tableOf(const AcRxClass* kind);
    /// A fresh object of exactly that class.
    static std::unique_ptr<AcDbObject> make(const AcRxClass* kind);
};
