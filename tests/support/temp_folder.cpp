#include "support/temp_folder.hpp"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace quilom::testing {

TempFolder::TempFolder() {
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    auto candidate = std::filesystem::temp_directory_path() / ("quilom-test-" + std::to_string(random()));
    if (std::filesystem::create_directory(candidate)) {
      path_ = candidate;
      return;
    }
  }
  throw std::runtime_error("cannot create a temporary folder");
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string Utf16LeWithMark(std::u16string_view text) {
  std::string bytes = "\xFF\xFE";
  for (char16_t ch : text) {
    bytes += static_cast<char>(ch & 0xFF);
    bytes += static_cast<char>(ch >> 8);
  }
  return bytes;
}

std::filesystem::path SourceDataRoot() { return QUILOM_SOURCE_DATA_DIR; }

}  // namespace quilom::testing
