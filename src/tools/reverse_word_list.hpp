#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Whole Tamil words that the letter rules would spell badly, with the spelling to use instead.
//
// File format: one pair a line, the Tamil word, one blank, the Latin spelling (which may itself
// hold blanks). Empty lines and lines that start with "#" are comments. The shipped list is
// "Indic Direct Typer/resources/rt-words-103.txt" under the data root, a plain text file in
// place of the enciphered text resource 103, so that users can read and extend it.
namespace quilom::tools {

inline constexpr std::u16string_view kReverseWordListFile = u"resources/rt-words-103.txt";

// A character that may stand beside a listed word: TAB up to U+0B7F, the last code point
// before the Tamil block. Tamil letters and anything above the block join a word.
bool IsWordListBoundary(char16_t ch);

class ReverseWordList {
 public:
  // Reads the list text. A line whose Tamil word is empty or holds a boundary character can
  // never match; its 1-based line number is kept in badLines() and the line is skipped.
  static ReverseWordList Parse(std::u16string_view text);

  // Replaces every listed word that stands between two boundary characters (or the text's
  // ends) by its Latin spelling. When a word is listed twice the first line wins. The list's
  // spellings write ந as "n", for reading; with `typeableNa` (ReverseOptions) a word that holds
  // ந outside ந்த is left to the letter rules, which then spell it so that it types back.
  std::u16string Apply(std::u16string_view text, bool typeableNa = false) const;

  size_t size() const { return words_.size(); }
  const std::vector<size_t>& badLines() const { return badLines_; }

 private:
  struct Spelling {
    std::u16string latin;
    bool needsTypeableNa = false;
  };
  std::unordered_map<std::u16string, Spelling> words_;
  std::vector<size_t> badLines_;
};

// Reads the shipped list below `mainDataFolder`. A missing file is reported with the tag "RT-sk"
// (the conversion then runs on the letter rules alone); malformed lines are reported by number.
ReverseWordList LoadReverseWordList(const std::filesystem::path& mainDataFolder);

}  // namespace quilom::tools
