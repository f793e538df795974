#include "controls/win32/ui_font.hpp"

#include <string>

namespace quilom::controls {

namespace {

int CALLBACK NoteFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool FaceInstalled(std::wstring_view face) {
  LOGFONTW query{};
  query.lfCharSet = DEFAULT_CHARSET;
  face.copy(query.lfFaceName, LF_FACESIZE - 1);
  bool found = false;
  HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &query, NoteFound, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

}  // namespace

std::wstring FirstInstalledFace(std::initializer_list<std::wstring_view> faces) {
  std::wstring_view chosen;
  for (const std::wstring_view face : faces) {
    chosen = face;
    if (FaceInstalled(face)) break;
  }
  return std::wstring(chosen);
}

std::wstring TamilFace() { return FirstInstalledFace({L"Nirmala UI", L"Latha", L"Lohit Tamil", L"Noto Sans Tamil"}); }

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

void UiFont::ApplyTo(HWND control) const {
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Handle()), TRUE);
}

}  // namespace quilom::controls
