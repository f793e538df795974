#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// Long texts are converted a piece at a time, so that a window can paint its progress and
// answer the user between pieces (the engine and the tables are single-threaded; no worker
// thread may touch them). Pieces end just after a blank, tab or line break, never inside a pair
// of grave accents, so each piece converts exactly as it would inside the whole text: both
// converters treat words independently, keep separators as they stand, and pair grave
// accents from the start of the text they are given.
namespace quilom::tools {

// Blank, tab, CR and LF: what separates the converters' words.
bool IsWordSeparator(char16_t ch);

// The number of runs of non-separators.
std::size_t CountWords(std::u16string_view text);

// The end (exclusive) of the piece that starts at `from`: the first separator at or after
// `from + targetLength - 1` that lies outside a grave pair, plus one; the text's end when there
// is none. With `keepGravePairs`, a grave accent opens a pair only when another one follows it
// somewhere; an unpaired last grave is an ordinary character. A `from` at or past the end
// gives the text's length.
std::size_t NextChunkEnd(std::u16string_view text, std::size_t from, std::size_t targetLength, bool keepGravePairs);

class ChunkedConversion {
 public:
  // Converts one piece; `wordsBefore` counts the words of the text before the piece.
  using ConvertChunk = std::function<std::u16string(std::u16string_view chunk, std::size_t wordsBefore)>;

  ChunkedConversion(std::u16string input, std::size_t chunkLength, bool keepGravePairs);

  // Converts the next piece and appends its result. Returns whether the whole text is done.
  // Does nothing once done.
  bool Step(const ConvertChunk& convert);

  bool Done() const { return position_ >= input_.size(); }
  const std::u16string& Input() const { return input_; }
  const std::u16string& Output() const { return output_; }
  std::size_t Position() const { return position_; }
  std::size_t TotalWords() const { return totalWords_; }
  std::size_t WordsDone() const { return wordsBefore_; }
  // 0..100 by characters done; 100 for an empty text.
  int PercentDone() const;

 private:
  std::u16string input_;
  std::u16string output_;
  std::size_t chunkLength_;
  bool keepGravePairs_;
  std::size_t position_ = 0;
  std::size_t wordsBefore_ = 0;
  std::size_t totalWords_;
};

}  // namespace quilom::tools
