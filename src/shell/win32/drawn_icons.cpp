#include "shell/win32/drawn_icons.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "controls/win32/ui_font.hpp"
#include "controls/win32/wide_text.hpp"
#include "shell/script_faces.hpp"

namespace quilom::shell::win32 {

namespace {

struct ScriptLetter {
  std::wstring_view language;
  std::wstring_view letter;
};

constexpr std::array<ScriptLetter, 12> kScriptLetters = {{
    {L"Tamil", L"\x0BA4"},
    {L"Hindi", L"\x0939"},
    {L"Sanskrit", L"\x0938"},
    {L"Marathi", L"\x092E"},
    {L"Konkani", L"\x0915"},
    {L"Telugu", L"\x0C24"},
    {L"Kannada", L"\x0C95"},
    {L"Malayalam", L"\x0D2E"},
    {L"Gujarati", L"\x0A97"},
    {L"Bengali", L"\x09AC"},
    {L"Assamese", L"\x0985"},
    {L"Greek", L"\x03A9"},
}};

// A device-independent bitmap we can draw into with GDI and read back as ARGB.
struct DrawSurface {
  HDC dc = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ previous = nullptr;
  std::uint32_t* pixels = nullptr;

  explicit DrawSurface(int size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = -size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    HDC screen = GetDC(nullptr);
    dc = CreateCompatibleDC(screen);
    void* bits = nullptr;
    bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ReleaseDC(nullptr, screen);
    pixels = static_cast<std::uint32_t*>(bits);
    if (dc != nullptr && bitmap != nullptr) previous = SelectObject(dc, bitmap);
  }
  ~DrawSurface() {
    if (previous != nullptr) SelectObject(dc, previous);
    if (bitmap != nullptr) DeleteObject(bitmap);
    if (dc != nullptr) DeleteDC(dc);
  }
  DrawSurface(const DrawSurface&) = delete;
  DrawSurface& operator=(const DrawSurface&) = delete;
  bool Ready() const { return previous != nullptr && pixels != nullptr; }
};

void DrawLetters(HDC dc, std::wstring_view letters, COLORREF background, int size) {
  RECT square{0, 0, size, size};
  HBRUSH brush = CreateSolidBrush(background);
  FillRect(dc, &square, brush);
  DeleteObject(brush);
  HFONT font = CreateFontW(-size * 3 / 4, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                           CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, LetterFace(letters).c_str());
  HGDIOBJ oldFont = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(255, 255, 255));
  DrawTextW(dc, letters.data(), static_cast<int>(letters.size()), &square,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  DeleteObject(font);
}

}  // namespace

// Looked up once per letter: listing every font and probing glyphs is too slow for each icon.
const std::wstring& LetterFace(std::wstring_view letters) {
  static std::map<std::wstring, std::wstring, std::less<>> chosen;
  const auto known = chosen.find(letters);
  if (known != chosen.end()) return known->second;
  std::wstring face;
  if (!letters.empty()) {
    for (const std::u16string& candidate : FaceCandidates(letters.front(), controls::InstalledFaces())) {
      const std::wstring wide = controls::ToWide(candidate);
      if (controls::FaceDrawsAll(wide, letters)) {
        face = wide;
        break;
      }
    }
  }
  if (face.empty()) face = controls::TamilFace();
  return chosen.emplace(std::wstring(letters), face).first->second;
}

HICON DrawLetterIcon(std::wstring_view letters, COLORREF background, int size) {
  DrawSurface surface(size);
  if (!surface.Ready()) return nullptr;
  DrawLetters(surface.dc, letters, background, size);
  GdiFlush();
  // GDI leaves the alpha byte 0; the whole square is opaque.
  for (int i = 0; i < size * size; ++i) surface.pixels[i] |= 0xFF000000u;
  HBITMAP mask = CreateBitmap(size, size, 1, 1, nullptr);
  SelectObject(surface.dc, surface.previous);
  ICONINFO info{TRUE, 0, 0, mask, surface.bitmap};
  HICON icon = CreateIconIndirect(&info);
  SelectObject(surface.dc, surface.bitmap);
  DeleteObject(mask);
  return icon;
}

std::wstring_view IndicatorLetters(std::wstring_view keymapName) {
  const std::wstring_view language = keymapName.substr(0, keymapName.find(L'-'));
  for (const ScriptLetter& entry : kScriptLetters)
    if (entry.language == language) return entry.letter;
  return language.empty() ? std::wstring_view(L"?") : language.substr(0, 1);
}

}  // namespace quilom::shell::win32
