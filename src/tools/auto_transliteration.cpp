#include "tools/auto_transliteration.hpp"

#include <algorithm>
#include <exception>
#include <vector>

#include "settings/error_report.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::tools {
namespace {

constexpr std::u16string_view kDeadKssa = u"\u0B95\u0BCD\u0BB7\u0BCD";

bool IsSeparator(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\r' || ch == u'\n'; }

bool StartsWithLatinLetter(std::u16string_view word) {
  const char16_t first = word[0] >= u'a' && word[0] <= u'z' ? static_cast<char16_t>(word[0] - 32) : word[0];
  return first >= u'A' && first <= u'Z';
}

struct Piece {
  std::u16string_view text;
  bool convert;  // false: copied as it stands
};

// Splits at blanks, tabs and line breaks, and at grave-accent pairs when asked.
std::vector<Piece> SplitPieces(std::u16string_view input, bool keepBackQuoted) {
  std::vector<Piece> pieces;
  size_t i = 0;
  while (i < input.size()) {
    if (keepBackQuoted && input[i] == u'`') {
      const size_t close = input.find(u'`', i + 1);
      if (close != std::u16string_view::npos) {
        pieces.push_back({input.substr(i, close + 1 - i), false});
        i = close + 1;
        continue;
      }
    }
    size_t j = i;
    if (IsSeparator(input[i])) {
      while (j < input.size() && IsSeparator(input[j])) ++j;
      pieces.push_back({input.substr(i, j - i), false});
    } else {
      // A grave accent ends the word only when another one closes the quoted text after it.
      const auto opensQuote = [&](size_t k) {
        return keepBackQuoted && input[k] == u'`' && input.find(u'`', k + 1) != std::u16string_view::npos;
      };
      while (j < input.size() && !IsSeparator(input[j]) && !opensQuote(j)) ++j;
      pieces.push_back({input.substr(i, j - i), true});
    }
    i = j;
  }
  return pieces;
}

void RestoreTypedDigits(std::u16string_view word, std::u16string& output) {
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    const std::u16string typed{u'x', digit};
    if (word.find(typed) == std::u16string_view::npos) continue;
    output = text::ReplaceAll(output, std::u16string(kDeadKssa) + digit, typed);
  }
}

std::u16string ConvertWord(std::u16string_view word, translit::Engine& engine) {
  if (!StartsWithLatinLetter(word)) return std::u16string(word);
  engine.Reset();
  for (char16_t key : word) engine.ProcessKey(key);
  std::u16string output(engine.CurrentOutput());
  RestoreTypedDigits(word, output);
  return output;
}

// Puts the sink back to mode 0 and empties the engine however the run ends.
class BorrowedEngine {
 public:
  explicit BorrowedEngine(translit::Engine& engine) : engine_(engine) {
    engine_.Sink().SetOutputSuppressed(translit::OutputSink::kDropAll);
  }
  ~BorrowedEngine() {
    engine_.Sink().SetOutputSuppressed(0);
    engine_.Reset();
  }
  BorrowedEngine(const BorrowedEngine&) = delete;
  BorrowedEngine& operator=(const BorrowedEngine&) = delete;

 private:
  translit::Engine& engine_;
};

}  // namespace

std::u16string AutoTransliterate(std::u16string_view input, translit::Engine& engine,
                                 const AutoTransliterationOptions& options, const ProgressCallback& progress) {
  std::u16string result;
  if (input.empty()) return result;
  try {
    BorrowedEngine borrowed(engine);
    const auto pieces = SplitPieces(input, options.keepBackQuoted);
    const auto words = std::count_if(pieces.begin(), pieces.end(), [](const Piece& p) { return p.convert; });
    result.reserve(input.size() * 2);
    long done = 0;
    for (const auto& piece : pieces) {
      if (!piece.convert) {
        result += piece.text;
        continue;
      }
      result += ConvertWord(piece.text, engine);
      ++done;
      if (progress) progress(words > 1 ? static_cast<int>(std::min<long>(100, done * 100 / (words - 1))) : 100);
    }
  } catch (const std::exception& e) {
    ReportError(u"AT - Conv", ErrorDetails{0, u"AutoTransliterate", text::Utf8ToUtf16(e.what())});
  }
  return result;
}

}  // namespace quilom::tools
