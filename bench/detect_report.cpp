// How often `quilom detect` is right: every real paragraph, and every sentence of them, written
// in every legacy encoding with its own Unicode-to-legacy table, then detected from the bytes;
// and what English, Unicode Tamil, UTF-16 and binary input are taken for. Prints figures only.
//   detect_report [SOURCE_DIR]

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "converter/convert_checks.hpp"
#include "converter/encoding_detector.hpp"
#include "converter/encoding_list.hpp"
#include "converter/legacy_bytes.hpp"
#include "text/utf.hpp"

namespace {

using namespace quilom::converter;
using quilom::text::Utf16ToUtf8;
using quilom::text::Utf8ToUtf16;

std::filesystem::path gSource = QUILOM_SOURCE_DIR;

std::filesystem::path ConverterFolder() { return gSource / "data/Sorvin/Tamil Fonts Converter"; }

std::vector<std::u16string> ReadLines(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::vector<std::u16string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty()) lines.push_back(Utf8ToUtf16(line));
  }
  return lines;
}

// Each sentence alone, its full stop kept.
std::vector<std::u16string> Sentences(const std::vector<std::u16string>& paragraphs) {
  std::vector<std::u16string> sentences;
  for (const std::u16string& paragraph : paragraphs) {
    std::size_t start = 0;
    while (start < paragraph.size()) {
      std::size_t end = paragraph.find_first_of(u".?!", start);
      end = end == std::u16string::npos ? paragraph.size() : end + 1;
      const std::size_t first = paragraph.find_first_not_of(u' ', start);
      if (first < end) sentences.push_back(paragraph.substr(first, end - first));
      start = end;
    }
  }
  return sentences;
}

// As `quilom convert` writes it: Windows-1252 bytes, or UTF-8 when some glyph has no byte.
// Every `every`-th distinct word, its punctuation dropped: the shortest texts anyone asks about.
std::vector<std::u16string> Words(const std::vector<std::u16string>& paragraphs, std::size_t every) {
  std::set<std::u16string> seen;
  std::vector<std::u16string> words;
  for (const std::u16string& paragraph : paragraphs) {
    for (std::size_t start = 0; start < paragraph.size();) {
      std::size_t end = paragraph.find(u' ', start);
      end = end == std::u16string::npos ? paragraph.size() : end;
      std::u16string word = paragraph.substr(start, end - start);
      while (!word.empty() && std::u16string_view(u".,?!").find(word.back()) != std::u16string_view::npos)
        word.pop_back();
      if (!word.empty() && seen.insert(word).second && seen.size() % every == 0) words.push_back(word);
      start = end + 1;
    }
  }
  return words;
}

std::string LegacyFileBytes(std::u16string_view legacyText) {
  std::size_t unencodable = 0;
  const std::string bytes = TextToLegacyBytes(legacyText, unencodable);
  return unencodable == 0 ? bytes : Utf16ToUtf8(legacyText);
}

struct Tally {
  std::size_t exact = 0, family = 0, notLegacy = 0, total = 0;
  std::map<std::string, int> insteads;
  double Share(std::size_t count) const { return total == 0 ? 0 : 100.0 * count / total; }
};

void Count(const Detection& detection, const std::u16string& truth, Tally& tally) {
  ++tally.total;
  if (detection.kind != TextKind::LegacyTamil) {
    ++tally.notLegacy;
    ++tally.insteads[std::string(DescribeTextKind(detection.kind))];
    return;
  }
  const EncodingGuess& best = detection.guesses.front();
  const bool inFamily = std::find(best.alike.begin(), best.alike.end(), truth) != best.alike.end();
  tally.exact += best.name == truth;
  tally.family += best.name == truth || inFamily;
  if (best.name != truth) ++tally.insteads[Utf16ToUtf8(FamilyName(best))];
}

// The encodings named first together with the true one: those that share its bytes.
void NoteFamily(const Detection& detection, const std::u16string& truth, std::map<std::string, int>& families) {
  if (detection.kind != TextKind::LegacyTamil) return;
  const EncodingGuess& best = detection.guesses.front();
  if (best.alike.empty() || (best.name != truth && std::count(best.alike.begin(), best.alike.end(), truth) == 0)) {
    return;
  }
  std::vector<std::u16string> names = best.alike;
  names.push_back(best.name);
  std::sort(names.begin(), names.end());
  std::u16string joined;
  for (const std::u16string& name : names) joined += (joined.empty() ? u"" : u" + ") + name;
  ++families[Utf16ToUtf8(joined)];
}

std::string Insteads(const Tally& tally) {
  std::string text;
  for (const auto& [name, times] : tally.insteads) text += " " + name + " (" + std::to_string(times) + ")";
  return text;
}

void PrintRow(const char* name, const Tally& tally, bool insteads = true) {
  std::printf("  %-14s %7.1f%% %7.1f%% %6zu/%zu %s\n", name, tally.Share(tally.exact), tally.Share(tally.family),
              tally.notLegacy, tally.total, insteads ? Insteads(tally).c_str() : "");
}

void MeasureEncodings(const EncodingDetector& detector, const std::vector<std::u16string>& texts, const char* title,
                      bool insteads = true) {
  const EncodingList list = LoadEncodingList(ConverterFolder());
  std::printf("\n%s: %zu texts in each encoding\n  %-14s %8s %8s %8s  %s\n", title, texts.size(), "encoding", "exact",
              "family", "not-leg", "named first instead (times)");
  Tally all;
  std::map<std::string, int> families;
  for (int position = 1; position < static_cast<int>(list.names.size()); ++position) {
    const std::u16string& truth = list.names[position];
    PairReplacer writer(
        ParseConversionTable(LoadTableText(ConverterFolder(), *UnicodeToLegacyTableId(position, true))).pairs);
    Tally tally;
    for (const std::u16string& text : texts) {
      const Detection detection = detector.Detect(LegacyFileBytes(writer.Apply(text)));
      Count(detection, truth, tally);
      NoteFamily(detection, truth, families);
    }
    PrintRow(Utf16ToUtf8(truth).c_str(), tally, insteads);
    all.exact += tally.exact, all.family += tally.family, all.notLegacy += tally.notLegacy, all.total += tally.total;
  }
  PrintRow("all", all);
  if (!insteads) return;
  std::printf("  families named (encodings that wrote the same bytes and read them alike), texts:\n");
  for (const auto& [name, times] : families) std::printf("    %s: %d\n", name.c_str(), times);
}

void Classify(const EncodingDetector& detector, const std::vector<std::string>& inputs, const char* title) {
  std::map<std::string, int> kinds;
  for (const std::string& bytes : inputs) ++kinds[std::string(DescribeTextKind(detector.Detect(bytes).kind))];
  std::printf("  %-44s", title);
  for (const auto& [kind, times] : kinds) std::printf(" %s: %d/%zu;", kind.c_str(), times, inputs.size());
  std::printf("\n");
}

std::vector<std::string> Utf8(const std::vector<std::u16string>& texts) {
  std::vector<std::string> bytes;
  for (const std::u16string& text : texts) bytes.push_back(Utf16ToUtf8(text));
  return bytes;
}

std::vector<std::string> Utf16Le(const std::vector<std::u16string>& texts, bool mark) {
  std::vector<std::string> files;
  for (const std::u16string& text : texts) {
    std::string bytes = mark ? "\xFF\xFE" : "";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    files.push_back(bytes);
  }
  return files;
}

// Random bytes, and slices of this very program.
std::vector<std::string> BinaryInputs() {
  std::mt19937 rng(42);
  std::vector<std::string> inputs;
  for (int i = 0; i < 20; ++i) {
    std::string bytes(64 + rng() % 4000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(rng());
    inputs.push_back(bytes);
  }
  std::ifstream self("/proc/self/exe", std::ios::binary);
  const std::string program((std::istreambuf_iterator<char>(self)), std::istreambuf_iterator<char>());
  for (std::size_t at = 0; at + 4096 <= program.size() && inputs.size() < 40; at += program.size() / 20) {
    inputs.push_back(program.substr(at, 4096));
  }
  return inputs;
}

std::vector<std::u16string> Joined(const std::vector<std::u16string>& sentences, std::size_t each) {
  std::vector<std::u16string> texts;
  for (std::size_t i = 0; i + each <= sentences.size(); i += each) {
    std::u16string text;
    for (std::size_t j = i; j < i + each; ++j) text += (j == i ? u"" : u" ") + sentences[j];
    texts.push_back(text);
  }
  return texts;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) gSource = argv[1];
  const EncodingDetector detector = EncodingDetector::Load(ConverterFolder());
  if (detector.EncodingCount() == 0) {
    std::fprintf(stderr, "detect_report: no tables in %s\n", ConverterFolder().string().c_str());
    return 1;
  }
  const std::vector<std::u16string> paragraphs = ReadLines(gSource / "tests/converter/data/tamil_paragraphs.txt");
  const std::vector<std::u16string> english = ReadLines(gSource / "tests/converter/data/english_sentences.txt");
  const std::vector<std::u16string> sentences = Sentences(paragraphs);
  std::printf(
      "exact: the encoding is named first; family: named first or with the first, as reading the text "
      "alike;\nnot-leg: the text was taken for something other than legacy Tamil.\n");
  MeasureEncodings(detector, paragraphs, "Real paragraphs");
  MeasureEncodings(detector, sentences, "Single sentences of those paragraphs");
  MeasureEncodings(detector, Words(paragraphs, 4), "Single words of those paragraphs", false);
  std::printf("\nWhat other input is taken for:\n");
  Classify(detector, Utf8(english), "English sentences (our own)");
  Classify(detector, Utf8(Words(english, 1)), "English words (each distinct word)");
  Classify(detector, Utf8(Joined(english, 5)), "English paragraphs (five sentences each)");
  Classify(detector, Utf8(paragraphs), "Unicode Tamil paragraphs, UTF-8");
  Classify(detector, Utf8(sentences), "Unicode Tamil sentences, UTF-8");
  Classify(detector, Utf16Le(paragraphs, true), "Tamil paragraphs, UTF-16LE with mark");
  Classify(detector, Utf16Le(sentences, false), "Tamil sentences, UTF-16LE without mark");
  Classify(detector, Utf16Le(english, false), "English sentences, UTF-16LE without mark");
  Classify(detector, BinaryInputs(), "Binary (random bytes, slices of a program)");
  return 0;
}
