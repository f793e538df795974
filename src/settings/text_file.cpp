#include "settings/text_file.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>
#include <system_error>

#include "settings/disk_flush.hpp"
#include "settings/error_report.hpp"
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

// Reads every byte; false (with `details` filled) when the file cannot be opened or read.
bool ReadAllBytes(const fs::path& path, std::string& bytes, ErrorDetails& details) {
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

bool ReadWhole(const fs::path& path, std::u16string& text, TextEncoding& encoding, bool detectUtf8,
               bool normaliseNewlines) {
  std::string bytes;
  ErrorDetails details;
  if (!ReadAllBytes(path, bytes, details)) {
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

fs::path TemporaryPathBeside(const fs::path& target) {
  std::random_device random;
  const auto suffix = std::to_string(random()) + std::to_string(random());
  return target.parent_path() / (target.filename().native() + fs::path("." + suffix + ".saving").native());
}

// A file the user marked read-only stays as it is: replacing it through a rename would
// otherwise go around the mark.
bool IsReadOnly(const fs::path& target) {
  std::error_code ec;
  const auto status = fs::status(target, ec);
  if (ec || !fs::exists(status)) return false;
  return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

bool WriteBytesTo(const fs::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  return !out.fail();
}

// Writes beside the target and moves the result over it, so that the target holds either its
// old or its new contents whatever happens in between.
std::error_code ReplaceFileContents(const fs::path& path, const std::string& bytes) {
  std::error_code ec;
  fs::path target = path;
  if (fs::is_symlink(path, ec)) {
    target = fs::canonical(path, ec);
    if (ec) return ec;
  }
  if (IsReadOnly(target)) return std::make_error_code(std::errc::permission_denied);
  const fs::path temporary = TemporaryPathBeside(target);
  if (!WriteBytesTo(temporary, bytes)) {
    const std::error_code failure(errno ? errno : EIO, std::generic_category());
    fs::remove(temporary, ec);
    return failure;
  }
  if (fs::exists(target, ec)) fs::permissions(temporary, fs::status(target, ec).permissions(), ec);
  FlushFileToDisk(temporary);
  fs::rename(temporary, target, ec);
  if (ec) {
    std::error_code ignored;
    fs::remove(temporary, ignored);
  }
  return ec;
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
