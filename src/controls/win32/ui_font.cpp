#include "controls/win32/ui_font.hpp"

#include <algorithm>
#include <iterator>
#include <string>

namespace quilom::controls {

namespace {

constexpr std::wstring_view kTamilFaces[] = {L"Nirmala UI", L"Latha", L"Lohit Tamil", L"Noto Sans Tamil"};

int CALLBACK NoteFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

int CALLBACK NoteFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM faces) {
  const std::wstring_view name = font->lfFaceName;
  reinterpret_cast<std::vector<std::u16string>*>(faces)->emplace_back(name.begin(), name.end());
  return 1;
}

}  // namespace

std::vector<std::u16string> InstalledFaces() {
  LOGFONTW query{};
  query.lfCharSet = DEFAULT_CHARSET;
  std::vector<std::u16string> faces;
  HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &query, NoteFace, reinterpret_cast<LPARAM>(&faces), 0);
  ReleaseDC(nullptr, screen);
  return faces;
}

bool FaceDrawsAll(std::wstring_view face, std::wstring_view letters) {
  if (letters.empty()) return true;
  const UiFont font(face, 12);
  HDC screen = GetDC(nullptr);
  HGDIOBJ previous = SelectObject(screen, font.Handle());
  wchar_t had[LF_FACESIZE] = {};
  GetTextFaceW(screen, LF_FACESIZE, had);
  std::vector<WORD> glyphs(letters.size(), 0xFFFF);
  const std::wstring text(letters);
  // The system substitutes another face for one it cannot have; that face's glyphs are not this one's.
  const bool drawn = std::wstring_view(had) == face &&
                     GetGlyphIndicesW(screen, text.c_str(), static_cast<int>(text.size()), glyphs.data(),
                                      GGI_MARK_NONEXISTING_GLYPHS) == static_cast<DWORD>(text.size()) &&
                     std::find(glyphs.begin(), glyphs.end(), WORD{0xFFFF}) == glyphs.end();
  SelectObject(screen, previous);
  ReleaseDC(nullptr, screen);
  return drawn;
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

std::wstring FirstInstalledFace(std::initializer_list<std::wstring_view> faces) {
  std::wstring_view chosen;
  for (const std::wstring_view face : faces) {
    chosen = face;
    if (FaceInstalled(face)) break;
  }
  return std::wstring(chosen);
}

std::wstring TamilFace() {
  for (const std::wstring_view face : kTamilFaces) {
    if (FaceInstalled(face)) return std::wstring(face);
  }
  return std::wstring(std::end(kTamilFaces)[-1]);
}

bool DrawsTamilAndLatin(std::wstring_view face) {
  const UiFont font(face, 12);
  HDC screen = GetDC(nullptr);
  HGDIOBJ previous = SelectObject(screen, font.Handle());
  constexpr wchar_t kProbe[] = {0x0B95, L'a', L'Z', 0};
  WORD glyphs[3] = {};
  const bool drawn = GetGlyphIndicesW(screen, kProbe, 3, glyphs, GGI_MARK_NONEXISTING_GLYPHS) == 3 &&
                     glyphs[0] != 0xFFFF && glyphs[1] != 0xFFFF && glyphs[2] != 0xFFFF;
  SelectObject(screen, previous);
  ReleaseDC(nullptr, screen);
  return drawn;
}

std::wstring TamilAndLatinFace() {
  for (const std::wstring_view face : kTamilFaces) {
    if (FaceInstalled(face) && DrawsTamilAndLatin(face)) return std::wstring(face);
  }
  for (const std::wstring_view face : kTamilFaces) {
    if (FaceInstalled(face)) return std::wstring(face);
  }
  return std::wstring(kTamilFaces[0]);
}

UiFont::UiFont(std::wstring_view face, int pointSize, bool bold) {
  HDC screen = GetDC(nullptr);
  const int height = -MulDiv(pointSize, GetDeviceCaps(screen, LOGPIXELSY), 72);
  ReleaseDC(nullptr, screen);
  const std::wstring name(face);
  font_ = CreateFontW(height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                      OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, name.c_str());
}

UiFont::UiFont(SystemFont) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) {
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
  }
}

UiFont::~UiFont() {
  if (font_ != nullptr) DeleteObject(font_);
}

void UiFont::ApplyTo(HWND control) const {
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Handle()), TRUE);
}

std::wstring UiFont::Face() const {
  LOGFONTW description{};
  if (GetObjectW(Handle(), sizeof(description), &description) == 0) return {};
  return description.lfFaceName;
}

}  // namespace quilom::controls
