// What two guides in two languages must have in common: the steps of their headings, and the
// examples without the texts and names that are translated.
#pragma once

#include <string>
#include <vector>

#include "guide.h"

namespace tarvo::test {

// A line of a template: what stands between braces, the words of the language, numbers and widths
// as they are; names of values and texts as "~".  A comment is "...~", an argument in parentheses
// "(~)".
std::string skeletonOf(const std::string& line);

// All templates of the example, line by line, and how many lines each of its printed pages has.
std::vector<std::string> skeletonOf(const Example& example);

// "# ## ## ###": the levels of the headings in their order.
std::string skeletonOf(const std::vector<Heading>& headings);

}  // namespace tarvo::test
