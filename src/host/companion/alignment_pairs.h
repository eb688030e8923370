#pragma once

#include "host/companion/alignment.h"
#include "store/pair_edit.h"
#include "store/text/text_encoding.h"

/// Reads the section records of an alignment, pair by pair, and checks each count against what follows it.
class SectionReader
{
public:
    explicit SectionReader(AcDbDatabase& drawing) : m_drawing{drawing} {}

    /// Takes a pair behind the alignment's own values.
    void take(const Tag& tag, OwnPairs& pairs);
    /// Whether every count was right; after the last pair.
    bool isSound();
    std::vector<SectionRecord> take() { return std::move(m_sections); }

private:
    void takeInSection(const Tag& tag, OwnPairs& pairs);
    void endSection();
    AcDbObjectId idOf(const Tag& tag);

    AcDbDatabase& m_drawing;
    std::vector<SectionRecord> m_sections;
    int64_t m_declared = -1; ///< sections; -1 when nothing says it
    int64_t m_points = 0;    ///< declared by the section at hand
    int64_t m_offsets = 0;
    int64_t m_drawn = 0;
    bool m_sound = true;
};

/// Writes the records with their counts, as the alignment's last pairs.
void encodeSections(const std::vector<SectionRecord>& sections, const TextEncoding& encoding, TagWriter& out);

/// The alignment's pairs with the flags and drawn ids of the changed sections as they are now; all else byte for byte.
std::string withChangedSections(std::string_view pairs, const std::vector<SectionRecord>& sections,
                                const std::vector<bool>& changed);
