#pragma once

#include "files/dxf/reader.h"
#include "files/dxf/writer.h"
#include "host/db/database.h"

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

/// Bytes as a file in memory, as the reader gets them.
inline FileText fileText(std::string_view bytes)
{
    auto copy = std::make_shared<std::string>(bytes);
    *copy += '\n';
    return {std::shared_ptr<const char>{copy, copy->data()}, bytes.size()};
}

/// A small valid drawing of R2004 with one line, one coded polyline and an unknown entity, in the code page ANSI_1258.
std::string smallDrawing(std::string_view version = "AC1018");

/// The bytes a database is written as.
inline std::string written(AcDbDatabase& database)
{
    std::string bytes;
    const files::DrawingPieces drawing{database};
    for (const std::string_view piece : drawing.pieces())
        bytes += piece;
    return bytes;
}

inline std::unique_ptr<AcDbDatabase> parsed(std::string_view bytes)
{
    auto database = std::make_unique<AcDbDatabase>();
    database->adopt(files::readDxf(fileText(bytes), "test.dxf", DrawingReader::Purpose::Drawing));
    return database;
}
