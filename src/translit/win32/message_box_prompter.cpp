#include "translit/win32/message_box_prompter.hpp"

#include <string>

namespace quilom::translit::win32 {

bool MessageBoxPrompter::AskYesNo(std::u16string_view title, std::u16string_view question) {
  const std::wstring wideTitle(title.begin(), title.end());
  const std::wstring wideQuestion(question.begin(), question.end());
  // No is the default: the question guards an option that is wrong for most users.
  return MessageBoxW(owner_, wideQuestion.c_str(), wideTitle.c_str(), MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) ==
         IDYES;
}

}  // namespace quilom::translit::win32
