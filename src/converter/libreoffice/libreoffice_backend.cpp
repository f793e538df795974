#include "converter/libreoffice/libreoffice_backend.hpp"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <cstdlib>
#include <system_error>

#include "converter/libreoffice/font_census.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "text/utf.hpp"

namespace quilom::converter::libreoffice {

namespace {

std::string AttachPipe() {
  const char* pipe = std::getenv("QUILOM_LIBREOFFICE_PIPE");
  return pipe == nullptr ? std::string() : std::string(pipe);
}

bool SameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code ec;
  if (std::filesystem::equivalent(a, b, ec)) return true;
  return std::filesystem::weakly_canonical(a, ec) == std::filesystem::weakly_canonical(b, ec);
}

class LibreOfficeSession final : public DocumentSession {
 public:
  LibreOfficeSession(std::shared_ptr<OfficeConnection> office, Reference<css::frame::XModel> document,
                     std::filesystem::path input)
      : office_(std::move(office)),
        document_(std::move(document)),
        input_(std::move(input)),
        editor_(std::make_unique<WriterEditor>(document_, true)) {}

  ~LibreOfficeSession() override {
    editor_.reset();
    CloseDocument(document_);
    document_.clear();
  }

  DocumentEditor& Editor() override { return *editor_; }

  std::vector<FontUse> Fonts() override {
    try {
      return FontsOfText(document_);
    } catch (const css::uno::Exception&) {
      return {};
    }
  }

  bool SaveAs(const std::filesystem::path& output, std::string& error) override {
    if (SameFile(input_, output)) {
      error = "will not write over the input " + input_.string() + ": name a different output file";
      return false;
    }
    if (!editor_->FinishRun()) {
      error = "LibreOffice could not finish the conversion: " + text::Utf16ToUtf8(editor_->LastError().description);
      return false;
    }
    return StoreDocumentAs(document_, output, error);
  }

 private:
  std::shared_ptr<OfficeConnection> office_;
  Reference<css::frame::XModel> document_;
  std::filesystem::path input_;
  std::unique_ptr<WriterEditor> editor_;
};

}  // namespace

bool LibreOfficeBackend::IsAvailable(std::string& why) {
  if (!AttachPipe().empty()) return true;
  const std::filesystem::path soffice = FindSoffice();
  if (soffice.empty()) {
    why = "LibreOffice is not installed (on Debian: apt-get install libreoffice-writer-nogui)";
    return false;
  }
  std::error_code ec;
  const std::filesystem::path programFolder = std::filesystem::canonical(soffice, ec).parent_path();
  if (!ec && !std::filesystem::exists(programFolder / "libswlo.so", ec)) {
    why = "LibreOffice Writer is not installed (on Debian: apt-get install libreoffice-writer-nogui)";
    return false;
  }
  return true;
}

std::shared_ptr<OfficeConnection> LibreOfficeBackend::Connection(std::string& error) {
  std::lock_guard lock(mutex_);
  if (std::shared_ptr<OfficeConnection> running = connection_.lock()) return running;
  const std::string pipe = AttachPipe();
  std::shared_ptr<OfficeConnection> office = pipe.empty()
                                                 ? OfficeConnection::StartPrivate(OfficeStartTimeout(), error)
                                                 : OfficeConnection::Attach(pipe, std::chrono::seconds(10), error);
  connection_ = office;
  return office;
}

std::unique_ptr<DocumentSession> LibreOfficeBackend::Open(const std::filesystem::path& input, std::string& error) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(input, ec)) {
    error = "cannot read " + input.string() + ": no such file";
    return nullptr;
  }
  std::shared_ptr<OfficeConnection> office = Connection(error);
  if (!office) return nullptr;
  Reference<css::frame::XModel> document = LoadDocument(office->Desktop(), input, error);
  if (!document.is()) return nullptr;
  return std::make_unique<LibreOfficeSession>(std::move(office), std::move(document), input);
}

std::unique_ptr<WriterEditor> EditCurrentDocument(const OfficeConnection& office, std::string& error) {
  try {
    const Reference<css::lang::XServiceInfo> current(office.Desktop()->getCurrentComponent(), UNO_QUERY);
    if (!current.is() || !current->supportsService(ToOUString(u"com.sun.star.text.TextDocument"))) {
      error = "no LibreOffice Writer document is open in front";
      return nullptr;
    }
    return std::make_unique<WriterEditor>(Reference<css::frame::XModel>(current, UNO_QUERY), false);
  } catch (const css::uno::Exception& e) {
    error = "cannot reach the open document: " + ToUtf8(e.Message);
    return nullptr;
  }
}

}  // namespace quilom::converter::libreoffice
