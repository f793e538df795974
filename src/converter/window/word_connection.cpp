#include "converter/window/word_connection.hpp"

namespace quilom::converter::window {

WordBinding ChooseWordBinding() { return WordBinding::LateBound; }

int OpenDocumentCount(AutomationObject& application) {
  ErrorDetails error;
  const AutomationRef documents = GetObject(application, u"Documents", error);
  AutomationValue count;
  std::int32_t value = 0;
  if (documents == nullptr || !documents->Get(u"Count", count) || !ToInteger(count, value)) {
    return -1;
  }
  return value;
}

WordCheck CheckWordProcessor(WordConnector& connector, WordBinding binding) {
  WordCheck check;
  AutomationRef application = connector.AttachRunning();
  if (application == nullptr) {
    check.stopMessage = binding == WordBinding::EarlyBound ? kEarlyBoundNoWord : kAttachFailed;
    return check;
  }
  // A count that cannot be read means Word is there but busy or half-closed: as far as the
  // user can act on it, no document is open.
  if (OpenDocumentCount(*application) <= 0) {
    check.stopMessage = binding == WordBinding::EarlyBound ? kEarlyBoundNoWord : kNoDocumentOpen;
    return check;
  }
  check.application = std::move(application);
  return check;
}

}  // namespace quilom::converter::window
