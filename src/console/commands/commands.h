#pragma once

#include "console/program/dss_session.h"

namespace console
{

struct ScanOptions
{
    CommonOptions common;
    bool nearby = false;
};

struct ScriptOptions
{
    CommonOptions common;
    std::string file;
};

/// What the user wants of the list of symbol folders.
struct FolderOptions
{
    CommonOptions common;
    std::vector<std::string> added;
    std::vector<std::string> removed;
};

/// `plan` and `check` take a table besides what `draw` takes.
struct TableOptions
{
    DrawOptions draw;
    std::string table;
    bool all = false; ///< of `check`: its lists are not shortened
};

/// The commands as the user gives them: each prints what it did on standard output, and what it is about on standard
/// error while it takes long. Failure, FileError and whatever else is derived from std::exception when it cannot be
/// done.
void runScan(const ScanOptions& options);
void runDraw(const DrawOptions& options);
void runErase(const DrawOptions& options);
void runPlan(const TableOptions& options);
void runCheck(const TableOptions& options);
void runScript(const ScriptOptions& options);
void runInfo(const CommonOptions& options);
void runFolders(const FolderOptions& options);

} // namespace console
