// The fast replacer against its meaning: one plain replace-all per pair, in table order, on
// fuzzed pairs and text, byte for byte. The units come from a small alphabet so that matches,
// prefixes, overlaps and chains between pairs are common; it holds blanks and line ends (which
// split words), units that share the replacer's seven-bit signature, U+0000 (which its packed
// keys must not confuse with nothing) and U+FFFF. A second mode takes raw 16-bit units.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "converter/pair_replacer.hpp"

namespace {

using namespace quilom::converter;

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

constexpr char16_t kAlphabet[] = {u'a', u'b', u'c', u'd', 0x00E1, 0x0B61, u' ', u'\r', u'\n', 0x0000, 0xFFFF, u'x'};

std::u16string Units(FuzzedDataProvider& input, std::size_t most, bool raw) {
  std::u16string units;
  const std::size_t length = input.ConsumeIntegralInRange<std::size_t>(0, most);
  for (std::size_t i = 0; i < length && input.remaining_bytes() > 0; ++i) {
    units.push_back(raw ? input.ConsumeIntegral<char16_t>()
                        : kAlphabet[input.ConsumeIntegral<uint8_t>() % std::size(kAlphabet)]);
  }
  return units;
}

std::u16string Plain(std::u16string text, const std::vector<TablePair>& pairs) {
  for (const TablePair& pair : pairs) text = ReplaceEveryOccurrence(text, pair.find, pair.replacement);
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  const bool raw = input.ConsumeBool();
  // Raw units in up to 600 pairs can hold more distinct units than the replacer's table of
  // cuts takes, which sends it down its other path.
  std::vector<TablePair> pairs(input.ConsumeIntegralInRange<std::size_t>(0, raw ? 600 : 150));
  for (TablePair& pair : pairs) {
    pair.find = Units(input, raw ? 6 : 4, raw);
    pair.replacement = Units(input, 4, raw);
  }
  PairReplacer replacer(pairs);
  const std::u16string text = Units(input, 400, raw);
  const std::u16string expected = Plain(text, pairs);
  int last = -1;
  Check(replacer.Apply(text, [&](int percent) {
    Check(percent >= last && percent <= 100);
    last = percent;
  }) == expected);
  // The second time, words come from memory.
  Check(replacer.Apply(text) == expected);
  Check(replacer.Apply(text + text) == Plain(text + text, pairs));
  return 0;
}
