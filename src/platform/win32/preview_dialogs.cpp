#include "platform/win32/preview_dialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "frame/run_time_error.h"
#include "graphic/page_output.h"
#include "graphic/saved_pages.h"
#include "platform/file/file_spooler.h"
#include "platform/win32/gdi_printer.h"

namespace tarvo::platform {
namespace {

constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kMostPages = 0xFFFF;  // the dialog counts in 16 bits

std::wstring wide(TextView text) { return std::wstring(text.begin(), text.end()); }

// The library of the dialogs, loaded with the first of them and kept: nothing may be freed while
// the system unloads this library, and there is no other end.
HMODULE dialogLibrary() noexcept {
  static const HMODULE kLibrary = LoadLibraryW(L"comdlg32.dll");
  return kLibrary;
}

// One of the dialogs' functions.  Raises: 51 on a system without them.
template <class Function>
Function* dialogFunction(const char* name) {
  const HMODULE dialogs = dialogLibrary();
  const FARPROC found = dialogs != nullptr ? GetProcAddress(dialogs, name) : nullptr;
  if (found == nullptr) throw RunTimeError(kInternalError, u"comdlg32.dll");
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

class WaitCursor {
 public:
  WaitCursor() noexcept : old_(SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)))) {}
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { SetCursor(old_); }

 private:
  HCURSOR old_;
};

// --- Printing.

class PrintDialog {
 public:
  PrintDialog(HWND owner, const PagedText& pages, std::size_t page)
      : show_(dialogFunction<decltype(PrintDlgW)>("PrintDlgW")), pages_(pages) {
    dialog_.lStructSize = sizeof dialog_;
    dialog_.hwndOwner = owner;
    dialog_.Flags = PD_RETURNDEFAULT;
    if (show_(&dialog_)) requestPaper();
    dialog_.Flags = PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOSELECTION;
    dialog_.nMinPage = 1;
    dialog_.nMaxPage = static_cast<WORD>(std::min(pages.pageCount(), kMostPages));
    dialog_.nFromPage = static_cast<WORD>(std::min(page + 1, kMostPages));
    dialog_.nToPage = dialog_.nFromPage;
    dialog_.nCopies = 1;
  }
  PrintDialog(const PrintDialog&) = delete;
  PrintDialog& operator=(const PrintDialog&) = delete;
  ~PrintDialog() {
    if (dialog_.hDC != nullptr) DeleteDC(dialog_.hDC);
    GlobalFree(dialog_.hDevMode);
    GlobalFree(dialog_.hDevNames);
  }

  // False when the operator did not want to.  Raises: 482 when no printer can be had.
  bool show() {
    if (show_(&dialog_)) return true;
    const DWORD reason = dialogFunction<decltype(CommDlgExtendedError)>("CommDlgExtendedError")();
    if (reason == 0) return false;
    setLastSystemError(static_cast<std::int32_t>(reason));
    failToPrint(printerName(), {});
  }

  HDC printer() const noexcept { return dialog_.hDC; }

  PageRange range() const noexcept {
    if ((dialog_.Flags & PD_PAGENUMS) == 0) return {0, pages_.pageCount()};
    const std::size_t from = std::min(dialog_.nFromPage, dialog_.nToPage);
    const std::size_t to = std::max(dialog_.nFromPage, dialog_.nToPage);
    return {std::clamp<std::size_t>(from, 1, pages_.pageCount()) - 1,
            std::clamp<std::size_t>(to, 1, pages_.pageCount())};
  }

  Text printerName() const {
    if (dialog_.hDevNames == nullptr) return {};
    const auto* names = static_cast<const DEVNAMES*>(GlobalLock(dialog_.hDevNames));
    if (names == nullptr) return {};
    const auto* start = reinterpret_cast<const char16_t*>(names) + names->wDeviceOffset;
    Text name(start);
    GlobalUnlock(dialog_.hDevNames);
    return name;
  }

 private:
  void requestPaper() {
    const PrinterSettings settings = settingsFor(pages_.format(), printerName());
    if (settings.empty()) return;
    const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, settings.size());
    if (copy == nullptr) return;
    std::memcpy(GlobalLock(copy), settings.data(), settings.size());
    GlobalUnlock(copy);
    GlobalFree(dialog_.hDevMode);
    dialog_.hDevMode = copy;
  }

  decltype(PrintDlgW)* show_;
  const PagedText& pages_;
  PRINTDLGW dialog_{};
};

void print(HWND owner, const PagedText& pages, std::size_t page, TextView title) {
  PrintDialog dialog(owner, pages, page);
  if (!dialog.show()) return;
  const WaitCursor cursor;
  printPages(dialog.printer(), pages, dialog.range(), title, dialog.printerName());
}

// --- Saving.

void save(HWND owner, const PagedText& pages, TextView title) {
  std::wstring path = wide(pathForPages(title, {}));
  path.resize(kLongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = L"Documento PDF (*.pdf)\0*.pdf\0Todos los archivos (*.*)\0*.*\0";
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrDefExt = L"pdf";
  dialog.lpstrTitle = L"Guardar como PDF";
  dialog.Flags =
      OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST;
  if (!dialogFunction<decltype(GetSaveFileNameW)>("GetSaveFileNameW")(&dialog)) return;
  const WaitCursor cursor;
  Text printer(kFilePrinterPrefix);
  printer.append(reinterpret_cast<const char16_t*>(path.c_str()));
  savePages(pages, title, printer);
}

bool wasCancelled() noexcept { return currentRunTimeError().lastDllError() == ERROR_CANCELLED; }

}  // namespace

void printFromDialog(HWND owner, const PagedText& pages, std::size_t page,
                     TextView title) noexcept {
  try {
    print(owner, pages, page, title);
  } catch (...) {
    // A printer that is a file asks for its name, and takes no for an answer.
    if (!wasCancelled()) showCurrentError(owner, L"No se pudo imprimir el informe.", title);
  }
}

void saveFromDialog(HWND owner, const PagedText& pages, TextView title) noexcept {
  try {
    save(owner, pages, title);
  } catch (...) {
    showCurrentError(owner, L"No se pudo guardar el informe.", title);
  }
}

void showCurrentError(HWND owner, const wchar_t* sentence, TextView title) noexcept {
  const RunTimeError error = currentRunTimeError();
  try {
    const std::wstring text = std::wstring(sentence) + L"\n\n" + wide(error.description());
    MessageBoxW(owner, text.c_str(), wide(title).c_str(), MB_OK | MB_ICONERROR);
  } catch (const std::bad_alloc&) {
    MessageBoxW(owner, sentence, nullptr, MB_OK | MB_ICONERROR);
  }
}

}  // namespace tarvo::platform
