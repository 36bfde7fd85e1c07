// A Windows program with which the test equipment is tested: it prints, and shows itself.
//
//   probe print PRINTER TITLE   prints all 256 byte values as one raw job
//   probe screen FILE           covers the screen in red and keeps a picture of it (XWD)
//
// PRINTER in the ANSI code page.  Exit code 0 when the system accepted everything.
#include <windows.h>
#include <winspool.h>

#include <array>
#include <cstdio>
#include <string_view>

namespace {

int refused(const char* what) {
  std::printf("%s: error %lu\n", what, GetLastError());
  return 1;
}

int print(char* printer, char* title) {
  HANDLE handle = nullptr;
  if (!OpenPrinterA(printer, &handle, nullptr)) return refused("OpenPrinter");
  char raw[] = "RAW";
  DOC_INFO_1A document = {title, nullptr, raw};
  std::array<unsigned char, 256> bytes;
  for (int value = 0; value < 256; ++value) bytes[value] = static_cast<unsigned char>(value);
  DWORD written = 0;
  if (!StartDocPrinterA(handle, 1, reinterpret_cast<BYTE*>(&document)))
    return refused("StartDocPrinter");
  if (!StartPagePrinter(handle)) return refused("StartPagePrinter");
  if (!WritePrinter(handle, bytes.data(), bytes.size(), &written) || written != bytes.size())
    return refused("WritePrinter");
  if (!EndPagePrinter(handle)) return refused("EndPagePrinter");
  if (!EndDocPrinter(handle)) return refused("EndDocPrinter");
  return ClosePrinter(handle) ? 0 : refused("ClosePrinter");
}

int screen(const char* file) {
  const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
  WNDCLASSA kind = {};
  kind.lpfnWndProc = DefWindowProcA;
  kind.hbrBackground = red;
  kind.lpszClassName = "RedScreen";
  RegisterClassA(&kind);
  const HWND window = CreateWindowExA(WS_EX_TOPMOST, kind.lpszClassName, "", WS_POPUP | WS_VISIBLE,
                                      0, 0, 1024, 768, nullptr, nullptr, nullptr, nullptr);
  if (!window) return refused("CreateWindow");
  for (const DWORD end = GetTickCount() + 1000; GetTickCount() < end; Sleep(10)) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  }
  char source[MAX_PATH];
  if (!GetEnvironmentVariableA("TARVO_SCREEN", source, sizeof source))
    return refused("TARVO_SCREEN");
  return CopyFileA(source, file, FALSE) ? 0 : refused("CopyFile");
}

}  // namespace

int main(int count, char** words) {
  const std::string_view mode = count > 1 ? words[1] : "";
  if (mode == "print" && count == 4) return print(words[2], words[3]);
  if (mode == "screen" && count == 3) return screen(words[2]);
  std::puts("usage: probe print PRINTER TITLE | probe screen FILE");
  return 2;
}
