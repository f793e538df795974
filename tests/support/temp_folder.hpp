#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quilom::testing {

// A fresh folder under the system's temporary folder, removed with everything in it at the
// end of the test.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

std::string ReadBytes(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, const std::string& bytes);

// The bytes of a settings file as the program saves it: the mark FF FE, then UTF-16LE.
std::string Utf16LeWithMark(std::u16string_view text);

// The source tree's shipped data root ("data/Sorvin").
std::filesystem::path SourceDataRoot();

}  // namespace quilom::testing
