// Arbitrary table files through the table parser. Besides crashes and undefined behaviour it
// checks what the conversion run relies on: one pair per CR LF line, fields without blanks, no
// fullwidth symbol left (each became its placeholder), and markers that point at the pairs
// their rules name.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "converter/conversion_table.hpp"

namespace {

using namespace quilom::converter;

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

// Table files are UTF-16LE; any byte pair is a code unit.
std::u16string Units(const uint8_t* data, size_t size) {
  std::u16string text;
  for (size_t i = 0; i + 1 < size; i += 2) text.push_back(static_cast<char16_t>(data[i] | (data[i + 1] << 8)));
  return text;
}

bool IsFullwidthSymbol(char16_t ch) {
  return (ch >= 0xFF01 && ch <= 0xFF20) || (ch >= 0xFF3B && ch <= 0xFF40) || (ch >= 0xFF5B && ch <= 0xFF5E);
}

std::size_t CountOf(std::u16string_view text, std::u16string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::u16string_view::npos; at = text.find(piece, at + piece.size())) {
    ++count;
  }
  return count;
}

void CheckPairs(std::u16string_view text, const ConversionTable& table) {
  Check(table.pairs.size() == CountOf(text, u"\r\n") + 1);
  for (const TablePair& pair : table.pairs) {
    for (const std::u16string* field : {&pair.find, &pair.replacement}) {
      Check(field->find(u' ') == std::u16string::npos);
      Check(field->find(u"\r\n") == std::u16string::npos);
      Check(std::none_of(field->begin(), field->end(), IsFullwidthSymbol));
    }
  }
}

bool OpensQuoteBlock(const TablePair& pair) {
  const char16_t first = pair.replacement.empty() ? 0 : pair.replacement.front();
  return first == 0x0227 || first == 0x022C || (first >= 0x0250 && first <= 0x0253);
}

void CheckMarkers(const ConversionTable& table) {
  const auto& pairs = table.pairs;
  const auto placeholder = [&](std::size_t i) { return !pairs[i].find.empty() && IsPlaceholderCode(pairs[i].find[0]); };
  const auto firstWhere = [&](auto rule) -> std::optional<std::size_t> {
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      if (rule(i)) return i;
    }
    return std::nullopt;
  };
  Check(table.placeholderFirst == firstWhere(placeholder));
  if (table.placeholderLast)
    Check(*table.placeholderLast > *table.placeholderFirst && placeholder(*table.placeholderLast));
  Check(table.vowelSignFirst == firstWhere([&](std::size_t i) {
          return !pairs[i].replacement.empty() && pairs[i].replacement[0] >= 0x0BBE &&
                 pairs[i].replacement[0] <= 0x0BCD;
        }));
  Check(table.quoteBlockFirst == firstWhere([&](std::size_t i) { return OpensQuoteBlock(pairs[i]); }));
  Check(table.quoteBlockFirst.has_value() == table.quoteBlockLast.has_value());
  if (table.quoteBlockLast)
    Check(*table.quoteBlockLast >= *table.quoteBlockFirst && OpensQuoteBlock(pairs[*table.quoteBlockLast]));
  std::size_t quotes = 0;
  for (std::size_t i = 0; i < pairs.size(); ++i) quotes += pairs[i].find == u"'" || pairs[i].find == u"\"";
  Check(table.quotePairs.size() == quotes);
  for (const std::size_t i : table.quotePairs) Check(pairs[i].find == u"'" || pairs[i].find == u"\"");
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    Check(table.InPlaceholderBlock(i) == (table.placeholderFirst && i >= *table.placeholderFirst &&
                                          i <= table.placeholderLast.value_or(*table.placeholderFirst)));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::u16string text = Units(data, size);
  const std::u16string placeheld = ToPlaceholders(text);
  Check(placeheld.size() == text.size() && ToPlaceholders(placeheld) == placeheld);
  const ConversionTable table = ParseConversionTable(text);
  CheckPairs(placeheld, table);
  CheckMarkers(table);
  const std::u16string escaped = EscapeCaretsForWord(text);
  Check(escaped.size() == text.size() + CountOf(text, u"^"));
  return 0;
}
