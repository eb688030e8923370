#pragma once

#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <sys/resource.h>

/// Where a script is played: the process stands in a folder with a small road, a symbol, a library and a table, what it
/// says to the user is kept off the terminal, and the home folder, the folder for temporary files and the folder around
/// are such that a trace in them is seen.
class Stage
{
public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    static std::string work();
    static std::string settings();

    /// The script saves a drawing under this name; it may write something else under that one.
    void isSaved(const std::string& name) { m_saved.insert(name); }
    void isAnswered(const std::string& name) { m_answered.insert(name); }

    /// Nothing stands outside the folders that did not, no temporary file is left, and drawings are whole.
    void mustBeSound() const;

private:
    using Files = std::map<std::string, std::string>; ///< contents by path
    static Files filesOutside();
    static Files filesInside();

    std::string m_cameFrom;
    std::ostringstream m_said;
    std::streambuf* m_terminal;
    Files m_outside;
    Files m_inside;
    std::set<std::string> m_saved{"road.dxf"};
    std::set<std::string> m_answered;
};

/// As long as it is there, no file can grow beyond so many bytes.
class Room
{
public:
    explicit Room(std::optional<size_t> bytes);
    ~Room();
    Room(const Room&) = delete;
    Room& operator=(const Room&) = delete;

private:
    rlimit m_before{};
};
