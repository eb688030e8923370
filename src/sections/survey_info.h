#pragma once

#include "host/drawing/object_id.h"

#include <string>
#include <vector>

class AcDbObject;

/// What the companion modules have put into the drawing: feature codes on ordinary entities, and alignments.

/// The application whose extended data carries feature codes.
inline constexpr const char16_t* kSurveyApplication = u"SV_INFOR";

/// Takes the codes of entities. They are kept in the drawing in 8-bit Vietnamese form; the reader turns them into wide
/// text by way of a scratch file in the user's folder, which in the end holds the code read last. While that file
/// cannot be made, codes stay as they are kept. One reader serves one run over many entities: it writes the file once,
/// when it ends.
class SurveyInfoReader
{
public:
    SurveyInfoReader();
    ~SurveyInfoReader();
    SurveyInfoReader(const SurveyInfoReader&) = delete;
    SurveyInfoReader& operator=(const SurveyInfoReader&) = delete;

    /// The feature code of an open object; empty when it has none.
    std::u16string codeOf(const AcDbObject& object);

private:
    std::u16string m_scratchFile;
    std::u16string m_last;
    bool m_canWrite = false;
};

/// The feature code of an object; false, and an empty text, when it has none or cannot be opened. Locks the document
/// meanwhile.
bool ReadSurveyInfo(AcDbObjectId id, std::u16string& text);

/// The alignments of the drawing in its order, and their names; the name of one that cannot be opened is empty.
/// Answers how many there are.
int FindAlignments(AcDbObjectIdArray& ids, std::vector<std::u16string>& names);
