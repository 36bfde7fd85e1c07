#include "tarvordp/print/job_client.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>
#include <utility>

#include "tarvordp/interruption.h"
#include "tarvordp/job/amount.h"
#include "tarvordp/job/answers.h"
#include "tarvordp/mistake.h"
#include "template/clsObLineCharacts.h"

namespace tarvordp {
namespace {

using tarvo::clsObLineCharacts;
using tarvo::Currency;
using tarvo::Ref;
using tarvo::RunTimeError;
using tarvo::Text;

[[noreturn]] void endReport(std::int32_t number, const std::string& why) {
  throw RunTimeError(number, {u"tarvordp", tarvo::fromUtf8(why), {}, 0});
}

// What both clients do.
class Client {
 public:
  explicit Client(JobRun& run) : run_(run), answers_(run.data.record) {}

  // Runs a callback: `action` gives its answer, `trace` traces it.  Data that became wrong while
  // the report is printed are a failing device.
  template <class Action, class TraceAnswer>
  auto callback(Action action, TraceAnswer trace) {
    ++run_.callbacks;
    if (run_.output.failure()) endReport(tarvo::kDeviceError, *run_.output.failure());
    endIfInterrupted();
    try {
      auto answer = action();
      if (run_.trace.isOn()) trace(Trace::Json(answer));
      return answer;
    } catch (const Mistake& wrong) {
      if (run_.trace.isOn()) trace(Trace::Json());
      endReport(tarvo::kDeviceError, wrong.what());
    } catch (...) {
      if (run_.trace.isOn()) trace(Trace::Json());
      throw;
    }
  }

  template <class Action>
  auto callback(const char* name, Action action) {
    return callback(std::move(action),
                    [&](Trace::Json answer) { run_.trace.callback(name, std::move(answer)); });
  }

  bool answer(const char* name, Ref<clsObLineCharacts>& line, const Record* detail,
              const std::optional<Currency>& subtotal) {
    Ref<tarvo::clsObSpecialVar> variable = line->GetSpecialVar();
    run_.lastName = nameOf(*variable);
    const bool isAnswered =
        callback([&] { return answers_.answer(variable, detail); },
                 [&](Trace::Json answer) {
                   Trace::Json event{{"event", "callback"},
                                     {"name", name},
                                     {"variable", tarvo::toUtf8(nameOf(*variable))}};
                   if (subtotal) event["subtotal"] = amountText(*subtotal);
                   event["answer"] = std::move(answer);
                   run_.trace.write(event);
                 });
    note(*variable, isAnswered, detail);
    return isAnswered;
  }

  void pause() {
    callback("sDisplayPauseDialog", [this] {
      if (run_.job.pause == false) giveUp();
      if (!run_.job.pause && run_.op.canBeAsked()) {
        const bool goesOn =
            run_.op.waitForEnter("Pause: press Enter to go on, Ctrl-C to give up. ");
        endIfInterrupted();
        if (!goesOn) giveUp();
      }
      endIfInterrupted();
      return nullptr;
    });
  }

  JobRun& run() noexcept { return run_; }

 private:
  [[noreturn]] void giveUp() {
    run_.wasGivenUpAtPause = true;
    endReport(tarvo::kInvalidProcedureCall, "The report was given up at a pause");
  }

  static void endIfInterrupted() {
    if (Interruption::isAskedFor()) endReport(tarvo::kDeviceError, "Interrupted");
  }

  void note(const tarvo::clsObSpecialVar& variable, bool isAnswered, const Record* detail) {
    ++run_.values;
    if (isAnswered && !run_.asked.expectsMore()) return;
    const Text name = nameOf(variable);
    const Text key = nameKey(name);
    const bool isKnown = isAnswered || (detail != nullptr && detail->find(key) != nullptr) ||
                         run_.data.record.find(key) != nullptr;
    run_.asked.note(name, !isKnown);
  }

  JobRun& run_;
  Answers answers_;
};

class FormClient final : public tarvo::clsImplementIDTraduc {
 public:
  explicit FormClient(JobRun& run) : client_(run) {}

  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite) override {
    const bool isAnswered =
        client_.answer("fTranslateSpecialVar", refLineToWrite, nullptr, std::nullopt);
    client_.run().progress.printingForm(formProgress());
    return isAnswered;
  }

  void sDisplayPauseDialog() override { client_.pause(); }

 private:
  FormProgress formProgress() {
    const JobRun& run = client_.run();
    const bool isDraft = run.job.output != tarvo::ePOD_Definitiva;
    return {.sheet = isDraft
                         ? 0
                         : std::max<std::int64_t>(1, static_cast<std::int64_t>(run.output.jobs())),
            .sheets = run.job.sheets == tarvo::eHP_AmbasHojas ? 2 : 1,
            .values = run.values,
            .pages = static_cast<std::int64_t>(run.output.pages())};
  }

  Client client_;
};

class MasterDetailClient final : public tarvo::clsImplementIDMD {
 public:
  explicit MasterDetailClient(JobRun& run) : client_(run) {}

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite,
                              Currency valMontoSubTotal) override {
    return client_.answer("fTranslateSpecialVarMD", refLineToWrite, details().present(),
                          valMontoSubTotal);
  }

  void sDisplayPauseDialog() override { client_.pause(); }

  bool fReadFirstRecord() override {
    record_ = 0;
    ++copy_;
    return client_.callback("fReadFirstRecord", [this] { return counted(details().first()); });
  }

  bool fReadNextRecord() override {
    return client_.callback("fReadNextRecord", [this] { return counted(details().next()); });
  }

  void sAccumSubTotal(Currency& refMontoSubTotal) override {
    const Currency before = refMontoSubTotal;
    client_.callback(
        [&] {
          refMontoSubTotal += amountToAdd();
          return amountText(refMontoSubTotal);
        },
        [&](Trace::Json answer) {
          client_.run().trace.write({{"event", "callback"},
                                     {"name", "sAccumSubTotal"},
                                     {"subtotal", amountText(before)},
                                     {"answer", std::move(answer)}});
        });
  }

  bool fCanExecuteWriteReport(bool& refMustShowErrorMsg, Text& refErrorMsgToDisplay) override {
    const Job& job = client_.run().job;
    return client_.callback(
        [&] {
          refMustShowErrorMsg = !job.refusal.empty();
          refErrorMsgToDisplay = job.refusal;
          return job.canPrint;
        },
        [&](Trace::Json answer) {
          Trace::Json event{{"event", "callback"}, {"name", "fCanExecuteWriteReport"}};
          if (!job.refusal.empty()) event["text"] = tarvo::toUtf8(job.refusal);
          event["answer"] = std::move(answer);
          client_.run().trace.write(event);
        });
  }

  std::int32_t fDetailRecordCount() override {
    return client_.callback("fDetailRecordCount", [this] {
      if (details().count() > std::numeric_limits<std::int32_t>::max()) {
        throw RunTimeError(tarvo::kOverflow);
      }
      return static_cast<std::int32_t>(details().count());
    });
  }

 private:
  Details& details() { return *client_.run().data.details; }

  Currency amountToAdd() {
    const Text& name = client_.run().job.subtotal;
    const Record* record = details().present();
    const JobValue* value = name.empty() || record == nullptr ? nullptr : record->find(name);
    return value != nullptr ? amountOf(*value) : Currency{};
  }

  bool counted(bool isThere) {
    if (!isThere) return false;
    JobRun& run = client_.run();
    ++run.records;
    run.progress.printing({.copy = copy_,
                           .copies = run.job.copies,
                           .record = ++record_,
                           .records = details().count(),
                           .pages = static_cast<std::int64_t>(run.output.pages())});
    return true;
  }

  Client client_;
  std::int64_t copy_ = 0;    // from 1
  std::int64_t record_ = 0;  // of this copy
};

}  // namespace

Ref<tarvo::clsImplementIDTraduc> makeFormClient(JobRun& run) {
  return tarvo::make<FormClient>(run);
}

Ref<tarvo::clsImplementIDMD> makeMasterDetailClient(JobRun& run) {
  return tarvo::make<MasterDetailClient>(run);
}

}  // namespace tarvordp
