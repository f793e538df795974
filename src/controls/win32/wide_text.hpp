#pragma once

#include <string>
#include <string_view>

// wchar_t is a UTF-16 code unit on Windows, so the program's text crosses into Win32 calls
// unchanged; only the type differs.
namespace quilom::controls {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Win32 text is UTF-16");

inline std::wstring ToWide(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

inline std::u16string FromWide(std::wstring_view text) { return std::u16string(text.begin(), text.end()); }

}  // namespace quilom::controls
