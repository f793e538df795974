#include "controls/win32/ui_font.hpp"

#include <string>

namespace quilom::controls {

UiFont::UiFont(std::wstring_view face, int pointSize, bool bold) {
  HDC screen = GetDC(nullptr);
  const int height = -MulDiv(pointSize, GetDeviceCaps(screen, LOGPIXELSY), 72);
  ReleaseDC(nullptr, screen);
  const std::wstring name(face);
  font_ = CreateFontW(height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                      OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, name.c_str());
}

UiFont::~UiFont() {
  if (font_ != nullptr) DeleteObject(font_);
}

void UiFont::ApplyTo(HWND control) const { SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Handle()), TRUE); }

}  // namespace quilom::controls
