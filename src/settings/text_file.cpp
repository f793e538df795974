#include "settings/text_file.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "settings/error_report.hpp"
#include "settings/file_replacement.hpp"
#include "settings/short_path.hpp"
#include "settings/text_codec.hpp"
#include "settings/text_file_checked.hpp"
#include "text/utf.hpp"

namespace quilom::settings {
namespace {

namespace fs = std::filesystem;

constexpr char16_t kReadTag[] = u"RFF";
constexpr char16_t kWriteTag[] = u"WT-File";

ErrorDetails Details(long number, std::u16string_view source, std::string_view description) {
  return ErrorDetails{number, std::u16string(source), text::Utf8ToUtf16(description)};
}

void ReportReadError(const fs::path& path, const ErrorDetails& details) noexcept {
  try {
    ReportError(std::u16string(kReadTag) + u"\r\n(" + path.u16string() + u")", details);
  } catch (...) {
    ReportError(kReadTag, details);
  }
}

}  // namespace

bool ReadFileBytes(const fs::path& path, std::string& bytes, ErrorDetails& details) {
  const fs::path openPath = ShortPathOf(path);
  std::error_code ec;
  if (openPath.empty() || !fs::exists(openPath, ec)) {
    details = Details(53, u"ReadTextFile", "File not found");
    return false;
  }
  if (fs::is_directory(openPath, ec)) {
    details = Details(75, u"ReadTextFile", "The path names a folder, not a file");
    return false;
  }
  std::ifstream in(openPath, std::ios::binary);
  if (!in) {
    const int error = errno;
    details = Details(error, u"ReadTextFile", error ? std::strerror(error) : "The file cannot be opened");
    return false;
  }
  // The size is only a hint: a file that grows or shrinks meanwhile is still read to its end.
  const auto size = fs::file_size(openPath, ec);
  if (!ec) bytes.reserve(static_cast<size_t>(size));
  char buffer[65536];
  while (in.read(buffer, sizeof buffer) || in.gcount() > 0) bytes.append(buffer, static_cast<size_t>(in.gcount()));
  if (in.bad()) {
    details = Details(EIO, u"ReadTextFile", "The file could not be read to its end");
    return false;
  }
  return true;
}

namespace {

bool ReadWhole(const fs::path& path, std::u16string& text, TextEncoding& encoding, bool detectUtf8,
               bool normaliseNewlines) {
  std::string bytes;
  ErrorDetails details;
  if (!ReadFileBytes(path, bytes, details)) {
    ReportReadError(path, details);
    return false;
  }
  if (bytes.empty()) return true;
  DecodedText decoded = DecodeTextBytes(bytes, detectUtf8);
  encoding = decoded.encoding;
  if (!decoded.ok) {
    ReportReadError(path, Details(5, u"ReadTextFile", "A big-endian UTF-16 file holds an odd number of bytes"));
    return false;
  }
  text = normaliseNewlines ? NormaliseNewlines(decoded.text) : std::move(decoded.text);
  return true;
}

}  // namespace

bool ReadTextFileChecked(const fs::path& path, std::u16string& text, TextEncoding& encoding, bool detectUtf8,
                         bool normaliseNewlines) {
  text.clear();
  try {
    return ReadWhole(path, text, encoding, detectUtf8, normaliseNewlines);
  } catch (const std::exception& e) {
    ReportReadError(path, Details(7, u"ReadTextFile", e.what()));
  } catch (...) {
    ReportReadError(path, Details(7, u"ReadTextFile", "Unexpected failure"));
  }
  text.clear();
  return false;
}

std::u16string ReadTextFile(const fs::path& path, std::u16string& resultMode, TextEncoding& encoding, bool detectUtf8,
                            bool normaliseNewlines) {
  std::u16string text;
  ReadTextFileChecked(path, text, encoding, detectUtf8, normaliseNewlines);
  if (!resultMode.empty()) return text;
  resultMode = std::move(text);
  return {};
}

std::u16string ReadTextFile(const fs::path& path) {
  std::u16string resultMode = u" ";
  TextEncoding encoding = TextEncoding::Utf8NoBom;
  return ReadTextFile(path, resultMode, encoding, false, false);
}

bool WriteTextFile(const fs::path& path, std::u16string_view text, int encodingCode) {
  try {
    errno = 0;
    const std::error_code ec = ReplaceFileContents(path, EncodeText(text, encodingCode));
    if (!ec) return true;
    ReportError(kWriteTag, ErrorDetails{ec.value(), u"WriteTextFile",
                                        text::Utf8ToUtf16(ec.message()) + u" (" + path.u16string() + u")"});
  } catch (const std::exception& e) {
    ReportError(kWriteTag, Details(7, u"WriteTextFile", e.what()));
  } catch (...) {
    ReportError(kWriteTag, Details(7, u"WriteTextFile", "Unexpected failure"));
  }
  return false;
}

}  // namespace quilom::settings
