// A preview that is still open when its client has let go of everything: the library has to stay as
// long as the window, whose messages its code answers.
#include "client.h"
#include "screen.h"

namespace tarvo::client {
namespace {

using screen::fail;

constexpr const wchar_t* kTitle = L"Relación abierta";

bool showPreview() {
  const auto startUp = createStartUp();
  const auto services = Services::fromCompanion();
  const auto printer = createPrinter();
  if (!startUp || !printer || services.handOver(startUp.get()) != S_OK) return fail("services");
  _clsUtilImp* channel = printer.get();
  _clsUtReport* utility = services.utReport.get();
  startUp->sInitializePrintLibrary(&channel, &utility);
  const auto report = create<_clsARObRep>(library(), CLSID_clsARObRep);
  if (!report) return fail("no report");
  report->sInit(Bstr(u"").get(), Bstr(com::fromWide(kTitle)).get(), ePD_Screen);
  report->sWriteLn(Bstr(u"una línea").get(), 2);
  const HRESULT status = report->sPrintReport(VARIANT_FALSE, VARIANT_TRUE);
  handOverNothing();
  return status == S_OK || fail("the report: " + takeErrorText());
}

// Deals with messages until the window is closed.
bool closePreview(HWND window) {
  PostMessageW(window, WM_CLOSE, 0, 0);
  return screen::comesTrue([window] {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    return !IsWindow(window);
  });
}

bool run() {
  if (library().canUnloadNow() != S_OK) return fail("needed before anything is made");
  if (!showPreview()) return false;
  const HWND window = FindWindowW(nullptr, kTitle);
  if (window == nullptr) return fail("no window");
  const bool isKept = library().canUnloadNow() == S_FALSE || fail("not needed by its window");
  if (!closePreview(window)) return fail("the window stays");
  return (library().canUnloadNow() == S_OK || fail("needed by nothing")) && isKept;
}

}  // namespace
}  // namespace tarvo::client

int main() {
  CoInitialize(nullptr);
  const bool isRight = tarvo::client::run();
  std::fflush(stdout);
  return isRight ? 42 : 1;
}
