#pragma once

#include <windows.h>

#include <functional>

#include "converter/document_editor.hpp"

// The converter's questions and notices as message boxes titled "Quilom++", owned by the
// converter window so that they stay in front of it.
namespace quilom::converter::win32 {

class MessagePrompter final : public Prompter {
 public:
  explicit MessagePrompter(HWND owner) : owner_(owner) {}
  PromptAnswer AskYesNoCancel(std::u16string_view message) override;
  PromptAnswer AskYesNo(std::u16string_view message, bool defaultNo) override;
  void Inform(std::u16string_view message) override;

  // Sees each message before it is shown (the test host writes them to its log).
  void SetWitness(std::function<void(std::u16string_view)> witness) { witness_ = std::move(witness); }

 private:
  int Show(std::u16string_view message, UINT style);
  HWND owner_;
  std::function<void(std::u16string_view)> witness_;
};

}  // namespace quilom::converter::win32
