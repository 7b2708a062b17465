#pragma once

#include <cstddef>

#include "secrets/CoveredRanges.h"
#include "secrets/ReadableText.h"

namespace vorn {

// How each kind of secret is found. Every rule goes through the text once and adds what it finds; none needs to
// know of another.

// Values of keys in JSON, also in JSON that was packed into JSON, and in property lists of the old style.
void coverKeyedValues(const ReadableText& text, CoveredRanges& ranges);
// What stands behind the word for a passcode, in any language, with marks, tags or line breaks between.
void coverLabelledValues(const ReadableText& text, CoveredRanges& ranges);
// Values of secret parameters of URLs, also of a URL that was packed into another.
void coverParameters(const ReadableText& text, CoveredRanges& ranges);
// E-mail addresses, and who signs in within a URL.
void coverAddresses(const ReadableText& text, CoveredRanges& ranges);
// Codes in a telephone number that is dialled at one tap, and numbers that end with "#" as codes do.
void coverDialledCodes(const ReadableText& text, CoveredRanges& ranges);
// Base64, which nobody reads at a glance and in which anything may stand.
void coverPackedData(const ReadableText& text, CoveredRanges& ranges);

// Every number of four digits and more between two places that is no telephone number.
void coverCodes(const ReadableText& text, std::size_t from, std::size_t to, CoveredRanges& ranges);

}  // namespace vorn
