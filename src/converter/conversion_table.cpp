#include "converter/conversion_table.hpp"

#include "text/strings.hpp"

namespace quilom::converter {
namespace {

char16_t PlaceholderOf(char16_t ch) {
  if (ch >= 0xFF01 && ch <= 0xFF20) {
    return static_cast<char16_t>(0x0226 + (ch - 0xFF01));
  }
  if (ch >= 0xFF3B && ch <= 0xFF40) {
    return static_cast<char16_t>(0x0246 + (ch - 0xFF3B));
  }
  if (ch >= 0xFF5B && ch <= 0xFF5E) {
    return static_cast<char16_t>(0x024C + (ch - 0xFF5B));
  }
  return ch;
}

bool IsVowelSign(char16_t ch) { return ch >= 0x0BBE && ch <= 0x0BCD; }

bool OpensQuoteBlock(char16_t ch) { return ch == 0x0227 || ch == 0x022C || (ch >= 0x0250 && ch <= 0x0253); }

TablePair SplitLine(std::u16string_view line) {
  const std::size_t blank = line.find(u' ');
  if (blank == std::u16string_view::npos) {
    return {std::u16string(line), {}};
  }
  std::u16string_view rest = line.substr(blank + 1);
  rest = rest.substr(0, rest.find(u' '));
  return {std::u16string(line.substr(0, blank)), std::u16string(rest)};
}

void NoteMarkers(ConversionTable& table, std::size_t index) {
  const TablePair& pair = table.pairs[index];
  if (!pair.find.empty() && IsPlaceholderCode(pair.find.front())) {
    if (!table.placeholderFirst) {
      table.placeholderFirst = index;
    } else {
      table.placeholderLast = index;
    }
  }
  if (!table.vowelSignFirst && !pair.replacement.empty() && IsVowelSign(pair.replacement.front())) {
    table.vowelSignFirst = index;
  }
  if (pair.find == u"'" || pair.find == u"\"") {
    table.quotePairs.push_back(index);
  }
  if (!pair.replacement.empty() && OpensQuoteBlock(pair.replacement.front())) {
    if (!table.quoteBlockFirst) {
      table.quoteBlockFirst = index;
    }
    table.quoteBlockLast = index;
  }
}

}  // namespace

bool IsPlaceholderCode(char16_t ch) { return ch >= 0x0226 && ch <= 0x0253; }

std::u16string ToPlaceholders(std::u16string_view text) {
  std::u16string result(text);
  for (char16_t& ch : result) {
    ch = PlaceholderOf(ch);
  }
  return result;
}

bool ConversionTable::InPlaceholderBlock(std::size_t index) const {
  if (!placeholderFirst) {
    return false;
  }
  // A block of one pair has no "last" of its own.
  const std::size_t last = placeholderLast.value_or(*placeholderFirst);
  return index >= *placeholderFirst && index <= last;
}

ConversionTable ParseConversionTable(std::u16string_view tableText) {
  ConversionTable table;
  const std::u16string text = ToPlaceholders(tableText);
  for (const std::u16string& line : text::Split(text, text::kCrLf)) {
    table.pairs.push_back(SplitLine(line));
    NoteMarkers(table, table.pairs.size() - 1);
  }
  return table;
}

std::u16string EscapeCaretsForWord(std::u16string_view text) { return text::ReplaceAll(text, u"^", u"^^"); }

}  // namespace quilom::converter
