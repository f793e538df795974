#include "shell/win32/help_text_window.hpp"

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "controls/win32/ui_font.hpp"
#include "controls/win32/wide_text.hpp"
#include "controls/win32/window_class.hpp"
#include "shell/help_fallback.hpp"
#include "text/utf.hpp"

namespace quilom::shell::win32 {

namespace {

constexpr wchar_t kClassName[] = L"QuilomHelpText";

struct HelpTextWindow {
  HWND text = nullptr;
  controls::UiFont font{controls::TamilAndLatinFace(), 11};
};

std::u16string ShownText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return HelpPlainText(text::Utf8ToUtf16(bytes));
}

LRESULT CALLBACK HelpTextProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<HelpTextWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_SIZE && self != nullptr) {
    MoveWindow(self->text, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
    return 0;
  }
  if (message == WM_NCDESTROY && self != nullptr) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    delete self;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

void ShowHelpTextWindow(HWND owner, const std::filesystem::path& file) {
  HINSTANCE instance = GetModuleHandleW(nullptr);
  controls::RegisterWindowClassOnce(instance, kClassName, HelpTextProcedure);
  const std::wstring title = L"Quilom++ Help - " + file.stem().wstring();
  HWND window = CreateWindowExW(0, kClassName, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 640,
                                520, owner, nullptr, instance, nullptr);
  if (window == nullptr) return;
  auto self = std::make_unique<HelpTextWindow>();
  self->text = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                               WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0, 0,
                               0, 0, window, nullptr, instance, nullptr);
  self->font.ApplyTo(self->text);
  // A left margin, so the first letter of each line is not drawn against the border.
  SendMessageW(self->text, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(6, 6));
  SetWindowTextW(self->text, controls::ToWide(ShownText(file)).c_str());
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self.release()));
  RECT client{};
  GetClientRect(window, &client);
  SendMessageW(window, WM_SIZE, 0, MAKELPARAM(client.right, client.bottom));
  ShowWindow(window, SW_SHOWNORMAL);
}

}  // namespace quilom::shell::win32
