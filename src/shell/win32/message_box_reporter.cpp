#include "shell/win32/message_box_reporter.hpp"

#include <windows.h>

#include "controls/win32/wide_text.hpp"

namespace quilom::shell::win32 {

void MessageBoxReporter::Show(std::u16string_view title, std::u16string_view message) noexcept {
  try {
    MessageBoxW(nullptr, controls::ToWide(message).c_str(), controls::ToWide(title).c_str(),
                MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
  } catch (...) {
    // Out of memory for the text: nothing more can be shown.
  }
}

}  // namespace quilom::shell::win32
