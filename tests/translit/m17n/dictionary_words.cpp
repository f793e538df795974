#include "dictionary_words.hpp"

#include <cstdio>
#include <memory>

#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::testing {

std::vector<std::u16string> AspellWords(std::string_view language) {
  const std::string command = "aspell dump master -d " + std::string(language) + " --encoding=utf-8 2>/dev/null";
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::vector<std::u16string> words;
  if (!pipe) return words;
  std::string all;
  char buffer[65536];
  for (size_t read; (read = fread(buffer, 1, sizeof buffer, pipe.get())) > 0;) all.append(buffer, read);
  for (auto& line : text::Split(text::Utf8ToUtf16(all), u"\n")) {
    if (!line.empty() && line.back() == u'\r') line.pop_back();
    if (!line.empty()) words.push_back(std::move(line));
  }
  return words;
}

}  // namespace quilom::testing
