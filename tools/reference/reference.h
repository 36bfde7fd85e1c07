// Writes the reference of the public classes from their member tables, as a page of Markdown.
#pragma once

#include <string>

namespace tarvo::reference {

// Both libraries: every class with its operations in interface order, as Visual Basic declares
// them, and every enumeration.
std::string page();

}  // namespace tarvo::reference
