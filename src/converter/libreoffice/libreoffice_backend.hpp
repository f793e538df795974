#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "converter/document_backends.hpp"
#include "converter/libreoffice/office_connection.hpp"
#include "converter/libreoffice/writer_editor.hpp"

// The document backend of `quilom convert` for .odt, .docx, .doc and .rtf.
//
// Which office it uses: when $QUILOM_LIBREOFFICE_PIPE names a pipe, the LibreOffice that the
// user started with "--accept=pipe,name=<that name>;urp;StarOffice.ComponentContext" (never
// stopped by us); otherwise a headless LibreOffice of its own with a private profile, started
// by the first Open and stopped when the last session opened through it ends.
namespace quilom::converter::libreoffice {

class LibreOfficeBackend final : public DocumentBackend {
 public:
  std::string Name() const override { return "LibreOffice"; }
  std::vector<std::string> Extensions() const override { return {".odt", ".docx", ".doc", ".rtf"}; }
  bool IsAvailable(std::string& why) override;
  std::unique_ptr<DocumentSession> Open(const std::filesystem::path& input, std::string& error) override;
  std::shared_ptr<void> KeepRunning() override {
    std::string error;
    return Connection(error);
  }

 private:
  std::shared_ptr<OfficeConnection> Connection(std::string& error);

  std::mutex mutex_;
  std::weak_ptr<OfficeConnection> connection_;
};

// The document the user is working on in an attached office (its current component), with
// the user's selection. Null with `error` set when there is no text document in front.
std::unique_ptr<WriterEditor> EditCurrentDocument(const OfficeConnection& office, std::string& error);

}  // namespace quilom::converter::libreoffice
