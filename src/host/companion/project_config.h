#pragma once

#include <string>
#include <vector>

class AcDbDatabase;

/// Lists of text lines kept inside a drawing, by key.
class ProjectConfig
{
public:
    /// Fills `lines` with what is stored under `key`; zero when nothing is.
    static int Read(AcDbDatabase* database, const std::u16string& key, std::vector<std::u16string>& lines);
    /// Stores `lines` under `key`, replacing what was there.
    static void Write(AcDbDatabase* database, const std::u16string& key, const std::vector<std::u16string>& lines);
};
