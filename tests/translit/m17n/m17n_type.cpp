// Types each line of standard input into a fresh context of an m17n input method and prints
// the text it produced, one line per line. Usage: m17n_type LANG NAME < keys > text
// Only ASCII keys are expected; each byte is one key.
#include <iostream>
#include <string>

#include "m17n_input_method.hpp"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: m17n_type LANG NAME < keys\n";
    return 2;
  }
  const auto* method = quilom::testing::M17nInputMethod::Open(argv[1], argv[2]);
  if (!method) {
    std::cerr << "m17n_type: no input method " << argv[1] << "-" << argv[2] << "\n";
    return 1;
  }
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::cout << method->TypeUtf8(line) << "\n";
  }
  return 0;
}
