#pragma once

#include "host/db/entity/survey_codes.h"
#include "host/db/object_id.h"
#include "util/scratch_file.h"

#include <optional>
#include <string>
#include <vector>

class AcDbObject;

/// What the companion modules have put into the drawing: feature codes on ordinary entities, and alignments.

/// Takes the feature codes of entities, for one run over many of them. The drawing keeps codes in 8-bit Vietnamese
/// form; they become wide text by way of a scratch file in the user's folder, of which one thing shows: where it can be
/// written, it holds the last code read when the reader goes.
class SurveyInfoReader
{
public:
    /// The feature code of an object open for reading; nothing when it has none.
    std::optional<std::u16string> codeOf(const AcDbObject& object);

private:
    ScratchFile m_scratch;
};

/// The feature code of an object; false, and an empty text, when it has none or cannot be opened. Locks the document
/// meanwhile.
bool ReadSurveyInfo(AcDbObjectId id, std::u16string& text);

/// The alignments of the drawing in its order, and their names; the name of one that cannot be opened is empty.
/// Answers how many there are.
int FindAlignments(AcDbObjectIdArray& ids, std::vector<std::u16string>& names);
