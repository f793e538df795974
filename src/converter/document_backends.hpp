#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "converter/document_editor.hpp"

// Word-processor documents (.odt, .docx, .doc, .rtf) are converted through a backend that can
// open them: on Linux the LibreOffice layer (src/converter/libreoffice/), later others. A
// backend registers itself here for the file extensions it handles; `quilom convert` asks the
// registry by the input file's extension and never knows the backends by name.
namespace quilom::converter {

// A font a document's text is set in, with some of that text to tell its encoding by.
struct FontUse {
  std::u16string name;
  std::u16string sample;  // the first characters set in it
};

// One document opened by a backend. The destructor closes the document without saving and
// releases whatever the backend holds for it; it never throws.
class DocumentSession {
 public:
  virtual ~DocumentSession() = default;
  // The fonts of the document's text, in the order first met; empty when the backend cannot
  // tell.
  virtual std::vector<FontUse> Fonts() { return {}; }
  // The editor over the open document, valid for the session's life. A conversion run over it
  // edits the loaded copy only; the input file on disk is never written.
  virtual DocumentEditor& Editor() = 0;
  // Writes the document, as edited so far, to `output` in the format its extension names
  // (".odt", ".docx", ...). `output` must differ from the file the session was opened from.
  // On failure returns false with a message for the user in `error` (UTF-8).
  virtual bool SaveAs(const std::filesystem::path& output, std::string& error) = 0;
};

class DocumentBackend {
 public:
  virtual ~DocumentBackend() = default;
  // The program the backend drives, as the user knows it ("LibreOffice").
  virtual std::string Name() const = 0;
  // Lower-case extensions with their dot: ".odt", ".docx".
  virtual std::vector<std::string> Extensions() const = 0;
  // False when the backend cannot work on this machine right now (its program is missing);
  // `why` then tells the user what to install or start (UTF-8, one sentence).
  virtual bool IsAvailable(std::string& why) = 0;
  // Loads `input`. On failure returns null with a message for the user in `error` (UTF-8).
  virtual std::unique_ptr<DocumentSession> Open(const std::filesystem::path& input, std::string& error) = 0;
  // Keeps the program the backend drives running for as long as the handle is held, so that
  // a batch of documents starts it once rather than once per document. Null when there is
  // nothing to keep (or it could not start: the first Open says why).
  virtual std::shared_ptr<void> KeepRunning() { return nullptr; }
};

// Adds a backend. A later registration for an extension wins over an earlier one. Safe to
// call during static initialisation.
void RegisterDocumentBackend(std::shared_ptr<DocumentBackend> backend);

// Registers at static initialisation: `static RegisterDocumentBackendAs reg{std::make_shared<X>()};`
// at namespace scope. Note that a static library drops an object file nothing refers to, so
// such a registration must sit in a source file that is linked for certain (an object
// library, or a file whose other symbols are used).
struct RegisterDocumentBackendAs {
  explicit RegisterDocumentBackendAs(std::shared_ptr<DocumentBackend> backend);
};

// Lower-case extension of a path with its dot (".docx"), or "" when it has none.
std::string DocumentExtension(const std::filesystem::path& file);

// The extensions handled as word-processor documents, whether or not a backend is registered:
// ".doc", ".docx", ".odt", ".rtf".
bool IsDocumentExtension(std::string_view extension);

// The backend registered for `extension` (as DocumentExtension gives it), or null.
std::shared_ptr<DocumentBackend> FindDocumentBackend(std::string_view extension);

// Why a document with this extension cannot be converted, for the user: "converting .docx
// needs LibreOffice: ..." followed by the backend's own reason, or by the note that this build
// has no document backend. Empty when a registered backend reports itself available.
std::string DocumentBackendProblem(std::string_view extension);

}  // namespace quilom::converter
