#include "frame/services.h"

namespace tarvo {

void clsTexto::replaceEach(TextView text, std::span<const Replacement> replacements, Text& result) {
  result = text;
  Text before;
  for (const Replacement& replacement : replacements) {
    before.swap(result);
    fReplaceAll(before, replacement.oldText, replacement.newText, result);
  }
}

}  // namespace tarvo
