#pragma once

#include <filesystem>
#include <string>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"

namespace quilom::settings {

// ReadTextFile for callers that rewrite the file afterwards: the same reading and the same
// "RFF" report, but it also says whether the read failed, so that a file that could not be
// read is never replaced by the little that was read of it. A 0-byte file is a success.
bool ReadTextFileChecked(const std::filesystem::path& path, std::u16string& text, TextEncoding& encoding,
                         bool detectUtf8, bool normaliseNewlines);

// Every byte of the file, silently: false with `details` filled (error number 53 for a file
// that is not there) when it cannot be opened or read to its end.
bool ReadFileBytes(const std::filesystem::path& path, std::string& bytes, ErrorDetails& details);

}  // namespace quilom::settings
