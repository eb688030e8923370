#include "host/companion/project_config.h"

#include "host/db/database.h"
#include "host/db/table/dictionary.h"

namespace
{

constexpr char16_t kStore[] = u"PLX_PROJECT_CONFIG";
constexpr int kLine = 1;

AcDbObjectId idIn(AcDbObjectId dictionary, const std::u16string& name)
{
    const AcDbObjectPointer<AcDbDictionary> opened{dictionary};
    AcDbObjectId id;
    if (opened)
        opened->getAt(name, id);
    return id;
}

AcDbObjectId namedObjects(AcDbDatabase& drawing)
{
    AcDbDictionary* dictionary = nullptr;
    if (drawing.getNamedObjectsDictionary(dictionary, AcDb::kForRead) != Acad::eOk)
        return {};
    const AcDbObjectId id = dictionary->objectId();
    dictionary->close();
    return id;
}

/// Puts a fresh object of type T under `name` and hands it to `fill` before it is closed.
template <class T, class Fill>
AcDbObjectId putNew(AcDbObjectId dictionary, const std::u16string& name, const Fill& fill)
{
    const AcDbObjectPointer<AcDbDictionary> opened{dictionary, AcDb::kForWrite};
    if (!opened)
        return {};
    auto object = std::make_unique<T>();
    AcDbObjectId id;
    if (opened->setAt(name, object.get(), id) != Acad::eOk)
        return {};
    T* taken = object.release();
    fill(*taken);
    taken->close();
    return id;
}

ResbufPtr chainOf(const std::vector<std::u16string>& lines)
{
    ResbufPtr head;
    for (size_t i = lines.size(); i-- > 0;)
    {
        resbuf* node = acutNewRb(kLine);
        node->resval.rstring = acutNewString(lines[i].c_str());
        node->rbnext = head.release();
        head.reset(node);
    }
    return head;
}

} // namespace

int ProjectConfig::Read(AcDbDatabase* database, const std::u16string& key, std::vector<std::u16string>& lines)
{
    if (database == nullptr)
        return 0;
    const AcDbObjectPointer<AcDbXrecord> record{idIn(idIn(namedObjects(*database), kStore), key)};
    if (!record)
        return 0;
    resbuf* values = nullptr;
    record->rbChain(&values);
    const ResbufPtr owned{values};
    lines.clear();
    for (const resbuf* node = values; node != nullptr; node = node->rbnext)
        if (node->restype == kLine)
            lines.emplace_back(node->resval.rstring);
    return 1;
}

void ProjectConfig::Write(AcDbDatabase* database, const std::u16string& key, const std::vector<std::u16string>& lines)
{
    if (database == nullptr)
        return;
    const AcDbObjectId root = namedObjects(*database);
    AcDbObjectId store = idIn(root, kStore);
    if (store.isNull())
        store = putNew<AcDbDictionary>(root, kStore, [](AcDbDictionary&) {});
    const ResbufPtr values = chainOf(lines);
    putNew<AcDbXrecord>(store, key,
                        [&](AcDbXrecord& record)
                        {
                            if (values)
                                record.setFromRbChain(*values.get());
                        });
}
