#pragma once

#include <string>
#include <string_view>

#include "converter/window/automation.hpp"

// Finding the running word processor before a conversion.
//
// Binding modes. The program keeps the two modes of the original design in one program-wide
// flag, but builds made with MinGW have no Word type library to compile typed (early-bound)
// calls against, so every call goes through IDispatch by member name whatever the flag says.
// The flag therefore decides only how the check below words its answer:
//   - LateBound (the default, and what the program uses): attach to the running
//     "Word.Application"; a failed attach and an empty "Documents" collection get their own
//     messages.
//   - EarlyBound: one combined message for both, as the typed application object cannot tell
//     them apart.
// A build that gains typed Word bindings would set EarlyBound in ChooseWordBinding; nothing
// else needs to change.
namespace quilom::converter::window {

enum class WordBinding { EarlyBound, LateBound };

WordBinding ChooseWordBinding();

inline constexpr std::u16string_view kEarlyBoundNoWord =
    u"You have not started MS Word yet (OR) You have not opened any MS Word document yet.";
inline constexpr std::u16string_view kAttachFailed =
    u"You have not started MS Word yet. Or, you have not opened any MS Word document yet.";
inline constexpr std::u16string_view kNoDocumentOpen =
    u"You have not opened any MS Word document yet. Or, you have not started MS Word yet.";
inline constexpr std::u16string_view kNoDocumentForQuotes = u"You have not opened any document yet.";

// Reaches the running word processor. The Windows layer attaches to "Word.Application"; the
// end-to-end tests inject a stand-in.
class WordConnector {
 public:
  virtual ~WordConnector() = default;
  // The running application object, or null when none runs (or attaching failed).
  virtual AutomationRef AttachRunning() = 0;
};

struct WordCheck {
  AutomationRef application;   // set when a document is open and the conversion may go on
  std::u16string stopMessage;  // otherwise what to tell the user
};

// The Convert button's first check: a running word processor with at least one document.
WordCheck CheckWordProcessor(WordConnector& connector, WordBinding binding);

// "Documents"."Count" of the application; -1 when it cannot be read.
int OpenDocumentCount(AutomationObject& application);

}  // namespace quilom::converter::window
