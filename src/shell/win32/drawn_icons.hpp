#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Icons drawn at run time: a coloured square with a letter or two. The program icon and the
// language indicator need no image files, and the indicator can name any language's script.
namespace quilom::shell::win32 {

// An icon of `size` pixels showing `letters` in white on `background`. The caller destroys it
// with DestroyIcon; null when the system refused.
HICON DrawLetterIcon(std::wstring_view letters, COLORREF background, int size);

// The installed face the icon draws `letters` with: the first of the faces worth trying that has
// glyphs of its own for all of them.
const std::wstring& LetterFace(std::wstring_view letters);

// The letter the language indicator shows for an LFK name: the first letter of the language in
// its own script for the languages whose script is known, else the language's first Latin letter.
std::wstring_view IndicatorLetters(std::wstring_view keymapName);

}  // namespace quilom::shell::win32
