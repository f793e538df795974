#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

// The differences between our ITRANS keymaps and m17n's methods that the keymap notes list.
//
// The notes hold one section per language, opened by a line
//   [Hindi] hi-itrans: 2500 words of aspell-hi, 127 differ
// and holding rows of five tab-separated fields:
//   keys    ours    m17n    rule    why
// `keys` is an example that shows the difference, `ours` and `m17n` what the two type for it,
// and `rule` says how a word is told to differ that way:
//   keys X > Y   m17n spells with the keys Y what ours types for the keys X (X a regular
//                expression over the word's keys, Y its replacement, $1 for a group);
//   text X > Y   m17n's text holds X where ours holds Y (literal texts; X "$" is the end);
//   none X       m17n's method has no keys for what ours types for X (a regular expression
//                over the keys): a word with such keys is not compared any further.
// Every other line is prose for the reader.
namespace quilom::testing {

struct ListedDifference {
  std::string keys, ours, m17n;  // the example
  enum class Kind { Keys, Text, None } kind = Kind::Text;
  std::string from, to;
  std::regex keysPattern;  // `from` of a keys rule
  std::string why;
  int line = 0;
};

struct LanguageDifferences {
  std::string method;  // m17n's language-name, "hi-itrans"
  size_t words = 0, differing = 0;
  std::vector<ListedDifference> rows;
};

// Language -> its section. Lines that look like rows but do not parse are reported in `problems`.
std::map<std::string, LanguageDifferences> ReadListedDifferences(const std::filesystem::path& notes,
                                                                 std::vector<std::string>& problems);

// Typing through m17n (UTF-8 keys to UTF-8 text).
using M17nTyping = std::function<std::string(std::string_view keys)>;

// The rows that together turn what m17n types for `keys` into `ours` (at most four, tried
// from the fewest), or nothing when no such choice of the listed rows does.
std::optional<std::vector<size_t>> Explain(const std::vector<ListedDifference>& rows, const std::string& keys,
                                           const std::string& ours, const M17nTyping& m17n);

}  // namespace quilom::testing
