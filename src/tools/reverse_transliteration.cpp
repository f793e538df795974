#include "tools/reverse_transliteration.hpp"

#include <vector>

#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "tools/letter_spelling.hpp"
#include "tools/tamil_letters.hpp"

namespace quilom::tools {
namespace {

struct Segment {
  std::u16string_view text;
  bool convert;
};

// Pairs of grave accents enclose kept text; everything else is converted.
std::vector<Segment> SplitAtGraves(std::u16string_view text, bool keepGraves) {
  std::vector<Segment> segments;
  size_t pos = 0;
  while (keepGraves) {
    const size_t open = text.find(u'`', pos);
    if (open == std::u16string_view::npos) break;
    const size_t close = text.find(u'`', open + 1);
    if (close == std::u16string_view::npos) break;
    segments.push_back({text.substr(pos, open - pos), true});
    segments.push_back({text.substr(open, close + 1 - open), false});
    pos = close + 1;
  }
  segments.push_back({text.substr(pos), true});
  return segments;
}

bool IsSeparator(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\r' || ch == u'\n'; }

bool IsLeadingPunctuation(char16_t ch) {
  const bool asciiPunctuation = (ch >= u'!' && ch <= u'/') || (ch >= u':' && ch <= u'@') ||
                                (ch >= u'[' && ch <= u'`') || (ch >= u'{' && ch <= u'~');
  return asciiPunctuation || ch == u'\uFEFF' || ch == u'\u00AB' || ch == u'\u00BB' || (ch >= u'\u2010' && ch <= u'\u203A');
}

bool IsTamilWord(std::u16string_view word) {
  for (char16_t ch : word) {
    if (IsLeadingPunctuation(ch)) continue;
    return ch >= u'\u0B80' && ch < u'\u0C00';
  }
  return false;
}

size_t CountWords(std::u16string_view text) {
  size_t count = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (!IsSeparator(text[i]) && (i == 0 || IsSeparator(text[i - 1]))) ++count;
  }
  return count;
}

class WordConverter {
 public:
  WordConverter(const ReverseOptions& options, const ReverseProgress& progress, size_t wordCount)
      : letterOptions_{options.numerals, options.signs, options.typeableNa}, progress_(progress), wordCount_(wordCount) {}

  void Convert(std::u16string_view text, std::u16string& out) {
    size_t pos = 0;
    while (pos < text.size()) {
      if (IsSeparator(text[pos])) {
        out += text[pos++];
        continue;
      }
      size_t end = pos;
      while (end < text.size() && !IsSeparator(text[end])) ++end;
      ConvertWord(text.substr(pos, end - pos), out);
      pos = end;
    }
  }

 private:
  void ConvertWord(std::u16string_view word, std::u16string& out) {
    if (progress_) progress_(wordIndex_, wordCount_);
    ++wordIndex_;
    if (IsTamilWord(word)) {
      out += SpellTamilLetters(SplitTamilLetters(word, letterOptions_), letterOptions_.typeableNa);
    } else {
      out += word;
    }
  }

  LetterOptions letterOptions_;
  const ReverseProgress& progress_;
  size_t wordCount_;
  size_t wordIndex_ = 0;
};

}  // namespace

std::u16string ReverseTransliterate(std::u16string_view text, const ReverseOptions& options,
                                    const ReverseWordList& words, const ReverseProgress& progress) {
  if (text.empty()) return {};
  std::vector<std::pair<std::u16string, bool>> pieces;
  size_t wordCount = 0;
  for (const Segment& segment : SplitAtGraves(text, options.keepGraves)) {
    std::u16string piece = segment.convert ? words.Apply(segment.text, options.typeableNa) : std::u16string(segment.text);
    if (segment.convert) wordCount += CountWords(piece);
    pieces.emplace_back(std::move(piece), segment.convert);
  }
  std::u16string out;
  out.reserve(text.size() * 2);
  WordConverter converter(options, progress, wordCount);
  for (const auto& [piece, convert] : pieces) {
    if (convert) {
      converter.Convert(piece, out);
    } else {
      out += piece;
    }
  }
  return out;
}

std::u16string ReverseProgressText(size_t index, size_t count) {
  if (count < 2) return u"100 %\r\nprocessed";
  const size_t percent = index * 100 / (count - 1);
  return text::AsciiToUtf16(std::to_string(percent)) + u"% processed";
}

std::u16string ReverseCharacterCountsText(size_t inputLength, size_t outputLength) {
  return u"Input characters  = " + text::AsciiToUtf16(std::to_string(inputLength)) + u"\r\n" +
         u"Output characters = " + text::AsciiToUtf16(std::to_string(outputLength));
}

std::u16string RemoveGraveAccents(std::u16string_view output) { return text::ReplaceAll(output, u"`", u""); }

std::u16string OutputToLowerCase(std::u16string_view output) { return text::AsciiLower(output); }

std::u16string LoadReverseSample(const std::filesystem::path& mainDataFolder) {
  return settings::ReadTextFile(mainDataFolder / "inps" / "sample-for-rt.txt");
}

}  // namespace quilom::tools
