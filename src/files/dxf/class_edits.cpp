#include "files/dxf/class_edits.h"

#include "host/companion/custom_classes.h"
#include "host/db/database.h"
#include "store/tags.h"
#include "store/text/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace files
{

namespace
{

constexpr int kR2004 = 1018; ///< counts stand in lists of classes from here on
constexpr int kCount = 91;

std::string nameOf(const char16_t* text)
{
    return toUtf8(text);
}

/// How many objects of the class the drawing has now; nothing when none were added or erased.
std::optional<int64_t> changedCount(const AcDbDatabase& database, const std::string& dxfName)
{
    const DrawingStore& store = database.store();
    const auto found = std::find(store.kinds.begin(), store.kinds.end(), dxfName);
    const auto kind = static_cast<uint16_t>(found - store.kinds.begin());
    const auto concerns = [kind](const AcDbDatabase::Change& change)
    {
        const ObjectRecord& record = *change.record;
        return record.kind == kind && (record.has(ObjectRecord::kAdded) || record.has(ObjectRecord::kErased));
    };
    if (found == store.kinds.end() || std::none_of(database.changes().begin(), database.changes().end(), concerns))
        return std::nullopt;
    int64_t count = 0;
    for (size_t i = 0; i < store.records.size(); ++i)
        count += store.records[i].kind == kind && !store.records[i].has(ObjectRecord::kErased) ? 1 : 0;
    return count;
}

/// A class as the list has it.
struct ListedClass
{
    bool isThere = false;
    Tag count; ///< no text when it has none
};

ListedClass findClass(std::string_view classes, std::string_view dxfName)
{
    ListedClass found;
    bool isAsked = false;
    TagReader pairs{classes};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == 0)
            isAsked = false;
        else if (tag.code == 1)
            isAsked = tag.word() == dxfName;
        if (isAsked && tag.code == kCount)
            found.count = tag;
        found.isThere = found.isThere || isAsked;
    }
    return found;
}

void writeClass(const CustomClass& added, int64_t count, int version, TagWriter& out)
{
    out.text(0, "CLASS");
    out.text(1, nameOf(added.kind->dxfName()));
    out.text(2, nameOf(added.kind->name()));
    out.text(3, added.application);
    out.integer(90, 0);
    if (version >= kR2004)
        out.integer(kCount, count);
    out.integer(280, 0);
    out.integer(281, 1);
}

/// The list in a section of its own, behind the header, for a drawing that has none.
ClassEdit newSection(const DrawingStore& store, std::string_view classes)
{
    const char* headerEnd = store.header.data() + store.header.size();
    const std::string_view file = store.file.view();
    TagReader rest{file.substr(static_cast<size_t>(headerEnd - file.data()))};
    Tag end;
    rest.next(end);
    TagWriter out;
    out.text(0, "SECTION");
    out.text(2, "CLASSES");
    out.raw(classes);
    out.text(0, "ENDSEC");
    return {end.end, end.end, out.take()};
}

} // namespace

std::string listOfClasses(int version)
{
    TagWriter out;
    for (const CustomClass& own : customClasses())
        writeClass(own, 0, version, out);
    return out.take();
}

std::vector<ClassEdit> classEdits(AcDbDatabase& database)
{
    const DrawingStore& store = database.store();
    std::vector<ClassEdit> edits;
    TagWriter added;
    for (const CustomClass& own : customClasses())
    {
        const std::string dxfName = nameOf(own.kind->dxfName());
        const std::optional<int64_t> count = changedCount(database, dxfName);
        if (!count)
            continue;
        const ListedClass listed = findClass(store.classes, dxfName);
        if (!listed.isThere)
            writeClass(own, *count, store.version, added);
        else if (listed.count.begin != nullptr)
        {
            TagWriter pair;
            pair.integer(kCount, *count);
            edits.push_back({listed.count.begin, listed.count.end, pair.take()});
        }
    }
    if (added.view().empty())
        return edits;
    const char* end = store.classes.data() + store.classes.size();
    if (store.classes.data() == nullptr)
        edits.push_back(newSection(store, added.view()));
    else
        edits.push_back({end, end, added.take()});
    return edits;
}

} // namespace files
