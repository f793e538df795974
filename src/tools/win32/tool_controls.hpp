#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// Small calls on the tool windows' controls and on the system, in the program's UTF-16 text.
namespace quilom::tools::win32 {

// A RichEdit box's whole text, line breaks as CR LF.
std::u16string BoxText(HWND box);
void SetBoxText(HWND box, std::u16string_view text);
// The selection, in UTF-16 code units.
void SelectInBox(HWND box, size_t start, size_t length);
size_t SelectionEnd(HWND box);
size_t SelectionStart(HWND box);

// An information message box titled "Quilom++".
void ShowInformation(HWND owner, std::u16string_view text);

// Puts `text` on the clipboard as CF_UNICODETEXT. Returns whether the clipboard took it.
bool CopyToClipboard(HWND owner, std::u16string_view text);

// For a rich-text box whose Tamil font lacks Latin letters: everything in `latinFace`, the runs
// of Tamil letters in `tamilFace`, all at `pointSize`. Keeps the text, the selection and the
// scroll position; the box's undo history starts afresh.
void ApplyScriptFonts(HWND box, std::wstring_view latinFace, std::wstring_view tamilFace, int pointSize);
// The same with a new text: the box lays the text out once.
void ShowTextInScriptFonts(HWND box, std::u16string_view text, std::wstring_view latinFace, std::wstring_view tamilFace,
                           int pointSize);

// The executable's folder.
std::wstring ProgramFolder();

}  // namespace quilom::tools::win32
