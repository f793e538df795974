#include "controls/win32/rich_edit_box.hpp"

#include <richedit.h>

#include <string>

#include "controls/win32/wide_text.hpp"

namespace quilom::controls {
namespace {

// The newest RichEdit first; the older library is there on every system that lacks it.
const wchar_t* LoadRichEditClass() {
  static const wchar_t* className = [] {
    if (LoadLibraryW(L"Msftedit.dll") != nullptr) return L"RICHEDIT50W";
    if (LoadLibraryW(L"Riched20.dll") != nullptr) return L"RichEdit20W";
    return L"EDIT";
  }();
  return className;
}

}  // namespace

HWND RichEditBox::Create(HWND parent, int id, const RECT& bounds) {
  return CreateWindowExW(WS_EX_CLIENTEDGE, LoadRichEditClass(), L"",
                         WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL, bounds.left,
                         bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

std::u16string RichEditBox::Text() const {
  // GETTEXTEX with GT_DEFAULT would turn the paragraph marks into CR LF and shift positions.
  GETTEXTLENGTHEX lengthQuery{GTL_NUMCHARS | GTL_PRECISE, 1200};
  const auto length = SendMessageW(control_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&lengthQuery), 0);
  if (length <= 0) return {};
  std::wstring buffer(static_cast<std::size_t>(length) + 1, L'\0');
  GETTEXTEX query{};
  query.cb = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
  query.flags = GT_RAWTEXT;
  query.codepage = 1200;
  const auto copied =
      SendMessageW(control_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&query), reinterpret_cast<LPARAM>(buffer.data()));
  buffer.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
  return FromWide(buffer);
}

void RichEditBox::SetText(std::u16string_view text) { SetWindowTextW(control_, ToWide(text).c_str()); }

int RichEditBox::SelStart() const {
  CHARRANGE range{};
  SendMessageW(control_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMin;
}

void RichEditBox::SetSelStart(int position) {
  CHARRANGE range{position, position};
  SendMessageW(control_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void RichEditBox::SetSelLength(int length) {
  const int start = SelStart();
  CHARRANGE range{start, start + length};
  SendMessageW(control_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void RichEditBox::SetSelText(std::u16string_view text) {
  const std::wstring wide = ToWide(text);
  SendMessageW(control_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
}

}  // namespace quilom::controls
