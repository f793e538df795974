#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quilom::testing {

// The words of the aspell dictionary of `language` ("hi", "bn"...) that Debian's aspell-<language>
// installs, in the dictionary's order; nothing when aspell or the dictionary is missing.
std::vector<std::u16string> AspellWords(std::string_view language);

}  // namespace quilom::testing
