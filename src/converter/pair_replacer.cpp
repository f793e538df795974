#include "converter/pair_replacer.hpp"

#include <algorithm>
#include <limits>

#include "text/strings.hpp"

namespace quilom::converter {
namespace {

// A text of a few distinct words is remembered whole; a text of random noise would fill memory
// with words that never come back, so remembering stops at this many.
constexpr std::size_t kMaxRememberedWords = 1u << 20;
constexpr std::size_t kNoPair = std::numeric_limits<std::size_t>::max();

}  // namespace

std::u16string ReplaceEveryOccurrence(std::u16string_view text, std::u16string_view find,
                                      std::u16string_view replacement) {
  return text::ReplaceAll(text, find, replacement);
}

PairReplacer::PairReplacer(std::vector<TablePair> pairs) : pairs_(std::move(pairs)), separators_(u" \t\r\n") {
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    const std::u16string& find = pairs_[i].find;
    if (find.empty()) {
      continue;
    }
    pairsByFirstUnit_[find.front()].push_back(static_cast<std::uint32_t>(i));
    std::erase_if(separators_, [&find](char16_t sep) { return find.find(sep) != std::u16string::npos; });
  }
}

bool PairReplacer::IsSeparator(char16_t ch) const { return separators_.find(ch) != std::u16string::npos; }

std::size_t PairReplacer::NextCandidate(const std::u16string& word, std::size_t from) const {
  std::size_t best = kNoPair;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char16_t unit = word[i];
    if (word.find(unit) != i) {
      continue;  // looked at already
    }
    const auto found = pairsByFirstUnit_.find(unit);
    if (found == pairsByFirstUnit_.end()) {
      continue;
    }
    const std::vector<std::uint32_t>& indexes = found->second;
    const auto next = std::lower_bound(indexes.begin(), indexes.end(), from);
    if (next != indexes.end()) {
      best = std::min<std::size_t>(best, *next);
    }
  }
  return best;
}

std::u16string PairReplacer::ConvertWord(std::u16string_view word) const {
  std::u16string current(word);
  for (std::size_t i = NextCandidate(current, 0); i != kNoPair; i = NextCandidate(current, i + 1)) {
    const TablePair& pair = pairs_[i];
    if (current.find(pair.find) != std::u16string::npos) {
      current = ReplaceEveryOccurrence(current, pair.find, pair.replacement);
    }
  }
  return current;
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
      const std::u16string word(text.substr(start, end - start));
      const auto known = remembered_.find(word);
      if (known != remembered_.end()) {
        result += known->second;
      } else {
        std::u16string converted = ConvertWord(word);
        result += converted;
        if (remembered_.size() < kMaxRememberedWords) {
          remembered_.emplace(word, std::move(converted));
        }
      }
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
