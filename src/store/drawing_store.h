#pragma once

#include "disk/file_text.h"
#include "store/record.h"
#include "store/text/text_encoding.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A run of objects that stand together in a drawing file: the records of a table, the contents of a block, the
/// ENTITIES or the OBJECTS section. What is added to it is written before its end.
struct Container
{
    enum Kind : uint8_t
    {
        kTable,    ///< `head` is the TABLE object; `name` its name ("LAYER")
        kBlock,    ///< `head` is the BLOCK object, `tail` the ENDBLK; `name` the block's name as it stands in the file
        kEntities, ///< the ENTITIES section
        kObjects,  ///< the OBJECTS section
        kBlocks    ///< the BLOCKS section as a whole: blocks that were added (those without an `end`) go to its end
    };

    Kind kind = kEntities;
    std::string name;
    ObjectRecord* head = nullptr;
    ObjectRecord* tail = nullptr;
    size_t first = 0;          ///< place in file order of the first object inside
    size_t last = 0;           ///< behind the last one
    const char* end = nullptr; ///< where added objects go in the file's text
    std::vector<ObjectRecord*> added;
};

/// The text of a drawing file in memory. A reader fills it; it never changes afterwards.
using disk::FileText;

/// How many entities there are of each kind, by its name in drawing files.
using CountsByKind = std::map<std::string, size_t>;

/// A drawing as a reader found it: the text of its file and an index over it. Handed to `AcDbDatabase::adopt`.
/// Invariant: records stand in file order; the text of each is a piece of `file`; containers do not overlap except
/// that `kBlocks` spans the blocks.
struct DrawingStore
{
    FileText file;        ///< text DXF; of a binary file its text form
    FileText original;    ///< the bytes of the file when they are not `file` (binary DXF), else empty
    bool hasLines = true; ///< lines of `file` are those of the file on disk
    int version = 0;      ///< 1009 (R12), 1014 (R14), 1015 (R2000) ... 1032 (R2018)
    std::string codePage;
    std::shared_ptr<const TextEncoding> encoding;
    std::vector<std::string> kinds; ///< DXF names by `ObjectRecord::kind`
    RecordPool records;
    std::vector<Container> containers; ///< at most one each of kEntities, kObjects, kBlocks
    std::string_view header;           ///< the pairs inside the HEADER section
    std::string_view classes;          ///< the pairs inside the CLASSES section
    CountsByKind lost;                 ///< what the file has and could not be converted to `file`

    /// Index of `name` in `kinds`, added when it is new.
    uint16_t kindOf(std::string_view name);
};
