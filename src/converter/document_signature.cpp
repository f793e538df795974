#include "converter/document_signature.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "text/text_input.hpp"

namespace quilom::converter {
namespace {

constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::string_view kRtf = "{\\rtf";

bool OpensMarkup(std::string_view bytes) {
  if (text::FormByMark(bytes) == text::TextForm::Utf8WithMark) bytes.remove_prefix(text::ByteOrderMarkLength(bytes));
  const std::size_t first = bytes.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && bytes[first] == '<';
}

}  // namespace

DocumentForm DocumentFormOf(std::string_view firstBytes) {
  if (firstBytes.empty()) return DocumentForm::Empty;
  if (firstBytes.starts_with(kZip)) return DocumentForm::ZipPackage;
  if (firstBytes.starts_with(kCompoundFile)) return DocumentForm::CompoundFile;
  if (firstBytes.starts_with(kRtf)) return DocumentForm::Rtf;
  if (OpensMarkup(firstBytes)) return DocumentForm::Markup;
  return DocumentForm::NotADocument;
}

std::string DocumentFileProblem(const std::filesystem::path& file) {
  std::error_code ec;
  if (std::filesystem::is_directory(file, ec)) return std::strerror(EISDIR);
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::strerror(errno != 0 ? errno : ENOENT);
  std::string head(512, '\0');
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(in.gcount()));
  switch (DocumentFormOf(head)) {
    case DocumentForm::Empty:
      return "the file is empty";
    case DocumentForm::NotADocument:
      return "it is not a word-processor document (neither a .docx or .odt package, a Word 97 .doc, RTF nor "
             "HTML): it may be damaged, or another kind of file under a document's name";
    default:
      return "";
  }
}

}  // namespace quilom::converter
