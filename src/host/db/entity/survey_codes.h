#pragma once

#include "host/db/resbuf.h"

class TextEncoding;

/// The application under whose name survey programs keep feature codes on ordinary entities.
inline constexpr const char16_t* kSurveyApplication = u"SV_INFOR";

/// Puts right what `encoding` took 8-bit Vietnamese for. Survey programs leave their codes as such bytes; in a code
/// page that has combining marks some of them read as a mark that is on no letter. The strings of `chain` with such a
/// mark are given byte for byte instead, each byte as the character of its code.
void restoreSurveyBytes(resbuf* chain, const TextEncoding& encoding);
