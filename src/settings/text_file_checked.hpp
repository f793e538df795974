#pragma once

#include <filesystem>
#include <string>

#include "settings/text_file.hpp"

namespace quilom::settings {

// ReadTextFile for callers that rewrite the file afterwards: the same reading and the same
// "RFF" report, but it also says whether the read failed, so that a file that could not be
// read is never replaced by the little that was read of it. A 0-byte file is a success.
bool ReadTextFileChecked(const std::filesystem::path& path, std::u16string& text, TextEncoding& encoding,
                         bool detectUtf8, bool normaliseNewlines);

}  // namespace quilom::settings
