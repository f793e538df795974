#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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

// Converted words by their source text: open addressing over one array, looked up by view, so
// that a word already seen costs a hash and a compare.
class WordMemo {
 public:
  // The remembered result, or nothing.
  std::optional<std::u16string_view> Find(std::u16string_view word) const;
  void Insert(std::u16string_view word, std::u16string_view converted);
  std::size_t Size() const { return count_; }
  void Clear();

 private:
  static std::uint64_t Hash(std::u16string_view word);
  void Grow();

  // A slot keeps the hash beside the place of the word, so a probe that misses never leaves
  // the slot array; words and results lie one after the other in one arena.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t offset = 0;  // into arena_: word length, result length, word, result
    bool used = false;
  };
  std::vector<Slot> slots_;
  std::u16string arena_;
  std::size_t count_ = 0;
};

class PairReplacer {
 public:
  explicit PairReplacer(std::vector<TablePair> pairs);

  // `progress` (optional) receives 0..100 as the text is worked through.
  std::u16string Apply(std::u16string_view text, const std::function<void(int percent)>& progress = {});

  std::size_t PairCount() const { return pairs_.size(); }

 private:
  // A set of pair indexes as bits, and a 64-bit summary of which code units a text holds.
  using PairBits = std::vector<std::uint64_t>;
  struct UnitInfo {
    std::size_t bitsIndex = 0;  // into unitPairBits_; 0 = no pair begins with the unit
    std::uint64_t signature = 0;
  };

  std::u16string ConvertWord(std::u16string_view word) const;
  void AppendWord(std::u16string_view word, std::u16string& result);
  void AddUnits(std::u16string_view text, PairBits& candidates, std::uint64_t& signature) const;
  bool IsSeparator(char16_t ch) const { return ch < 0x80 && isSeparator_[ch]; }
  static std::uint64_t SignatureBit(char16_t unit) { return std::uint64_t{1} << (unit % 64); }

  std::vector<TablePair> pairs_;
  std::vector<std::uint64_t> pairSignatures_;  // every code unit of the pair's find text
  std::vector<std::uint16_t> unitSlot_;        // by code unit: index into unitPairBits_, 0 = none
  std::vector<PairBits> unitPairBits_;         // the pairs whose find text begins with the unit
  bool isSeparator_[0x80] = {};
  WordMemo remembered_;
  // Remembering pays only when words come back; a text of words seen once stops it.
  bool remembering_ = true;
  std::size_t lookups_ = 0;
  std::size_t hits_ = 0;
  mutable PairBits candidates_, added_;
};

// The plain meaning of one pair: every non-overlapping occurrence, left to right. An empty
// find text replaces nothing.
std::u16string ReplaceEveryOccurrence(std::u16string_view text, std::u16string_view find,
                                      std::u16string_view replacement);

}  // namespace quilom::converter
