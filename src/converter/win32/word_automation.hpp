#pragma once

#include "converter/window/word_connection.hpp"

// Attaches to the Word that the user has running: the class id of "Word.Application" from
// CLSIDFromProgID, then GetActiveObject, then its IDispatch. Word is never started by the
// program: the user converts the document that is open in front of them.
// COM must be initialised (apartment-threaded) on the calling thread.
namespace quilom::converter::win32 {

class WordAutomationConnector final : public window::WordConnector {
 public:
  // Null when Word is not installed or not running; no report, since "not started" is the
  // user's answer and the window says so.
  window::AutomationRef AttachRunning() override;
};

}  // namespace quilom::converter::win32
