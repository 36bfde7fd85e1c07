// The variables that the master-detail report answers itself, by their names, which are compared
// exactly.
#pragma once

#include "frame/text.h"
#include "template/text_key.h"

namespace tarvo {

enum class LibraryVariable {
  kNone,
  kEndOfRecords,
  kCarriedForward,
  kBroughtForward,
  kRecordNumber
};

// Nearly every variable is the client's, which its length tells mostly.
inline LibraryVariable libraryVariable(TextView field) noexcept {
  constexpr TextView kEndOfRecords = u"FINRENGLONESDOCUMENTOS";
  constexpr TextView kCarriedForward = u"VAN";
  constexpr TextView kBroughtForward = u"VIENEN";
  constexpr TextView kRecordNumber = u"NUMERAR";
  const auto ifIt = [field](TextView is, LibraryVariable variable) {
    return field.front() == is.front() && TextEqual()(field, is) ? variable
                                                                 : LibraryVariable::kNone;
  };
  switch (field.size()) {
    case kEndOfRecords.size():
      return ifIt(kEndOfRecords, LibraryVariable::kEndOfRecords);
    case kCarriedForward.size():
      return ifIt(kCarriedForward, LibraryVariable::kCarriedForward);
    case kBroughtForward.size():
      return ifIt(kBroughtForward, LibraryVariable::kBroughtForward);
    case kRecordNumber.size():
      return ifIt(kRecordNumber, LibraryVariable::kRecordNumber);
    default:
      return LibraryVariable::kNone;
  }
}

}  // namespace tarvo
