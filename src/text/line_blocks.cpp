#include "text/line_blocks.hpp"

#include <utility>

namespace quilom::text {

std::optional<std::u16string> LineBlocks::Add(std::u16string_view piece) {
  gathered_ += piece;
  if (gathered_.size() < blockSize_) return std::nullopt;
  const std::size_t end = BlockEnd();
  if (end == 0) return std::nullopt;
  std::u16string block = gathered_.substr(0, end);
  gathered_.erase(0, end);
  return block;
}

std::u16string LineBlocks::Rest() { return std::exchange(gathered_, {}); }

// The end of the last line after which a block may end, or 0.
std::size_t LineBlocks::BlockEnd() const {
  for (std::size_t lineBreak = gathered_.rfind(u'\n'); lineBreak != std::u16string::npos;
       lineBreak = lineBreak == 0 ? std::u16string::npos : gathered_.rfind(u'\n', lineBreak - 1)) {
    if (!mayEnd_ || mayEnd_(std::u16string_view(gathered_).substr(0, lineBreak + 1))) return lineBreak + 1;
  }
  return 0;
}

}  // namespace quilom::text
