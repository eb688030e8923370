#include "host/db/entity/survey_codes.h"

#include "store/text/composing.h"
#include "store/text/text_encoding.h"

void restoreSurveyBytes(resbuf* chain, const TextEncoding& encoding)
{
    constexpr int kString = 1000;
    for (resbuf* node = chain; node != nullptr; node = node->rbnext)
    {
        if (node->restype != kString || node->resval.rstring == nullptr || !hasStrayMark(node->resval.rstring))
            continue;
        const std::optional<std::u16string> bytes = encoding.bytesOf(node->resval.rstring);
        if (!bytes)
            continue;
        acutDelString(node->resval.rstring);
        node->resval.rstring = acutNewString(bytes->c_str());
    }
}
