// What happens while a report is printed, one JSON object a line: callbacks, messages, questions,
// spooler calls and raised errors, in their order.
//
//   {"event":"callback","name":"fTranslateSpecialVarMD","variable":"RENGLON.MONTO","subtotal":"0",
//    "answer":true}
//   {"event":"message","operation":"sShowMessageWithTitle","text":"...","title":"...",
//    "answer":null}
//   {"event":"question","operation":"fAskAcceptCancel","text":"...","title":"...","answer":true}
//   {"event":"spooler","call":"WritePrinter","bytes":"1b45..."}
//   {"event":"error","class":"...","procedure":"...","module":"...","number":6,
//    "description":"..."}
//
// A callback that raises an error has the answer null.  fCanExecuteWriteReport has its message as
// "text" when it refuses, sAccumSubTotal the subtotal that it was given and the new one as its
// answer.  Spooler calls have the names of the Windows spooler's; OpenPrinter has the printer's
// "name", StartDocPrinter the "document"; a call that failed has "answer":false and the system's
// "code" at its end.  An error has one event for each procedure that it passes.
//
// Every line is in the file when the next step begins.
#pragma once

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "frame/currency.h"
#include "frame/text.h"

namespace tarvordp {

class Trace {
 public:
  using Json = nlohmann::ordered_json;

  // No trace: nothing is written.
  Trace() = default;

  // Raises: Mistake when the file cannot be written.
  explicit Trace(const std::string& path);

  // REQUIRES: `stream` outlives this.
  explicit Trace(std::ostream& stream) : path_("the standard output"), stream_(&stream) {}

  // Whether it is worth while to make events.
  bool isOn() const noexcept { return stream_ != nullptr || file_.is_open(); }

  void write(const Json& event);

  // A callback without further values.
  void callback(const char* name, Json answer);

  // False when the file could not take everything.
  bool isWhole() const noexcept { return isWhole_; }

  const std::string& path() const noexcept { return path_; }

 private:
  std::string path_;
  std::ofstream file_;
  std::ostream* stream_ = nullptr;  // in place of the file
  bool isWhole_ = true;
};

}  // namespace tarvordp
