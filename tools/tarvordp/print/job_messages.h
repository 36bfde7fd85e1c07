// The message service of a printed job: messages are lines on the standard error stream, questions
// are answered by the job, by a person, or by going on.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "frame/services.h"
#include "tarvordp/print/operator.h"
#include "tarvordp/print/trace.h"

namespace tarvordp {

class JobMessages final : public tarvo::clsMessage {
 public:
  // Counts what the report has done so far.  A message that comes again and again while the report
  // does nothing else would come for ever.
  using Activity = std::function<std::uint64_t()>;

  // `turnSheet`: the job's answer to the question of that name; empty: it has none.
  // REQUIRES: `op` and `trace` outlive the calls.
  JobMessages(Operator& op, Trace& trace, std::optional<bool> turnSheet, Activity activity);

  // Raises: 5, each of them, for a message that never ends; questions, the device error 57 when the
  // operator ends the program instead of answering.
  void sShowMessage(tarvo::Text& refText) override;
  void sShowMessageWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) override;
  void sWarning(tarvo::Text& refText) override;
  void sWarningWithTitle(tarvo::TextView valText, tarvo::TextView valTitle) override;

  // On a terminal where questions are asked, a person's answer; else true.
  bool fAskAcceptCancel(tarvo::TextView valText, tarvo::TextView valTitle) override;
  bool fWarnLocation(tarvo::TextView valProjectTitle, std::int16_t valLocationCode) override;

  // Whether a message said that nothing, or a sheet less, is printed.
  bool saidThatNotPrinted() const noexcept { return saidThatNotPrinted_; }

  // Whether one said that the report had nothing to print.
  bool saidThatNothingFound() const noexcept { return saidThatNothingFound_; }

  // Whether one said that there is no template "X.ID.ID": the library adds the ".ID" to its name.
  bool saidTemplateEndingTwice() const noexcept { return saidTemplateEndingTwice_; }

  // Whether the question for the second sheet was answered with no.
  bool leftOutSecondSheet() const noexcept { return leftOutSecondSheet_; }

 private:
  void show(const char* operation, tarvo::TextView text, tarvo::TextView title);
  bool ask(const char* operation, tarvo::TextView text, tarvo::TextView title);
  void tell(tarvo::TextView text, tarvo::TextView title);
  void endEndlessMessage(const std::string& line);

  Operator& operator_;
  Trace& trace_;
  std::optional<bool> turnSheet_;
  Activity activity_;
  bool saidThatNotPrinted_ = false;
  bool saidThatNothingFound_ = false;
  bool saidTemplateEndingTwice_ = false;
  bool leftOutSecondSheet_ = false;
  std::string lastLine_;
  std::uint64_t lastActivity_ = 0;
  int repetitions_ = 0;
};

}  // namespace tarvordp
