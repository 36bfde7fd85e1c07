#include "platform/win32/preview_commands.h"

namespace tarvo::platform {
namespace {

struct MenuRow {
  PreviewCommand command;  // kNone: a line, or the title of a menu that begins here
  const wchar_t* text;     // null for a line
};

constexpr MenuRow kMenu[] = {
    {PreviewCommand::kNone, L"&Archivo"},
    {PreviewCommand::kPrint, L"&Imprimir...\tCtrl+P"},
    {PreviewCommand::kSave, L"&Guardar como PDF...\tCtrl+S"},
    {PreviewCommand::kNone, nullptr},
    {PreviewCommand::kClose, L"&Cerrar\tEsc"},
    {PreviewCommand::kNone, L"&P\u00E1gina"},
    {PreviewCommand::kFirstPage, L"&Primera\tInicio"},
    {PreviewCommand::kPreviousPage, L"&Anterior\tRe P\u00E1g"},
    {PreviewCommand::kNextPage, L"&Siguiente\tAv P\u00E1g"},
    {PreviewCommand::kLastPage, L"&\u00DAltima\tFin"},
    {PreviewCommand::kNone, nullptr},
    {PreviewCommand::kGoToPage, L"&Ir a la p\u00E1gina...\tCtrl+G"},
    {PreviewCommand::kNone, L"&Ver"},
    {PreviewCommand::kZoomIn, L"A&umentar\t+"},
    {PreviewCommand::kZoomOut, L"&Reducir\t-"},
    {PreviewCommand::kNone, nullptr},
    {PreviewCommand::kWholePage, L"P\u00E1gina &completa\tCtrl+0"},
    {PreviewCommand::kActualSize, L"&Tama\u00F1o real\tCtrl+1"},
    {PreviewCommand::kPageWidth, L"&Ancho de la p\u00E1gina\tCtrl+2"},
};

}  // namespace

HMENU makePreviewMenu() {
  const HMENU bar = CreateMenu();
  HMENU menu = nullptr;
  for (const MenuRow& row : kMenu) {
    if (row.text == nullptr) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else if (row.command == PreviewCommand::kNone) {
      menu = CreatePopupMenu();
      AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), row.text);
    } else {
      AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(row.command), row.text);
    }
  }
  return bar;
}

namespace {

struct KeyRow {
  WPARAM key;
  bool withControl;
  PreviewCommand command;
};

constexpr KeyRow kKeys[] = {
    {'P', true, PreviewCommand::kPrint},
    {'S', true, PreviewCommand::kSave},
    {'G', true, PreviewCommand::kGoToPage},
    {'0', true, PreviewCommand::kWholePage},
    {VK_NUMPAD0, true, PreviewCommand::kWholePage},
    {'1', true, PreviewCommand::kActualSize},
    {VK_NUMPAD1, true, PreviewCommand::kActualSize},
    {'2', true, PreviewCommand::kPageWidth},
    {VK_NUMPAD2, true, PreviewCommand::kPageWidth},
    {VK_OEM_PLUS, true, PreviewCommand::kZoomIn},
    {VK_OEM_MINUS, true, PreviewCommand::kZoomOut},
    {VK_ADD, true, PreviewCommand::kZoomIn},
    {VK_SUBTRACT, true, PreviewCommand::kZoomOut},
    {VK_OEM_PLUS, false, PreviewCommand::kZoomIn},
    {VK_OEM_MINUS, false, PreviewCommand::kZoomOut},
    {VK_ADD, false, PreviewCommand::kZoomIn},
    {VK_SUBTRACT, false, PreviewCommand::kZoomOut},
    {VK_PRIOR, false, PreviewCommand::kPreviousPage},
    {VK_NEXT, false, PreviewCommand::kNextPage},
    {VK_HOME, false, PreviewCommand::kFirstPage},
    {VK_END, false, PreviewCommand::kLastPage},
    {VK_HOME, true, PreviewCommand::kFirstPage},
    {VK_END, true, PreviewCommand::kLastPage},
    {VK_ESCAPE, false, PreviewCommand::kClose},
};

}  // namespace

PreviewCommand commandOfKey(WPARAM key, bool withControl) noexcept {
  for (const KeyRow& row : kKeys) {
    if (row.key == key && row.withControl == withControl) return row.command;
  }
  return PreviewCommand::kNone;
}

wchar_t digitOfKey(WPARAM key) noexcept {
  if (key >= '0' && key <= '9') return static_cast<wchar_t>(key);
  if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return static_cast<wchar_t>(L'0' + key - VK_NUMPAD0);
  return L'\0';
}

}  // namespace tarvo::platform
