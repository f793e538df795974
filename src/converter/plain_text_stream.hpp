#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "converter/conversion_run.hpp"
#include "converter/unmappable_characters.hpp"
#include "text/line_blocks.hpp"

// Plain text converted as it arrives, a run of whole lines at a time. No table pair spans a line
// break, so the result is the one the whole text would give, and a text of any length is
// converted in bounded memory.
//
// Each step is a conversion request as the window makes it (one step, or two through Unicode);
// a step that writes a legacy encoding carries that encoding's repertoire, and characters it
// cannot hold are met by the policy (see unmappable_characters.hpp). Their lines count from the
// start of the whole text; for a step after the first, columns are those of the text that step
// was given.
namespace quilom::converter {

struct PlainTextStep {
  ConversionRequest request;
  std::optional<LegacyRepertoire> target;  // for a step that writes a legacy encoding
};

class PlainTextStream {
 public:
  PlainTextStream(std::vector<PlainTextStep> steps, UnmappablePolicy policy, char16_t replacement = u'?');

  // Appends to `out` the conversion of every line that `piece` completes. False when a step's
  // run failed (it has reported why); the stream is then of no further use.
  bool Feed(std::u16string_view piece, std::u16string& out);
  // Converts the last line, complete or not.
  bool Finish(std::u16string& out);

  const UnmappableFindings& Findings() const { return findings_; }

 private:
  bool ConvertLines(std::u16string lines, std::u16string& out);
  std::optional<std::u16string> RunStep(const PlainTextStep& step, std::u16string text);

  std::vector<PlainTextStep> steps_;
  UnmappablePolicy policy_;
  char16_t replacement_;
  text::LineBlocks blocks_;
  std::size_t linesDone_ = 0;
  UnmappableFindings findings_;
};

}  // namespace quilom::converter
