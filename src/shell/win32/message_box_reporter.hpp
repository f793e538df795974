#pragma once

#include "settings/error_report.hpp"

// Shows the program's problem report as an information message box.
namespace quilom::shell::win32 {

class MessageBoxReporter final : public ErrorReporter {
 public:
  void Show(std::u16string_view title, std::u16string_view message) noexcept override;
};

}  // namespace quilom::shell::win32
