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
// How it gets there: a code unit that no find text holds is a separator. No match can span a
// separator, and none removes one, so the text splits into words that convert on their own:
//   a replace-all scanning "A s B" (s in no find text) finds no match covering s; its matches in
//   A are A's own (a leftmost match there never reaches past s), and once past A the scan
//   resumes at or before s and so finds exactly B's matches. The output is then
//   "A' s B'", s still in place, and the argument repeats for every later pair, even where a
//   replacement put new separators inside a word.
// Words split further between two units that no find text, of this pair or any later one,
// holds side by side, as long as no pair can turn them into two that one does. A pair changes
// the unit before the cut only by a match ending there and the unit after it only by a match
// starting there, so the table, walked backwards, tells for every two units whether a cut
// between them can ever be spanned; pairs that could empty a piece make its cuts unsafe. A cut
// that no match spans divides the text as a separator does. In legacy text only a glyph written
// before its consonant binds the two, in Unicode text a sign binds to its consonant, so pieces
// are a syllable or a few.
// The pieces of a real text repeat: each distinct piece is converted once and remembered.
// Within a piece only the pairs whose find text begins with a unit the piece holds are tried,
// in table order, and a pair is searched for only when every unit and every adjacent two units
// of its find text are present. The cost is linear in the text.
namespace quilom::converter {

// Converted words by their source text: open addressing over one array, looked up by view with
// a hash the caller computed (WordMemo::Hash), so that a word already seen costs a hash and a
// compare.
class WordMemo {
 public:
  static std::uint64_t Hash(std::u16string_view word);
  // The remembered result, or nothing. `hash` must be Hash(word).
  std::optional<std::u16string_view> Find(std::u16string_view word, std::uint64_t hash) const;
  void Insert(std::u16string_view word, std::uint64_t hash, std::u16string_view converted);
  // Words of one to four units, none of them U+0000, packed into a key (PackedKey): the pieces
  // of most texts are such words, and their key is their whole text, so a lookup reads one slot.
  static constexpr std::size_t kPackedUnits = 4;
  static std::uint64_t PackedKey(std::u16string_view word);
  // A packed result may be read kReadAhead units past its end, so callers can copy short
  // results in one fixed-size move.
  static constexpr std::size_t kReadAhead = 8;
  std::optional<std::u16string_view> FindPacked(std::uint64_t key) const {
    if (packedEntries_.empty()) return std::nullopt;
    const std::size_t mask = packedEntries_.size() - 1;
    for (std::size_t at = PackedHome(key);; at = (at + 1) & mask) {
      const PackedEntry& entry = packedEntries_[at];
      if (entry.key == key) return std::u16string_view(packedResults_.data() + entry.offset, entry.length);
      if (entry.key == 0) return std::nullopt;
    }
  }
  void InsertPacked(std::uint64_t key, std::u16string_view converted);
  std::size_t Size() const { return count_ + packedCount_; }
  void Clear();

 private:
  void Grow();
  void GrowPacked();
  std::size_t PackedHome(std::uint64_t key) const {
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ull) >> packedShift_);
  }

  // A slot keeps part of the hash and the word's length beside the place of the word, so a
  // probe that misses never leaves the slot array; words and results lie one after the other
  // in one arena. Offset 0 marks a free slot (the arena starts with one unused unit).
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t offset = 0;  // into arena_: word length, result length, word, result
  };
  std::vector<Slot> slots_;
  std::u16string arena_;
  std::size_t count_ = 0;
  // Key 0 marks a free slot; results lie in their own arena.
  struct PackedEntry {
    std::uint64_t key = 0;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };
  std::vector<PackedEntry> packedEntries_;
  int packedShift_ = 64;
  std::u16string packedResults_;
  std::size_t packedCount_ = 0;
};

class PairReplacer {
 public:
  explicit PairReplacer(std::vector<TablePair> pairs);

  // `progress` (optional) receives 0..100 as the text is worked through.
  std::u16string Apply(std::u16string_view text, const std::function<void(int percent)>& progress = {});

  std::size_t PairCount() const { return pairs_.size(); }

 private:
  // A set of pair indexes as bits.
  using PairBits = std::vector<std::uint64_t>;
  // Which code units (by their low seven bits, so that a whole Unicode block or the upper half
  // of a legacy code page never collides) and which adjacent two units (hashed to 64 bits) a
  // text holds. A find text can occur only where its signature is a subset.
  struct Signature {
    std::uint64_t low = 0, high = 0, pairs = 0;
    bool Covers(const Signature& other) const {
      return (other.low & ~low) == 0 && (other.high & ~high) == 0 && (other.pairs & ~pairs) == 0;
    }
  };
  static Signature SignatureOf(std::u16string_view text);

  // Copies a run of separators, converts anything else.
  template <typename Output>
  void EmitPiece(std::u16string_view text, std::size_t begin, std::size_t end, Output& out);
  // A piece of units from find texts that may not have been met before.
  template <typename Output>
  void EmitNewPiece(std::u16string_view piece, Output& out);
  // A piece of one unit, converted the first time and remembered by the unit's class for the
  // replacer's life (there are only as many as classes). The result may be read ahead.
  std::u16string_view ConvertSingle(std::uint16_t unitClass, std::u16string_view unit);
  // `key` is the piece's WordMemo::PackedKey, or 0 to look it up by its hash.
  template <typename Output>
  void ConvertPiece(std::u16string_view piece, std::uint64_t key, Output& out);
  // False when there were too many units in find texts to tell them apart: then every such
  // unit has class 1 and only separators cut.
  bool FindSafeCuts();
  std::uint8_t CutsBetween(std::uint16_t before, std::uint16_t after) const {
    return safeCuts_[before * classCount_ + after];
  }
  // Converts into converted_ and returns a view of it.
  std::u16string_view ConvertWord(std::u16string_view word);
  void AddCandidates(std::u16string_view text, PairBits& candidates) const;

  std::vector<TablePair> pairs_;
  std::vector<Signature> pairSignatures_;
  std::vector<std::uint16_t> unitSlot_;  // by code unit: index into unitPairBits_, 0 = none
  std::vector<PairBits> unitPairBits_;   // the pairs whose find text begins with the unit
  // Units of the find texts get classes 1.., every other unit class 0 (a separator).
  std::vector<std::uint16_t> unitClass_;
  std::size_t classCount_ = 1;
  std::vector<std::uint8_t> safeCuts_;  // [before][after]: 1 when no match ever spans the two
  struct SingleResult {
    static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;
    std::uint32_t offset = 0, length = kUnknown;
  };
  std::vector<SingleResult> singles_;  // by class
  std::u16string singleResults_;
  bool packable_ = true;  // no find text holds U+0000, so keys are unambiguous
  WordMemo remembered_;
  // Remembering pays only when words come back; a text of words seen once stops it.
  bool remembering_ = true;
  std::size_t lookups_ = 0;
  std::size_t hits_ = 0;
  PairBits candidates_, added_;
  std::u16string converted_, scratch_;
};

// The plain meaning of one pair: every non-overlapping occurrence, left to right. An empty
// find text replaces nothing.
std::u16string ReplaceEveryOccurrence(std::u16string_view text, std::u16string_view find,
                                      std::u16string_view replacement);

}  // namespace quilom::converter
