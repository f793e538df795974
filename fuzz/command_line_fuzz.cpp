// Arbitrary command lines and inputs through the `quilom` command, as a script could give them:
// the words before the first byte 0xFF (separated by NUL bytes) are the arguments, the rest is
// standard input. Runs against the shipped data tree, never writes a file: words that name an
// output or a path outside the working folder are left out. Checks that every run ends with one
// of the documented exit statuses.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"

namespace {

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

bool MayWrite(const std::string& word) {
  return word.starts_with("-o") || word.starts_with("--output") || word.starts_with("--data") ||
         word == "settings-merge" || word.find('/') != std::string::npos || word.find('\\') != std::string::npos;
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words = {"--data", QUILOM_SOURCE_DATA_DIR};
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find('\0', start), text.size());
    const std::string word = text.substr(start, end - start);
    if (!MayWrite(word)) words.push_back(word);
    start = end + 1;
  }
  return words;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t split = std::min(bytes.find('\xFF'), bytes.size());
  std::istringstream in(split < bytes.size() ? bytes.substr(split + 1) : std::string());
  std::ostringstream out, err;
  const int status = quilom::cli::RunQuilom(Words(bytes.substr(0, split)), in, out, err, ".", false);
  Check(status >= 0 && status <= 4);
  Check(status == 0 || status == 3 || status == 4 || !err.str().empty());
  return 0;
}
