#pragma once

#include "host/db/resbuf.h"
#include "store/text/text_encoding.h"

#include <string>
#include <string_view>

/// Extended data stands at the end of an object's pairs: for each application its name (1001), then its values.

/// The part of an object's pairs that belongs to `application` (compared without regard to case), with its 1001; all
/// of the object's extended data for an empty name. Empty when there is none.
std::string_view findXData(std::string_view pairs, std::u16string_view application, const TextEncoding& encoding);

/// `pairs` without the extended data of the application.
std::string withoutXData(std::string_view pairs, std::u16string_view application, const TextEncoding& encoding);

/// Extended data (or the values of an xrecord) as a chain of the host's, and back. What a chain cannot hold is left
/// out; a number that cannot be read counts as 0, since only texts are read from chains. Null for no pairs.
resbuf* chainFromPairs(std::string_view pairs, const TextEncoding& encoding);
std::string pairsFromChain(const resbuf* chain, const TextEncoding& encoding);
