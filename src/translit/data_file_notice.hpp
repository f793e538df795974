#pragma once

#include <functional>
#include <string>
#include <string_view>

// The notice shown when a keymap or modifier file cannot be processed. The loaders take the
// notifier as an argument so that the Windows program shows a message box, the command line
// prints it, and tests record it.
namespace quilom::translit {

using DataFileNotifier = std::function<void(std::u16string_view message)>;

// The whole notice, line for line (CR LF between lines). `lineNumber` is 1-based; the line
// naming it and `reason` follows the sentence that names the file.
std::u16string BuildNotInOrderMessage(std::u16string_view fileName, int lineNumber, std::u16string_view reason);

// Hands the notice to the program's problem report (tag "DT - LdData"), which shows it in the
// program's message box or on standard error.
DataFileNotifier DefaultDataFileNotifier();

}  // namespace quilom::translit
