#pragma once

#include <memory>
#include <string>
#include <string_view>

// The one problem report of the program. Every routine that can fail traps its own error and
// reports it here with a short location tag naming the routine ("RFF", "DT - LdS", ...); the
// caller then carries on with an empty or unchanged value. How the report reaches the user is
// injected: a message box in the Windows program, standard error in the command line, a
// recorder in tests.
namespace quilom {

// What went wrong, in the shape of the report's "No.:", "Source:" and "Desc.:" lines.
struct ErrorDetails {
  long number = 0;
  std::u16string source;
  std::u16string description;
};

class ErrorReporter {
 public:
  virtual ~ErrorReporter() = default;
  // `title` is always "Quilom++"; `message` is the whole text built by BuildErrorMessage.
  virtual void Show(std::u16string_view title, std::u16string_view message) noexcept = 0;
};

// The problem message text, line for line as the user sees it. An empty tag gives the tag-less
// module line.
std::u16string BuildErrorMessage(std::u16string_view tag, const ErrorDetails& details);

// Builds the message and hands it to the installed reporter. Never throws.
void ReportError(std::u16string_view tag, const ErrorDetails& details) noexcept;

// Installs the process-wide reporter and returns the previous one (tests restore it).
// With none installed, reports go to standard error.
std::shared_ptr<ErrorReporter> SetErrorReporter(std::shared_ptr<ErrorReporter> reporter);

}  // namespace quilom
