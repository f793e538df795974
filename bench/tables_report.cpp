// How the shipped legacy tables fare: TSCII against glibc's converter over every word of the
// Tamil spelling dictionary (`aspell -l ta dump master`), both ways and glibc's own round trip;
// then, per encoding, what a Unicode -> encoding -> Unicode walk holds and what comes back of a
// paragraph of ordinary prose. Prints figures only.
//   tables_report [SOURCE_DIR]

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "shipped_tables_reference.hpp"

namespace {

using namespace quilom::converter;
using quilom::text::Utf16ToUtf8;
using quilom::text::Utf8ToUtf16;

std::filesystem::path gSource = QUILOM_SOURCE_DIR;

std::filesystem::path ConverterFolder() { return gSource / "data/Sorvin/Tamil Fonts Converter"; }

std::vector<std::u16string> DictionaryWords() {
  std::vector<std::u16string> words;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen("aspell -l ta dump master 2>/dev/null", "r"), pclose);
  if (!pipe) return words;
  std::string line;
  for (int c; (c = std::fgetc(pipe.get())) != EOF;) {
    if (c != '\n') {
      line.push_back(static_cast<char>(c));
    } else if (!line.empty()) {
      words.push_back(Utf8ToUtf16(std::exchange(line, {})));
    }
  }
  return words;
}

struct Agreement {
  int words = 0, glibcCannotWrite = 0, weRead = 0, glibcReads = 0, glibcRoundTrip = 0;
  std::vector<std::u16string> weMisread, glibcMisreads;
};

void Note(std::vector<std::u16string>& examples, const std::u16string& word) {
  if (examples.size() < 6) examples.push_back(word);
}

Agreement CompareWithGlibc(const std::vector<std::u16string>& words, const reference::Tables& tscii) {
  const reference::GlibcTscii glibc;
  Agreement result;
  for (const std::u16string& word : words) {
    ++result.words;
    const std::u16string composed = reference::Composed(word);
    std::size_t unencodable = 0;
    const std::string ours = TextToLegacyBytes(tscii.toLegacy->Apply(word), unencodable);
    const std::optional<std::u16string> glibcReading = glibc.Decode(ours);
    if (unencodable == 0 && glibcReading && reference::Composed(*glibcReading) == composed) {
      ++result.glibcReads;
    } else {
      Note(result.glibcMisreads, word);
    }
    const std::optional<std::string> glibcBytes = glibc.Encode(word);
    if (!glibcBytes) {
      ++result.glibcCannotWrite;
      continue;
    }
    if (reference::Composed(tscii.toUnicode->Apply(LegacyBytesToText(*glibcBytes))) == composed) {
      ++result.weRead;
    } else {
      Note(result.weMisread, word);
    }
    const std::optional<std::u16string> back = glibc.Decode(*glibcBytes);
    if (back && reference::Composed(*back) == composed) ++result.glibcRoundTrip;
  }
  return result;
}

double Percent(int part, int whole) { return whole ? 100.0 * part / whole : 0.0; }

std::string Joined(const std::vector<std::u16string>& words) {
  std::string out;
  for (const std::u16string& word : words) out += (out.empty() ? "" : " ") + Utf16ToUtf8(word);
  return out;
}

void PrintGlibc(const Agreement& a) {
  std::printf("TSCII against glibc's iconv, %d words of aspell's Tamil dictionary (compared composed):\n", a.words);
  std::printf("  glibc writes, we read the word back:        %6d  %6.2f%%  (glibc cannot write %d)\n", a.weRead,
              Percent(a.weRead, a.words - a.glibcCannotWrite), a.glibcCannotWrite);
  std::printf("  we write, glibc reads the word back:        %6d  %6.2f%%\n", a.glibcReads,
              Percent(a.glibcReads, a.words));
  std::printf("  glibc writes, glibc reads the word back:    %6d  %6.2f%%\n", a.glibcRoundTrip,
              Percent(a.glibcRoundTrip, a.words - a.glibcCannotWrite));
  std::printf("  we misread glibc's, e.g.: %s\n", Joined(a.weMisread).c_str());
  std::printf("  glibc misreads ours, e.g.: %s\n\n", Joined(a.glibcMisreads).c_str());
}

int CountHeld(const reference::Tables& tables, const std::vector<std::u16string>& units) {
  int held = 0;
  for (const std::u16string& unit : units) held += tables.RoundTrips(unit) ? 1 : 0;
  return held;
}

// Prose pieces that come back, and those lost that the notes do not excuse.
std::pair<int, int> ProseResult(const reference::Tables& tables, const std::set<std::u16string>& gaps) {
  const std::vector<std::u16string> expected = reference::Tokens(reference::kProse);
  const std::vector<std::u16string> back =
      reference::Tokens(tables.toUnicode->Apply(tables.toLegacy->Apply(reference::kProse)));
  if (back.size() != expected.size()) return {0, static_cast<int>(expected.size())};
  int same = 0, unexcused = 0;
  for (std::size_t i = 0; i < back.size(); ++i) {
    if (back[i] == expected[i]) {
      ++same;
    } else if (!reference::HoldsGap(expected[i], gaps)) {
      ++unexcused;
    }
  }
  return {same, unexcused};
}

void PrintEncodings() {
  const EncodingList list = LoadEncodingList(ConverterFolder());
  const auto gaps = reference::NotedGaps(ConverterFolder());
  const int pieces = static_cast<int>(reference::Tokens(reference::kProse).size());
  std::printf("%-14s %9s %8s %6s %6s %6s   prose pieces back (of %d), lost outside the noted gaps\n", "Encoding",
              "syllables", "numerals", "signs", "ASCII", "marks", pieces);
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& name = list.names[static_cast<std::size_t>(position)];
    const reference::Tables tables = reference::LoadTables(ConverterFolder(), position);
    const auto [same, unexcused] = ProseResult(tables, gaps.count(name) ? gaps.at(name) : std::set<std::u16string>{});
    const auto share = [&](const std::vector<std::u16string>& units) {
      return std::to_string(CountHeld(tables, units)) + "/" + std::to_string(units.size());
    };
    std::printf("%-14s %9s %8s %6s %6s %6s   %d, %d\n", Utf16ToUtf8(name).c_str(),
                share(reference::Syllables()).c_str(), share(reference::Numerals()).c_str(),
                share(reference::LoneSigns()).c_str(), share(reference::Ascii()).c_str(),
                share(reference::Typographic()).c_str(), same, unexcused);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) gSource = argv[1];
  const EncodingList list = LoadEncodingList(ConverterFolder());
  const std::optional<int> tscii = list.Position(u"Tscii");
  if (!tscii) {
    std::fprintf(stderr, "no Tscii in %s\n", ConverterFolder().c_str());
    return 1;
  }
  const std::vector<std::u16string> words = DictionaryWords();
  if (words.empty() || !reference::GlibcTscii().ok()) {
    std::printf("TSCII against glibc: skipped (no aspell Tamil dictionary or no TSCII in iconv)\n\n");
  } else {
    PrintGlibc(CompareWithGlibc(words, reference::LoadTables(ConverterFolder(), *tscii)));
  }
  PrintEncodings();
  return 0;
}
