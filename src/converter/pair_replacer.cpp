#include "converter/pair_replacer.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

#include "text/strings.hpp"

namespace quilom::converter {
namespace {

// A text of a few distinct words is remembered whole; a text of random noise would fill memory
// with words that never come back, so remembering stops at this many.
constexpr std::size_t kMaxRememberedWords = 1u << 20;
// Words looked at before deciding whether remembering pays: half of them must have come back.
constexpr std::size_t kRememberTrial = 50000;

std::uint64_t PairBit(char16_t first, char16_t second) {
  return std::uint64_t{1} << (((first * 0x9E37u) ^ (second * 0x85EBu)) >> 4 & 63);
}

// Every non-overlapping occurrence of `find` in `text`, left to right, written to `out`.
void ReplaceInto(std::u16string_view text, std::u16string_view find, std::u16string_view replacement,
                 std::u16string& out) {
  out.clear();
  std::size_t start = 0;
  for (std::size_t at = text.find(find); at != std::u16string_view::npos; at = text.find(find, start)) {
    out.append(text.data() + start, at - start);
    out.append(replacement);
    start = at + find.size();
  }
  out.append(text.data() + start, text.size() - start);
}

// The converted text, grown as needed; most pieces are a few units, which a plain loop copies
// faster than a call into the library.
class OutputBuffer {
 public:
  explicit OutputBuffer(std::size_t expected) : text_(expected, u'\0') {}
  void Append(std::u16string_view units) {
    if (used_ + units.size() > text_.size()) text_.resize(std::max(text_.size() * 2, used_ + units.size()));
    char16_t* out = text_.data() + used_;
    if (units.size() <= 16) {
      for (const char16_t unit : units) *out++ = unit;
    } else {
      std::memcpy(out, units.data(), units.size() * sizeof(char16_t));
    }
    used_ += units.size();
  }
  // The same, for units that may be read WordMemo::kReadAhead units past their end.
  void AppendReadingAhead(std::u16string_view units) {
    if (units.size() > WordMemo::kReadAhead || used_ + WordMemo::kReadAhead > text_.size()) {
      Append(units);
      return;
    }
    std::memcpy(text_.data() + used_, units.data(), WordMemo::kReadAhead * sizeof(char16_t));
    used_ += units.size();
  }
  std::u16string Take() {
    text_.resize(used_);
    return std::move(text_);
  }

 private:
  std::u16string text_;
  std::size_t used_ = 0;
};

}  // namespace

std::uint64_t WordMemo::Hash(std::u16string_view word) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15ull;
  std::uint64_t hash = word.size() * kMultiplier;
  std::size_t at = 0;
  for (; at + 4 <= word.size(); at += 4) {
    std::uint64_t chunk;
    std::memcpy(&chunk, word.data() + at, sizeof chunk);
    hash = std::rotl((hash ^ chunk) * kMultiplier, 29);
  }
  for (; at < word.size(); ++at) {
    hash = std::rotl((hash ^ word[at]) * kMultiplier, 29);
  }
  hash ^= hash >> 32;
  hash *= 0xff51afd7ed558ccdull;
  return hash ^ (hash >> 29);
}

std::optional<std::u16string_view> WordMemo::Find(std::u16string_view word, std::uint64_t hash) const {
  if (slots_.empty()) {
    return std::nullopt;
  }
  const std::size_t mask = slots_.size() - 1;
  const auto check = static_cast<std::uint32_t>(hash >> 32);
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    const Slot& slot = slots_[at];
    if (slot.offset == 0) {
      return std::nullopt;
    }
    if (slot.hash != check) {
      continue;
    }
    const char16_t* stored = arena_.data() + slot.offset;
    const std::size_t wordLength = stored[0];
    if (wordLength == word.size() && std::memcmp(stored + 2, word.data(), wordLength * sizeof(char16_t)) == 0) {
      return std::u16string_view(stored + 2 + wordLength, stored[1]);
    }
  }
}

void WordMemo::Insert(std::u16string_view word, std::uint64_t hash, std::u16string_view converted) {
  // Lengths are kept in one code unit each; longer words are simply not remembered.
  if (word.size() > 0xFFFF || converted.size() > 0xFFFF || arena_.size() > 0xF0000000u) {
    return;
  }
  if ((count_ + 1) * 2 > slots_.size()) {
    Grow();
  }
  if (arena_.empty()) {
    arena_.push_back(u'\0');
  }
  const auto offset = static_cast<std::uint32_t>(arena_.size());
  arena_.push_back(static_cast<char16_t>(word.size()));
  arena_.push_back(static_cast<char16_t>(converted.size()));
  arena_.append(word);
  arena_.append(converted);
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].offset != 0) at = (at + 1) & mask;
  slots_[at] = {static_cast<std::uint32_t>(hash >> 32), offset};
  ++count_;
}

void WordMemo::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(std::max<std::size_t>(old.size() * 2, 1024), Slot{});
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.offset == 0) continue;
    const char16_t* stored = arena_.data() + slot.offset;
    std::size_t at = Hash(std::u16string_view(stored + 2, stored[0])) & mask;
    while (slots_[at].offset != 0) at = (at + 1) & mask;
    slots_[at] = slot;
  }
}

void WordMemo::Clear() {
  slots_ = {};
  arena_ = {};
  count_ = 0;
  packedEntries_ = {};
  packedShift_ = 64;
  packedResults_ = {};
  packedCount_ = 0;
}

std::uint64_t WordMemo::PackedKey(std::u16string_view word) {
  if (word.empty() || word.size() > kPackedUnits) return 0;
  std::uint64_t key = 0;
  for (std::size_t at = 0; at < word.size(); ++at) {
    if (word[at] == 0) return 0;
    key |= std::uint64_t{word[at]} << (16 * at);
  }
  return key;
}

void WordMemo::InsertPacked(std::uint64_t key, std::u16string_view converted) {
  if (packedResults_.size() + converted.size() > 0xFFFFFFFFu) return;
  if ((packedCount_ + 1) * 2 > packedEntries_.size()) GrowPacked();
  const std::size_t mask = packedEntries_.size() - 1;
  std::size_t at = PackedHome(key);
  while (packedEntries_[at].key != 0) at = (at + 1) & mask;
  packedResults_.resize(packedResults_.size() - std::min(packedResults_.size(), kReadAhead));
  packedEntries_[at] = {key, static_cast<std::uint32_t>(packedResults_.size()),
                        static_cast<std::uint32_t>(converted.size())};
  packedResults_.append(converted);
  packedResults_.append(kReadAhead, u'\0');
  ++packedCount_;
}

void WordMemo::GrowPacked() {
  std::vector<PackedEntry> old = std::move(packedEntries_);
  const std::size_t size = std::max<std::size_t>(old.size() * 2, 1024);
  packedEntries_.assign(size, PackedEntry{});
  packedShift_ = 64 - std::countr_zero(size);
  const std::size_t mask = size - 1;
  for (const PackedEntry& entry : old) {
    if (entry.key == 0) continue;
    std::size_t at = PackedHome(entry.key);
    while (packedEntries_[at].key != 0) at = (at + 1) & mask;
    packedEntries_[at] = entry;
  }
}

std::u16string ReplaceEveryOccurrence(std::u16string_view text, std::u16string_view find,
                                      std::u16string_view replacement) {
  return text::ReplaceAll(text, find, replacement);
}

PairReplacer::Signature PairReplacer::SignatureOf(std::u16string_view text) {
  Signature signature;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    (unit & 64 ? signature.high : signature.low) |= std::uint64_t{1} << (unit & 63);
    if (i > 0) signature.pairs |= PairBit(text[i - 1], unit);
  }
  return signature;
}

PairReplacer::PairReplacer(std::vector<TablePair> pairs)
    : pairs_(std::move(pairs)), unitSlot_(0x10000, 0), unitPairBits_(1), unitClass_(0x10000, 0) {
  const std::size_t words = (pairs_.size() + 63) / 64;
  candidates_.assign(words, 0);
  added_.assign(words, 0);
  pairSignatures_.resize(pairs_.size());
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    const std::u16string& find = pairs_[i].find;
    if (find.empty()) {
      continue;
    }
    pairSignatures_[i] = SignatureOf(find);
    std::uint16_t& slot = unitSlot_[find.front()];
    if (slot == 0) {
      slot = static_cast<std::uint16_t>(unitPairBits_.size());
      unitPairBits_.emplace_back(words, 0);
    }
    unitPairBits_[slot][i / 64] |= std::uint64_t{1} << (i % 64);
    if (find.find(u'\0') != std::u16string::npos) packable_ = false;
    for (const char16_t unit : find) {
      if (unitClass_[unit] == 0) unitClass_[unit] = static_cast<std::uint16_t>(classCount_++);
    }
  }
  // Classes name single units unless FindSafeCuts had to merge them.
  const bool classesAreUnits = FindSafeCuts();
  if (classesAreUnits) singles_.assign(classCount_, SingleResult{});
}

// Walks the table backwards keeping `spanned`: the two classes a cut may hold at pair i for
// the cut to be spanned by pair i or a later one. Pair i adds the two units side by side in
// its find text; a cut whose left unit ends its find text, since a match ending there leaves
// the replacement's last unit in its place (and nothing, when the replacement is empty, which
// brings units from further left); likewise on the right with the find's first unit; and both
// at once. What replaces a unit is judged by the set after the pair, so every mark is worked
// out before any is made.
bool PairReplacer::FindSafeCuts() {
  // A table over the whole code space would not fit; so many units in find texts are not a
  // conversion table, and they convert correctly without cuts inside words.
  constexpr std::size_t kMostClasses = 1024;
  if (classCount_ > kMostClasses) {
    for (std::uint16_t& unitClass : unitClass_) unitClass = unitClass == 0 ? 0 : 1;
    classCount_ = 2;
    // Cuts only where separators begin and end.
    safeCuts_ = {0, 1, 1, 0};
    return false;
  }
  const std::size_t classes = classCount_;
  const std::size_t classWords = (classes + 63) / 64;
  std::vector<std::uint64_t> spanned(classes * classWords, 0);
  const auto isSpanned = [&](std::size_t before, std::size_t after) {
    return (spanned[before * classWords + after / 64] >> (after % 64)) & 1;
  };
  const auto classOf = [&](char16_t unit) { return std::size_t{unitClass_[unit]}; };
  std::vector<std::pair<std::size_t, std::size_t>> marks;
  for (std::size_t i = pairs_.size(); i-- > 0;) {
    const TablePair& pair = pairs_[i];
    if (pair.find.empty()) continue;
    marks.clear();
    const std::size_t first = classOf(pair.find.front()), last = classOf(pair.find.back());
    const bool empties = pair.replacement.empty();
    const std::size_t newFirst = empties ? 0 : classOf(pair.replacement.front());
    const std::size_t newLast = empties ? 0 : classOf(pair.replacement.back());
    for (std::size_t other = 1; other < classes; ++other) {
      if (empties || isSpanned(newLast, other)) marks.emplace_back(last, other);
      if (empties || isSpanned(other, newFirst)) marks.emplace_back(other, first);
    }
    if (empties || isSpanned(newLast, newFirst)) marks.emplace_back(last, first);
    for (std::size_t at = 1; at < pair.find.size(); ++at) {
      marks.emplace_back(classOf(pair.find[at - 1]), classOf(pair.find[at]));
    }
    for (const auto& [before, after] : marks)
      spanned[before * classWords + after / 64] |= std::uint64_t{1} << (after % 64);
  }
  safeCuts_.resize(classes * classes);
  for (std::size_t before = 0; before < classes; ++before) {
    for (std::size_t after = 0; after < classes; ++after)
      safeCuts_[before * classes + after] = !isSpanned(before, after);
  }
  // A run of separators is kept whole.
  safeCuts_[0] = 0;
  return true;
}

void PairReplacer::AddCandidates(std::u16string_view text, PairBits& candidates) const {
  for (const char16_t unit : text) {
    const std::uint16_t slot = unitSlot_[unit];
    if (slot != 0) {
      const PairBits& bits = unitPairBits_[slot];
      for (std::size_t w = 0; w < bits.size(); ++w) candidates[w] |= bits[w];
    }
  }
}

std::u16string_view PairReplacer::ConvertWord(std::u16string_view word) {
  PairBits& candidates = candidates_;
  std::fill(candidates.begin(), candidates.end(), 0);
  AddCandidates(word, candidates);
  Signature signature = SignatureOf(word);
  converted_.assign(word);
  // Pairs in table order among the candidates; a replacement may add candidates further on.
  for (std::size_t w = 0; w < candidates.size(); ++w) {
    while (candidates[w] != 0) {
      const int bit = std::countr_zero(candidates[w]);
      candidates[w] &= candidates[w] - 1;
      const std::size_t i = w * 64 + static_cast<std::size_t>(bit);
      if (!signature.Covers(pairSignatures_[i])) {
        continue;
      }
      const TablePair& pair = pairs_[i];
      if (std::u16string_view(converted_).find(pair.find) == std::u16string_view::npos) {
        continue;
      }
      ReplaceInto(converted_, pair.find, pair.replacement, scratch_);
      converted_.swap(scratch_);
      signature = SignatureOf(converted_);
      PairBits& added = added_;
      std::fill(added.begin() + static_cast<std::ptrdiff_t>(w), added.end(), 0);
      AddCandidates(pair.replacement, added);
      // Only pairs after this one can still run.
      added[w] &= bit == 63 ? 0 : ~std::uint64_t{0} << (bit + 1);
      for (std::size_t v = w; v < candidates.size(); ++v) candidates[v] |= added[v];
    }
  }
  return converted_;
}

std::u16string_view PairReplacer::ConvertSingle(std::uint16_t unitClass, std::u16string_view unit) {
  SingleResult& single = singles_[unitClass];
  if (single.length == SingleResult::kUnknown) {
    const std::u16string_view converted = ConvertWord(unit);
    singleResults_.resize(singleResults_.size() - std::min(singleResults_.size(), WordMemo::kReadAhead));
    single = {static_cast<std::uint32_t>(singleResults_.size()), static_cast<std::uint32_t>(converted.size())};
    singleResults_.append(converted);
    singleResults_.append(WordMemo::kReadAhead, u'\0');
  }
  return std::u16string_view(singleResults_.data() + single.offset, single.length);
}

template <typename Output>
inline void PairReplacer::ConvertPiece(std::u16string_view piece, std::uint64_t key, Output& out) {
  if (!remembering_) {
    out.Append(ConvertWord(piece));
    return;
  }
  ++lookups_;
  const std::uint64_t hash = key != 0 ? 0 : WordMemo::Hash(piece);
  const std::optional<std::u16string_view> known =
      key != 0 ? remembered_.FindPacked(key) : remembered_.Find(piece, hash);
  if (known) {
    ++hits_;
    // Only packed results may be read ahead.
    if (key != 0) {
      out.AppendReadingAhead(*known);
    } else {
      out.Append(*known);
    }
    return;
  }
  const std::u16string_view converted = ConvertWord(piece);
  out.Append(converted);
  if (key != 0) {
    remembered_.InsertPacked(key, converted);
  } else {
    remembered_.Insert(piece, hash, converted);
  }
  if ((lookups_ == kRememberTrial && hits_ * 2 < lookups_) || remembered_.Size() >= kMaxRememberedWords) {
    remembering_ = false;
    remembered_.Clear();
  }
}

// Most pieces were met before: their result is copied here, inline; the rest go the long way.
template <typename Output>
[[gnu::always_inline]] inline void PairReplacer::EmitPiece(std::u16string_view text, std::size_t begin, std::size_t end,
                                                           Output& out) {
  const std::size_t length = end - begin;
  const std::uint16_t unitClass = unitClass_[text[begin]];
  if (unitClass == 0) {
    out.Append(text.substr(begin, length));
    return;
  }
  if (length == 1) {
    if (!singles_.empty() && singles_[unitClass].length != SingleResult::kUnknown) {
      const SingleResult& single = singles_[unitClass];
      out.AppendReadingAhead(std::u16string_view(singleResults_.data() + single.offset, single.length));
      return;
    }
  } else if (length <= WordMemo::kPackedUnits && remembering_ && packable_ &&
             std::endian::native == std::endian::little && begin + WordMemo::kPackedUnits <= text.size()) {
    std::uint64_t key;
    std::memcpy(&key, text.data() + begin, sizeof key);
    key &= ~std::uint64_t{0} >> (64 - 16 * length);
    if (const std::optional<std::u16string_view> known = remembered_.FindPacked(key)) {
      ++lookups_;
      ++hits_;
      out.AppendReadingAhead(*known);
      return;
    }
  }
  EmitNewPiece(text.substr(begin, length), out);
}

template <typename Output>
[[gnu::noinline]] void PairReplacer::EmitNewPiece(std::u16string_view piece, Output& out) {
  if (piece.size() == 1 && !singles_.empty()) {
    out.AppendReadingAhead(ConvertSingle(unitClass_[piece.front()], piece));
    return;
  }
  const std::uint64_t key = packable_ ? WordMemo::PackedKey(piece) : 0;
  ConvertPiece(piece, key, out);
}

std::u16string PairReplacer::Apply(std::u16string_view text, const std::function<void(int)>& progress) {
  OutputBuffer out(text.size() + text.size() / 2 + 16);
  const std::size_t step = std::max<std::size_t>(text.size() / 100, 1 << 16);
  std::size_t nextReport = step;
  const std::uint16_t* classes = unitClass_.data();
  const std::size_t size = text.size();
  std::size_t pieceBegin = 0;
  std::uint16_t before = size == 0 ? 0 : classes[text[0]];
  // The cuts of 64 units at a time as bits, worked out without a branch, then the pieces
  // between them: where pieces end is the one thing about a text that no branch predicts.
  for (std::size_t block = 0; block < size; block += 64) {
    const std::size_t blockEnd = std::min(block + 64, size);
    std::uint64_t cuts = 0;
    for (std::size_t at = std::max<std::size_t>(block, 1); at < blockEnd; ++at) {
      const std::uint16_t after = classes[text[at]];
      cuts |= static_cast<std::uint64_t>(CutsBetween(before, after)) << (at - block);
      before = after;
    }
    while (cuts != 0) {
      const std::size_t cut = block + static_cast<std::size_t>(std::countr_zero(cuts));
      cuts &= cuts - 1;
      EmitPiece(text, pieceBegin, cut, out);
      pieceBegin = cut;
    }
    if (progress && blockEnd >= nextReport) {
      progress(static_cast<int>(blockEnd * 100 / size));
      nextReport = blockEnd + step;
    }
  }
  if (pieceBegin < size) EmitPiece(text, pieceBegin, size, out);
  if (progress) {
    progress(100);
  }
  return out.Take();
}

}  // namespace quilom::converter
