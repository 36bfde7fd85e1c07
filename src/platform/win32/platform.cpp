#include "frame/platform.h"

#include <windows.h>

#include <string>

namespace tarvo::platform {
namespace {

constexpr std::size_t kLongestPath = 32768;

HMODULE ownModule() noexcept {
  HMODULE module = nullptr;
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&libraryFolder), &module);
  return module;
}

// The file that this very code was loaded from: the DLL, or the program that carries it.
std::wstring ownFile() {
  std::wstring file(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(ownModule(), file.data(), static_cast<DWORD>(file.size()));
    // A name that fills the buffer was cut.
    if (length < file.size() || file.size() >= kLongestPath) {
      file.resize(length);
      return file;
    }
    file.resize(file.size() * 2);
  }
}

char16_t characterOf(UINT codePage, std::uint8_t byte) noexcept {
  const char source = static_cast<char>(byte);
  wchar_t character = 0;
  const int count = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, &source, 1, &character, 1);
  return static_cast<char16_t>(count == 1 ? character : byte);
}

}  // namespace

bool systemCodePage(CodePage::Characters& characters) {
  const UINT codePage = GetACP();
  CPINFO info{};
  if (GetCPInfo(codePage, &info) == 0 || info.MaxCharSize != 1) return false;
  for (unsigned byte = 0; byte < characters.size(); ++byte) {
    characters[byte] = characterOf(codePage, static_cast<std::uint8_t>(byte));
  }
  return true;
}

Text libraryFolder() {
  const std::wstring file = ownFile();
  const std::size_t separator = file.rfind(L'\\');
  if (separator == std::wstring::npos) return {};
  return Text(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(separator));
}

Date localTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return dateOf({now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond});
}

bool fileExists(TextView path) {
  if (path.find(u'\0') != TextView::npos) return false;
  const DWORD attributes = GetFileAttributesW(std::wstring(path.begin(), path.end()).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace tarvo::platform
