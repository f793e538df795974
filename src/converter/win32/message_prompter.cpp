#include "converter/win32/message_prompter.hpp"

#include <string>

namespace quilom::converter::win32 {

int MessagePrompter::Show(std::u16string_view message, UINT style) {
  if (witness_) witness_(message);
  const std::wstring text(message.begin(), message.end());
  return MessageBoxW(owner_, text.c_str(), L"Quilom++", style);
}

PromptAnswer MessagePrompter::AskYesNoCancel(std::u16string_view message) {
  switch (Show(message, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      return PromptAnswer::Yes;
    case IDNO:
      return PromptAnswer::No;
    case IDCANCEL:
      return PromptAnswer::Cancel;
    default:
      return PromptAnswer::Other;
  }
}

PromptAnswer MessagePrompter::AskYesNo(std::u16string_view message, bool defaultNo) {
  const UINT style = MB_YESNO | MB_ICONQUESTION | (defaultNo ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
  switch (Show(message, style)) {
    case IDYES:
      return PromptAnswer::Yes;
    case IDNO:
      return PromptAnswer::No;
    default:
      return PromptAnswer::Other;
  }
}

void MessagePrompter::Inform(std::u16string_view message) { Show(message, MB_OK | MB_ICONINFORMATION); }

}  // namespace quilom::converter::win32
