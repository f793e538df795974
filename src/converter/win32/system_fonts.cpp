#include "converter/win32/system_fonts.hpp"

#include <windows.h>

#include <set>

namespace quilom::converter::win32 {
namespace {

struct Collector {
  std::vector<std::u16string>* names;
  std::set<std::u16string> seen;
};

int CALLBACK AddFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM context) {
  auto* collector = reinterpret_cast<Collector*>(context);
  std::u16string name(reinterpret_cast<const char16_t*>(font->lfFaceName));
  // One face is listed once per character set it covers; the converter wants faces.
  if (collector->seen.insert(name).second) collector->names->push_back(std::move(name));
  return 1;
}

}  // namespace

SystemFonts::SystemFonts() {
  LOGFONTW query{};
  query.lfCharSet = DEFAULT_CHARSET;
  Collector collector{&names_, {}};
  HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &query, AddFace, reinterpret_cast<LPARAM>(&collector), 0);
  ReleaseDC(nullptr, screen);
}

std::u16string SystemFonts::Name(int index) const {
  return index >= 0 && index < Count() ? names_[static_cast<std::size_t>(index)] : std::u16string();
}

std::u16string SystemFonts::ResolvedName(std::u16string_view requested) const {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  requested.substr(0, LF_FACESIZE - 1).copy(reinterpret_cast<char16_t*>(wanted.lfFaceName), LF_FACESIZE - 1);
  HFONT font = CreateFontIndirectW(&wanted);
  if (font == nullptr) return {};
  HDC screen = GetDC(nullptr);
  HGDIOBJ previous = SelectObject(screen, font);
  wchar_t face[LF_FACESIZE] = {};
  GetTextFaceW(screen, LF_FACESIZE, face);
  SelectObject(screen, previous);
  ReleaseDC(nullptr, screen);
  DeleteObject(font);
  return std::u16string(reinterpret_cast<const char16_t*>(face));
}

}  // namespace quilom::converter::win32
