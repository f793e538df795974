#pragma once

#include <windows.h>

#include "translit/typing_settings.hpp"

namespace quilom::translit::win32 {

// Asks through a Yes/No message box owned by `owner`, under the title it is given.
class MessageBoxPrompter final : public Prompter {
 public:
  explicit MessageBoxPrompter(HWND owner) : owner_(owner) {}
  bool AskYesNo(std::u16string_view title, std::u16string_view question) override;

 private:
  HWND owner_;
};

}  // namespace quilom::translit::win32
