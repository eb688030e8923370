#include "files/dxf/writer.h"

#include "files/dxf/class_edits.h"
#include "host/db/database.h"
#include "store/header_variables.h"
#include "store/tags.h"

#include <algorithm>

namespace files
{

namespace
{

bool isAddedBlock(const Container& container)
{
    return container.kind == Container::kBlock && container.end == nullptr;
}

/// A TABLE object's count of records (70), where it stands in the file; no text when it has none.
Tag countOf(const ObjectRecord& table)
{
    TagReader reader{table.view()};
    for (Tag tag; reader.next(tag);)
        if (tag.code == 70)
            return tag;
    return {};
}

/// New pairs get the line ends that the file has.
std::string withCarriageReturns(std::string_view text)
{
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (const char c : text)
    {
        if (c == '\n' && (result.empty() || result.back() != '\r'))
            result += '\r';
        result += c;
    }
    return result;
}

size_t liveRecords(const DrawingStore& store, const Container& table)
{
    size_t live = 0;
    for (size_t order = table.first; order < table.last; ++order)
        live += store.records[order].has(ObjectRecord::kErased) ? 0U : 1U;
    return live + table.added.size();
}

} // namespace

DrawingPieces::DrawingPieces(AcDbDatabase& database)
{
    const DrawingStore& store = database.store();
    if (!database.isModified())
    {
        m_pieces.push_back((store.original.view().empty() ? store.file : store.original).view());
        return;
    }
    editHeader(database);
    for (const AcDbDatabase::Change& change : database.changes())
        if (!change.original.empty())
            replace(change.original,
                    change.record->has(ObjectRecord::kErased) ? std::string_view{} : change.record->view());
    for (const Container& container : store.containers)
        appendAdded(store, container);
    assemble(store.file.view());
}

void DrawingPieces::replace(std::string_view original, std::string_view text)
{
    m_edits.push_back({original.data(), original.data() + original.size(), text});
}

/// Everything new in a container goes to its end, in the order it was made.
void DrawingPieces::appendAdded(const DrawingStore& store, const Container& container)
{
    if (container.kind == Container::kBlocks)
        for (const Container& block : store.containers)
            if (isAddedBlock(block))
                appendBlock(block, container.end);
    if (container.end == nullptr || container.added.empty())
        return;
    for (const ObjectRecord* record : container.added)
        insertAt(container.end, *record);
    if (container.kind != Container::kTable || container.head->has(ObjectRecord::kOwnText))
        return;
    if (const Tag count = countOf(*container.head); count.begin != nullptr)
    {
        TagWriter out;
        out.integer(70, static_cast<int64_t>(liveRecords(store, container)));
        replace({count.begin, static_cast<size_t>(count.end - count.begin)}, m_texts.emplace_back(out.take()));
    }
}

void DrawingPieces::appendBlock(const Container& block, const char* at)
{
    insertAt(at, *block.head);
    for (const ObjectRecord* record : block.added)
        insertAt(at, *record);
    insertAt(at, *block.tail);
}

void DrawingPieces::insertAt(const char* at, const ObjectRecord& record)
{
    if (!record.has(ObjectRecord::kErased) && record.length > 0)
        m_edits.push_back({at, at, record.view()});
}

void DrawingPieces::editHeader(AcDbDatabase& database)
{
    TagWriter seed;
    seed.handle(5, database.nextHandle());
    database.header().set("$HANDSEED", seed.take());
    for (const HeaderVariables::Edit& edit : database.header().edits())
        m_edits.push_back({edit.begin, edit.end, m_texts.emplace_back(edit.text)});
    for (const ClassEdit& edit : classEdits(database))
        m_edits.push_back({edit.begin, edit.end, m_texts.emplace_back(edit.text)});
}

void DrawingPieces::assemble(std::string_view file)
{
    std::stable_sort(m_edits.begin(), m_edits.end(), [](const Edit& a, const Edit& b) { return a.begin < b.begin; });
    const size_t firstLine = file.find('\n');
    const bool carriageReturns = firstLine != std::string_view::npos && firstLine > 0 && file[firstLine - 1] == '\r';
    const char* at = file.data();
    for (const Edit& edit : m_edits)
    {
        if (edit.begin > at)
            m_pieces.emplace_back(at, static_cast<size_t>(edit.begin - at));
        if (!edit.text.empty())
            m_pieces.push_back(carriageReturns ? m_texts.emplace_back(withCarriageReturns(edit.text)) : edit.text);
        at = std::max(at, edit.end);
    }
    m_pieces.emplace_back(at, static_cast<size_t>(file.data() + file.size() - at));
}

} // namespace files
