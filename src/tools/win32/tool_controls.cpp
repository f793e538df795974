#include "tools/win32/tool_controls.hpp"

#include <richedit.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"

namespace quilom::tools::win32 {

namespace {

bool IsTamil(char16_t ch) { return ch >= 0x0B80 && ch <= 0x0BFF; }

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
  const auto copied =
      SendMessageW(box, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&query), reinterpret_cast<LPARAM>(buffer.data()));
  return std::u16string(reinterpret_cast<const char16_t*>(buffer.data()), static_cast<size_t>(copied));
}

void SetBoxText(HWND box, std::u16string_view text) {
  const std::wstring wide = controls::ToWide(text);
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
  const std::wstring wide = controls::ToWide(text);
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

namespace {

void AppendFaceName(std::string& rtf, std::wstring_view face) {
  for (const wchar_t ch : face) {
    if (ch < 128) {
      rtf += static_cast<char>(ch);
    } else {
      rtf += "\\u" + std::to_string(static_cast<int16_t>(ch)) + "?";
    }
  }
}

// The text as RTF with two fonts: f0 for everything, f1 for runs of Tamil letters. One stream
// replaces the text in a single step; formatting run by run is far slower on long texts.
std::string ScriptFontsRtf(std::u16string_view text, std::wstring_view latinFace, std::wstring_view tamilFace,
                           int pointSize) {
  std::string rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil ";
  AppendFaceName(rtf, latinFace);
  rtf += ";}{\\f1\\fnil ";
  AppendFaceName(rtf, tamilFace);
  rtf += ";}}\\f0\\fs" + std::to_string(pointSize * 2) + " ";
  rtf.reserve(rtf.size() + text.size() * 4);
  bool inTamil = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t ch = text[i];
    if (IsTamil(ch) != inTamil) {
      inTamil = !inTamil;
      rtf += inTamil ? "\\f1 " : "\\f0 ";
    }
    if (ch == u'\r') {
      if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
      rtf += "\\par\n";
    } else if (ch == u'\n') {
      rtf += "\\par\n";
    } else if (ch == u'\\' || ch == u'{' || ch == u'}') {
      rtf += '\\';
      rtf += static_cast<char>(ch);
    } else if (ch == u'\t') {
      rtf += "\\tab ";
    } else if (ch < 128) {
      rtf += static_cast<char>(ch);
    } else {
      rtf += "\\u" + std::to_string(static_cast<int16_t>(ch)) + "?";
    }
  }
  rtf += "}";
  return rtf;
}

struct StreamSource {
  const std::string* bytes;
  size_t offset;
};

DWORD CALLBACK ReadStream(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
  auto* source = reinterpret_cast<StreamSource*>(cookie);
  const size_t count = std::min<size_t>(static_cast<size_t>(wanted), source->bytes->size() - source->offset);
  std::memcpy(buffer, source->bytes->data() + source->offset, count);
  source->offset += count;
  *given = static_cast<LONG>(count);
  return 0;
}

}  // namespace

void ApplyScriptFonts(HWND box, std::wstring_view latinFace, std::wstring_view tamilFace, int pointSize) {
  ShowTextInScriptFonts(box, BoxText(box), latinFace, tamilFace, pointSize);
}

void ShowTextInScriptFonts(HWND box, std::u16string_view text, std::wstring_view latinFace, std::wstring_view tamilFace,
                           int pointSize) {
  CHARRANGE kept{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&kept));
  POINT scroll{};
  SendMessageW(box, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  const std::string rtf = ScriptFontsRtf(text, latinFace, tamilFace, pointSize);
  StreamSource source{&rtf, 0};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, ReadStream};
  SendMessageW(box, WM_SETREDRAW, FALSE, 0);
  SendMessageW(box, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&kept));
  SendMessageW(box, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  SendMessageW(box, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(box, nullptr, TRUE);
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
