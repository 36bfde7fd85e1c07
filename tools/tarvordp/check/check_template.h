// Finds what is wrong with a template before it is printed.
#pragma once

#include <optional>
#include <string_view>

#include "tarvordp/check/findings.h"
#include "tarvordp/check/sections.h"

namespace tarvordp {

struct Profile;

// `bytes` are the file's, in code page 1252.  Without a kind it is guessed, without a profile what
// depends on the printer is taken as usual: PC437 letters, 80 columns, 137 condensed.
// REQUIRES: the profile stays as long as the call takes.
Findings checkTemplate(std::string_view bytes, std::optional<TemplateKind> kind,
                       const Profile* profile);

}  // namespace tarvordp
