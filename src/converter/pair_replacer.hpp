#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "converter/conversion_table.hpp"

// Ordered replace-alls, fast. The result is always exactly that of replacing every occurrence
// of pair 0's find text (left to right, without overlap, never searching what it inserts), then
// doing the same for pair 1 on the result, and so on.
//
// How it gets there: no find text holds a separator character (blank, tab, CR, LF: any of these
// that some find text holds stops being a separator), so no match ever spans one and no
// replacement ever removes one. The text therefore splits into words that convert on their own,
// and the words of a real text repeat: each distinct word is converted once and remembered.
// Within a word only the pairs whose find text begins with a character the word holds are
// tried, in table order. The cost is linear in the text.
namespace quilom::converter {

class PairReplacer {
 public:
  explicit PairReplacer(std::vector<TablePair> pairs);

  // `progress` (optional) receives 0..100 as the text is worked through.
  std::u16string Apply(std::u16string_view text, const std::function<void(int percent)>& progress = {});

  std::size_t PairCount() const { return pairs_.size(); }

 private:
  std::u16string ConvertWord(std::u16string_view word) const;
  std::size_t NextCandidate(const std::u16string& word, std::size_t from) const;
  bool IsSeparator(char16_t ch) const;

  std::vector<TablePair> pairs_;
  // Pair indexes by the first code unit of their find text, ascending.
  std::unordered_map<char16_t, std::vector<std::uint32_t>> pairsByFirstUnit_;
  std::u16string separators_;
  std::unordered_map<std::u16string, std::u16string> remembered_;
};

// The plain meaning of one pair: every non-overlapping occurrence, left to right. An empty
// find text replaces nothing.
std::u16string ReplaceEveryOccurrence(std::u16string_view text, std::u16string_view find,
                                      std::u16string_view replacement);

}  // namespace quilom::converter
