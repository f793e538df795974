#include "converter/pair_replacer.hpp"

#include <algorithm>
#include <bit>

#include "text/strings.hpp"

namespace quilom::converter {
namespace {

// A text of a few distinct words is remembered whole; a text of random noise would fill memory
// with words that never come back, so remembering stops at this many.
constexpr std::size_t kMaxRememberedWords = 1u << 20;
// Words looked at before deciding whether remembering pays: half of them must have come back.
constexpr std::size_t kRememberTrial = 50000;

}  // namespace

std::uint64_t WordMemo::Hash(std::u16string_view word) {
  std::uint64_t hash = 1469598103934665603ull;
  for (const char16_t unit : word) {
    hash = (hash ^ unit) * 1099511628211ull;
  }
  // FNV's low bits depend only on the inputs' low bits: mix before they pick a slot.
  hash ^= hash >> 33;
  hash *= 0xff51afd7ed558ccdull;
  hash ^= hash >> 33;
  hash *= 0xc4ceb9fe1a85ec53ull;
  return hash ^ (hash >> 33);
}

std::optional<std::u16string_view> WordMemo::Find(std::u16string_view word) const {
  if (slots_.empty()) {
    return std::nullopt;
  }
  const std::uint64_t hash = Hash(word);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    const Slot& slot = slots_[at];
    if (!slot.used) {
      return std::nullopt;
    }
    if (slot.hash != static_cast<std::uint32_t>(hash >> 32)) {
      continue;
    }
    const char16_t* stored = arena_.data() + slot.offset;
    const std::size_t wordLength = stored[0];
    if (wordLength == word.size() && std::u16string_view(stored + 2, wordLength) == word) {
      return std::u16string_view(stored + 2 + wordLength, stored[1]);
    }
  }
}

void WordMemo::Insert(std::u16string_view word, std::u16string_view converted) {
  // Lengths are kept in one code unit each; longer words are simply not remembered.
  if (word.size() > 0xFFFF || converted.size() > 0xFFFF || arena_.size() > 0xF0000000u) {
    return;
  }
  if ((count_ + 1) * 2 > slots_.size()) {
    Grow();
  }
  const std::uint64_t hash = Hash(word);
  const auto offset = static_cast<std::uint32_t>(arena_.size());
  arena_.push_back(static_cast<char16_t>(word.size()));
  arena_.push_back(static_cast<char16_t>(converted.size()));
  arena_.append(word);
  arena_.append(converted);
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].used) at = (at + 1) & mask;
  slots_[at] = {static_cast<std::uint32_t>(hash >> 32), offset, true};
  ++count_;
}

void WordMemo::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(std::max<std::size_t>(old.size() * 2, 1024), Slot{});
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (!slot.used) continue;
    const char16_t* stored = arena_.data() + slot.offset;
    std::size_t at = Hash(std::u16string_view(stored + 2, stored[0])) & mask;
    while (slots_[at].used) at = (at + 1) & mask;
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

PairReplacer::PairReplacer(std::vector<TablePair> pairs)
    : pairs_(std::move(pairs)), unitSlot_(0x10000, 0), unitPairBits_(1) {
  const std::size_t words = (pairs_.size() + 63) / 64;
  candidates_.assign(words, 0);
  added_.assign(words, 0);
  for (const char16_t sep : std::u16string_view(u" \t\r\n")) isSeparator_[sep] = true;
  pairSignatures_.resize(pairs_.size());
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    const std::u16string& find = pairs_[i].find;
    if (find.empty()) {
      continue;
    }
    for (const char16_t unit : find) pairSignatures_[i] |= SignatureBit(unit);
    std::uint16_t& slot = unitSlot_[find.front()];
    if (slot == 0) {
      slot = static_cast<std::uint16_t>(unitPairBits_.size());
      unitPairBits_.emplace_back(words, 0);
    }
    unitPairBits_[slot][i / 64] |= std::uint64_t{1} << (i % 64);
    for (const char16_t unit : find) {
      if (unit < 0x80) isSeparator_[unit] = false;
    }
  }
}

void PairReplacer::AddUnits(std::u16string_view text, PairBits& candidates, std::uint64_t& signature) const {
  for (const char16_t unit : text) {
    signature |= SignatureBit(unit);
    const std::uint16_t slot = unitSlot_[unit];
    if (slot != 0) {
      const PairBits& bits = unitPairBits_[slot];
      for (std::size_t w = 0; w < bits.size(); ++w) candidates[w] |= bits[w];
    }
  }
}

std::u16string PairReplacer::ConvertWord(std::u16string_view word) const {
  PairBits& candidates = candidates_;
  std::fill(candidates.begin(), candidates.end(), 0);
  std::uint64_t signature = 0;
  AddUnits(word, candidates, signature);
  std::u16string current(word);
  // Pairs in table order among the candidates; a replacement may add candidates further on.
  for (std::size_t w = 0; w < candidates.size(); ++w) {
    while (candidates[w] != 0) {
      const int bit = std::countr_zero(candidates[w]);
      candidates[w] &= candidates[w] - 1;
      const std::size_t i = w * 64 + static_cast<std::size_t>(bit);
      if ((pairSignatures_[i] & ~signature) != 0) {
        continue;  // some unit of the find text is not in the word
      }
      const TablePair& pair = pairs_[i];
      if (current.find(pair.find) == std::u16string::npos) {
        continue;
      }
      current = ReplaceEveryOccurrence(current, pair.find, pair.replacement);
      PairBits& added = added_;
      std::fill(added.begin(), added.end(), 0);
      AddUnits(pair.replacement, added, signature);
      // Only pairs after this one can still run.
      added[w] &= bit == 63 ? 0 : ~std::uint64_t{0} << (bit + 1);
      for (std::size_t v = 0; v < w; ++v) added[v] = 0;
      for (std::size_t v = w; v < candidates.size(); ++v) candidates[v] |= added[v];
    }
  }
  return current;
}

void PairReplacer::AppendWord(std::u16string_view word, std::u16string& result) {
  if (!remembering_) {
    result += ConvertWord(word);
    return;
  }
  ++lookups_;
  if (const std::optional<std::u16string_view> known = remembered_.Find(word)) {
    ++hits_;
    result += *known;
    return;
  }
  const std::u16string converted = ConvertWord(word);
  result += converted;
  remembered_.Insert(word, converted);
  if ((lookups_ == kRememberTrial && hits_ * 2 < lookups_) || remembered_.Size() >= kMaxRememberedWords) {
    remembering_ = false;
    remembered_.Clear();
  }
}

std::u16string PairReplacer::Apply(std::u16string_view text, const std::function<void(int)>& progress) {
  std::u16string result;
  result.reserve(text.size() + text.size() / 4);
  const std::size_t step = std::max<std::size_t>(text.size() / 100, 1 << 16);
  std::size_t nextReport = step;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = start;
    while (end < text.size() && !IsSeparator(text[end])) {
      ++end;
    }
    if (end > start) {
      AppendWord(text.substr(start, end - start), result);
    }
    while (end < text.size() && IsSeparator(text[end])) {
      result.push_back(text[end++]);
    }
    start = end;
    if (progress && start >= nextReport) {
      progress(static_cast<int>(start * 100 / text.size()));
      nextReport = start + step;
    }
  }
  if (progress) {
    progress(100);
  }
  return result;
}

}  // namespace quilom::converter
