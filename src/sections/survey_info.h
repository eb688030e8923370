#pragma once

#include "host/drawing/object_id.h"

#include <optional>
#include <string>
#include <vector>

class AcDbObject;

/// What the companion modules have put into the drawing: feature codes on ordinary entities, and alignments.

/// The application whose extended data carries feature codes.
inline constexpr const char16_t* kSurveyApplication = u"SV_INFOR";

/// Takes the feature codes of entities, for one run over many of them. The drawing keeps codes in 8-bit Vietnamese
/// form; they become wide text by way of a scratch file in the user's folder, of which only two things show: it holds
/// the last code read when the reader goes, and while it cannot be made, codes stay as the drawing keeps them.
class SurveyInfoReader
{
public:
    SurveyInfoReader() = default;
    ~SurveyInfoReader();
    SurveyInfoReader(const SurveyInfoReader&) = delete;
    SurveyInfoReader& operator=(const SurveyInfoReader&) = delete;

    /// The feature code of an object open for reading; nothing when it has none.
    std::optional<std::u16string> codeOf(const AcDbObject& object);

private:
    bool passThroughScratch(const std::u16string& text);
    bool write(const std::u16string& text);

    std::u16string m_scratchFile;
    std::u16string m_written; ///< what the scratch file holds
    std::u16string m_last;    ///< what it is to hold in the end
    bool m_writable = false;
};

/// The feature code of an object; false, and an empty text, when it has none or cannot be opened. Locks the document
/// meanwhile.
bool ReadSurveyInfo(AcDbObjectId id, std::u16string& text);

/// The alignments of the drawing in its order, and their names; the name of one that cannot be opened is empty.
/// Answers how many there are.
int FindAlignments(AcDbObjectIdArray& ids, std::vector<std::u16string>& names);
