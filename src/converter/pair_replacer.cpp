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
    if (wordLength == word.size() &&
        std::memcmp(stored + 2, word.data(), wordLength * sizeof(char16_t)) == 0) {
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
    : pairs_(std::move(pairs)), unitSlot_(0x10000, 0), unitPairBits_(1) {
  const std::size_t words = (pairs_.size() + 63) / 64;
  candidates_.assign(words, 0);
  added_.assign(words, 0);
  separators_.fill(~std::uint64_t{0});
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
    for (const char16_t unit : find) separators_[unit >> 6] &= ~(std::uint64_t{1} << (unit & 63));
  }
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

template <typename Emit>
void PairReplacer::ConvertPiece(std::u16string_view text, const Piece& piece, Emit& emit) {
  const std::u16string_view word = text.substr(piece.wordBegin, piece.wordEnd - piece.wordBegin);
  if (!word.empty()) {
    if (!remembering_) {
      emit(ConvertWord(word));
    } else {
      ++lookups_;
      if (const std::optional<std::u16string_view> known = remembered_.Find(word, piece.hash)) {
        ++hits_;
        emit(*known);
      } else {
        const std::u16string_view converted = ConvertWord(word);
        emit(converted);
        remembered_.Insert(word, piece.hash, converted);
        if ((lookups_ == kRememberTrial && hits_ * 2 < lookups_) || remembered_.Size() >= kMaxRememberedWords) {
          remembering_ = false;
          remembered_.Clear();
        }
      }
    }
  }
  emit(text.substr(piece.wordEnd, piece.separatorsEnd - piece.wordEnd));
}

std::u16string PairReplacer::Apply(std::u16string_view text, const std::function<void(int)>& progress) {
  std::u16string result;
  result.resize(text.size() + text.size() / 2 + 16);
  std::size_t used = 0;
  const auto emit = [&result, &used](std::u16string_view units) {
    if (used + units.size() > result.size()) {
      result.resize(std::max(result.size() * 2, used + units.size()));
    }
    char16_t* out = result.data() + used;
    // Most pieces are a few units: a plain loop beats a call into the library.
    if (units.size() <= 16) {
      for (const char16_t unit : units) *out++ = unit;
    } else {
      std::memcpy(out, units.data(), units.size() * sizeof(char16_t));
    }
    used += units.size();
  };
  const std::size_t step = std::max<std::size_t>(text.size() / 100, 1 << 16);
  std::size_t nextReport = step;
  std::size_t start = 0;
  while (start < text.size()) {
    Piece piece{start, start, start, 0};
    while (piece.wordEnd < text.size() && !IsSeparator(text[piece.wordEnd])) ++piece.wordEnd;
    piece.separatorsEnd = piece.wordEnd;
    while (piece.separatorsEnd < text.size() && IsSeparator(text[piece.separatorsEnd])) ++piece.separatorsEnd;
    if (remembering_) {
      piece.hash = WordMemo::Hash(text.substr(piece.wordBegin, piece.wordEnd - piece.wordBegin));
    }
    ConvertPiece(text, piece, emit);
    start = piece.separatorsEnd;
    if (progress && start >= nextReport) {
      progress(static_cast<int>(start * 100 / text.size()));
      nextReport = start + step;
    }
  }
  result.resize(used);
  if (progress) {
    progress(100);
  }
  return result;
}

}  // namespace quilom::converter
