#pragma once

#include "disk/file_text.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace desktop
{

/// The bytes of a drawing as it is at one moment, for other threads: what the drawing does afterwards changes nothing
/// here. Costs what was changed in the drawing; the rest is shared with it.
class Snapshot
{
public:
    explicit Snapshot(AcDbDatabase& database);
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    /// To be written one behind the other.
    const std::vector<std::string_view>& pieces() const { return m_pieces; }
    /// All of them in one.
    disk::FileText text() const;

private:
    disk::FileText m_file;
    disk::FileText m_original;
    std::deque<std::string> m_copies;
    std::vector<std::string_view> m_pieces;
};

} // namespace desktop
