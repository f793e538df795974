#include "tools/win32/tool_controls.hpp"

#include <richedit.h>

#include <cstring>
#include <vector>

namespace quilom::tools::win32 {

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

std::wstring Wide(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

std::u16string BoxText(HWND box) {
  GETTEXTLENGTHEX lengthQuery{GTL_USECRLF | GTL_NUMCHARS | GTL_PRECISE, 1200};
  const auto length = SendMessageW(box, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&lengthQuery), 0);
  if (length <= 0) return {};
  std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1);
  GETTEXTEX query{};
  query.cb = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
  query.flags = GT_USECRLF;
  query.codepage = 1200;
  const auto copied = SendMessageW(box, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&query),
                                   reinterpret_cast<LPARAM>(buffer.data()));
  return std::u16string(reinterpret_cast<const char16_t*>(buffer.data()), static_cast<size_t>(copied));
}

void SetBoxText(HWND box, std::u16string_view text) {
  const std::wstring wide = Wide(text);
  SetWindowTextW(box, wide.c_str());
}

void SelectInBox(HWND box, size_t start, size_t length) {
  CHARRANGE range{static_cast<LONG>(start), static_cast<LONG>(start + length)};
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  SendMessageW(box, EM_SCROLLCARET, 0, 0);
}

size_t SelectionStart(HWND box) {
  CHARRANGE range{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return static_cast<size_t>(range.cpMin);
}

size_t SelectionEnd(HWND box) {
  CHARRANGE range{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return static_cast<size_t>(range.cpMax);
}

void ShowInformation(HWND owner, std::u16string_view text) {
  const std::wstring wide = Wide(text);
  MessageBoxW(owner, wide.c_str(), L"Quilom++", MB_OK | MB_ICONINFORMATION);
}

bool CopyToClipboard(HWND owner, std::u16string_view text) {
  if (!OpenClipboard(owner)) return false;
  bool copied = false;
  if (EmptyClipboard()) {
    const size_t bytes = (text.size() + 1) * sizeof(char16_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory != nullptr) {
      auto* target = static_cast<char16_t*>(GlobalLock(memory));
      std::memcpy(target, text.data(), text.size() * sizeof(char16_t));
      target[text.size()] = 0;
      GlobalUnlock(memory);
      copied = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
      // The clipboard owns the memory only when it took it.
      if (!copied) GlobalFree(memory);
    }
  }
  CloseClipboard();
  return copied;
}

std::wstring TamilCapableFace() {
  // The free Tamil font first: where it is installed it is there on purpose, and it shapes
  // every conjunct; then the Windows fonts for Indic scripts.
  constexpr std::wstring_view faces[] = {L"Lohit Tamil", L"Nirmala UI", L"Latha", L"Noto Sans Tamil"};
  for (const auto face : faces) {
    if (FaceInstalled(face)) return std::wstring(face);
  }
  return std::wstring(faces[1]);
}

std::wstring ProgramFolder() {
  std::vector<wchar_t> path(MAX_PATH);
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) return {};
    if (length < path.size()) {
      std::wstring full(path.data(), length);
      const auto slash = full.find_last_of(L"\\/");
      return slash == std::wstring::npos ? std::wstring() : full.substr(0, slash);
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace quilom::tools::win32
