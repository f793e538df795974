#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// Gathers text that arrives in pieces into blocks of whole lines, for work whose result never
// depends on text across a line break: done a block at a time, it gives what the whole text
// gives, in bounded memory.
namespace quilom::text {

class LineBlocks {
 public:
  // Blocks are handed out once this much text is gathered (a longer line makes a longer block).
  explicit LineBlocks(std::size_t blockSize = std::size_t{1} << 20) : blockSize_(blockSize) {}

  // Work that joins text over line breaks in some places (text between two grave accents, say)
  // says where a block may not end: `mayEnd(block)` sees the text up to and including a line
  // break and answers whether a block may end there.
  void SetEndRule(std::function<bool(std::u16string_view block)> mayEnd) { mayEnd_ = std::move(mayEnd); }

  // Adds a piece; gives the next block when one is ready.
  std::optional<std::u16string> Add(std::u16string_view piece);
  // The text not handed out yet, at the end of the input.
  std::u16string Rest();

 private:
  std::size_t BlockEnd() const;

  std::size_t blockSize_;
  std::function<bool(std::u16string_view)> mayEnd_;
  std::u16string gathered_;
};

}  // namespace quilom::text
