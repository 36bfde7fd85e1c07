// Text as the library sees it: counted UTF-16.
//
// A text may hold character 0 and is never cut at one.  Positions in texts count from 1 wherever an
// operation of the library speaks of them; 0 means "not found".  Eight-bit text exists at two doors
// only, template files coming in and printer bytes going out: see codepage.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

using Text = std::u16string;
using TextView = std::u16string_view;

// An array of texts, base 0, as a split gives it.
using TextList = std::vector<Text>;

// UTF-8 for diagnostics, file names and other doors that the platform keeps in UTF-8.
// A lone surrogate becomes U+FFFD; a malformed UTF-8 sequence likewise, one per bad byte.
std::string toUtf8(TextView text);
void toUtf8(TextView text, std::string& result);  // replaces it, in the storage that it has
Text fromUtf8(std::string_view utf8);

// Text from characters 0 to 127 (names of procedures, plain words).  REQUIRES: plain ASCII.
Text fromAscii(std::string_view ascii);

// The name compare of late binding: plain ASCII letters are equal in either case, nothing else is.
bool equalIgnoringAsciiCase(TextView a, std::string_view b);

}  // namespace tarvo
