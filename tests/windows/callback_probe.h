// Public classes of the tests' own that call a client's callback object as the reports do: what
// comes of every operation, and a template line with the client's values in it.
#pragma once

#include "frame/clsImplementIDMD_members.h"
#include "frame/clsImplementIDTraduc_members.h"
#include "frame/trapped.h"
#include "probe.h"
#include "template/line_translator.h"

namespace tarvo {

// With the callback object of a master-detail report.
class clsCallbackProbe final : public TrappedObject {
 public:
  // Keeps the callback object, as a report's sInit does.
  void sInit(Ref<clsImplementIDMD>& initTraducSpecialVar);

  // Calls every operation once.  A line for each that answers: its result, and what it leaves in
  // its by-reference arguments.  Raises: what the callback raises.
  Text fCallAll(Currency valTotal);

  // The line's text to print, with the client's values.
  Text fTranslateLine(TextView valLine);

  // The line object that the client gets, and has put in its place.
  const Ref<clsObLineCharacts>& GetLine() const noexcept { return line_; }
  void SetLine(Ref<clsObLineCharacts> valNewValue) noexcept { line_ = std::move(valNewValue); }

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  Ref<clsImplementIDMD> client_;
  Ref<clsObLineCharacts> line_ = make<clsObLineCharacts>();
  LineTranslator translator_;
};

// With that of a form report.
class clsFormCallbackProbe final : public Object {
 public:
  void sInit(Ref<clsImplementIDTraduc>& initTraducSpecialVar);
  void sPause();
  Text fTranslateLine(TextView valLine);

 private:
  Ref<clsImplementIDTraduc> client_;
  Ref<clsObLineCharacts> line_ = make<clsObLineCharacts>();
  LineTranslator translator_;
};

template <>
struct Members<clsCallbackProbe> {
  static constexpr const LibraryInfo& library = kProbeLibrary;
  static constexpr std::uint16_t number = 2;
  static constexpr const char* name = "clsCallbackProbe";
  static constexpr const char* help = "Calls a callback object";
  static constexpr auto table = memberTable(
      method<&clsCallbackProbe::sInit>("sInit", "keeps the callback object",
                                       "initTraducSpecialVar"),
      method<&clsCallbackProbe::fCallAll>("fCallAll", "calls every operation", "valTotal"),
      method<&clsCallbackProbe::fTranslateLine>("fTranslateLine", "translates a line", "valLine"),
      property<&clsCallbackProbe::GetLine, &clsCallbackProbe::SetLine>("Line", "the line object"));
};

template <>
struct Members<clsFormCallbackProbe> {
  static constexpr const LibraryInfo& library = kProbeLibrary;
  static constexpr std::uint16_t number = 3;
  static constexpr const char* name = "clsFormCallbackProbe";
  static constexpr const char* help = "Calls a form's callback object";
  static constexpr auto table =
      memberTable(method<&clsFormCallbackProbe::sInit>("sInit", "keeps the callback object",
                                                       "initTraducSpecialVar"),
                  method<&clsFormCallbackProbe::sPause>("sPause", "asks for a pause"),
                  method<&clsFormCallbackProbe::fTranslateLine>("fTranslateLine",
                                                                "translates a line", "valLine"));
};

}  // namespace tarvo
