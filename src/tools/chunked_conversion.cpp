#include "tools/chunked_conversion.hpp"

#include <algorithm>

namespace quilom::tools {

namespace {
constexpr char16_t kGrave = u'`';
}

bool IsWordSeparator(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\r' || ch == u'\n'; }

std::size_t CountWords(std::u16string_view text) {
  std::size_t count = 0;
  bool inWord = false;
  for (const char16_t ch : text) {
    const bool separator = IsWordSeparator(ch);
    if (!separator && !inWord) ++count;
    inWord = !separator;
  }
  return count;
}

std::size_t NextChunkEnd(std::u16string_view text, std::size_t from, std::size_t targetLength,
                         bool keepGravePairs) {
  if (from >= text.size()) return text.size();
  const std::size_t earliestCut = from + std::max<std::size_t>(targetLength, 1) - 1;
  bool insidePair = false;
  for (std::size_t i = from; i < text.size(); ++i) {
    const char16_t ch = text[i];
    if (keepGravePairs && ch == kGrave) {
      // An opening grave with no partner later is ordinary text.
      if (insidePair || text.find(kGrave, i + 1) != std::u16string_view::npos) insidePair = !insidePair;
      continue;
    }
    if (i >= earliestCut && !insidePair && IsWordSeparator(ch)) return i + 1;
  }
  return text.size();
}

ChunkedConversion::ChunkedConversion(std::u16string input, std::size_t chunkLength, bool keepGravePairs)
    : input_(std::move(input)),
      chunkLength_(chunkLength),
      keepGravePairs_(keepGravePairs),
      totalWords_(CountWords(input_)) {}

bool ChunkedConversion::Step(const ConvertChunk& convert) {
  if (Done()) return true;
  const std::size_t end = NextChunkEnd(input_, position_, chunkLength_, keepGravePairs_);
  const std::u16string_view chunk = std::u16string_view(input_).substr(position_, end - position_);
  output_ += convert(chunk, wordsBefore_);
  wordsBefore_ += CountWords(chunk);
  position_ = end;
  return Done();
}

int ChunkedConversion::PercentDone() const {
  if (input_.empty()) return 100;
  return static_cast<int>(position_ * 100 / input_.size());
}

}  // namespace quilom::tools
