#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "converter/conversion_table.hpp"

// Characters that a legacy encoding cannot hold, found before they corrupt a file.
//
// A Unicode-to-legacy table writes the Tamil letters it knows and lets everything else pass as
// it is. Three kinds of character then come out wrong, and each is found here, from the
// encoding's own tables, never from a list kept by hand:
//   - Tamil the table could not write (a numeral, a syllable the font has no glyph for): it is
//     still Tamil in the written text;
//   - with an encoding stored as bytes, a character no byte shows (₹, an emoji);
//   - a character that passes through but is one of the font's glyph codes: Bamini draws இ
//     where "," is, so a comma in the Unicode text would come back as இ. Such a character is
//     safe only when the writing table has a pair for it alone (a punctuation position of the
//     font's own).
// The zero-width joiners only steer how a Unicode font joins letters; legacy fonts draw their
// conjuncts whole, so the joiners are dropped without counting.
//
// What happens to them is the caller's choice, as iconv and uconv users know it: stop and name
// the first (the default), skip them, replace each by one character, or keep them as they are
// knowingly (the output then cannot be stored as bytes and is written as UTF-8 text).
namespace quilom::converter {

enum class UnmappablePolicy { Stop, Skip, Replace, Keep };

struct UnmappableCharacter {
  char32_t ch = 0;
  std::size_t line = 0;    // 1-based
  std::size_t column = 0;  // 1-based, in characters
};

struct UnmappableFindings {
  std::size_t count = 0;
  std::optional<UnmappableCharacter> first;  // the earliest in the text

  void Add(const UnmappableCharacter& found);
  // Takes in what another part of the text held; its lines start after `linesBefore` lines.
  void Merge(const UnmappableFindings& other, std::size_t linesBefore = 0);
};

// What one legacy encoding can hold, read off its tables.
class LegacyRepertoire {
 public:
  // `reading`: the encoding's legacy-to-Unicode pairs with the font's quotes kept as they are;
  // `writing`: the pairs of the Unicode-to-legacy table in use; `storedAsBytes`: false for the
  // encodings whose glyph codes lie outside the byte range (they are stored as UTF-8).
  LegacyRepertoire(const std::vector<TablePair>& reading, const std::vector<TablePair>& writing, bool storedAsBytes);

  // A character of the Unicode text that the legacy text can carry: written by a pair of its
  // own, or passing through unchanged and read back as itself.
  bool CanHold(char16_t ch) const;
  // A character that the writing table lets pass but the font draws as a glyph.
  bool PassesAsGlyph(char16_t ch) const;
  // A character of the written text that no legacy text may hold (a surrogate stands for its
  // whole character).
  bool IsLeftOver(char16_t ch) const;

 private:
  bool ReadAsGlyph(char16_t ch) const { return glyphCodes_[ch]; }
  bool WrittenAlone(char16_t ch) const { return writtenAlone_[ch]; }

  std::vector<bool> glyphCodes_;
  std::vector<bool> writtenAlone_;
  bool storedAsBytes_;
};

// Applies one policy to the text on its way through a Unicode-to-legacy table and counts what
// it met. Use one guard per conversion: PrepareSource on the Unicode text before the table,
// FinishWritten on what the table wrote.
class UnmappableGuard {
 public:
  // `replacement` is used with UnmappablePolicy::Replace and must be a character the
  // repertoire can hold (see CanHold).
  UnmappableGuard(const LegacyRepertoire& repertoire, UnmappablePolicy policy, char16_t replacement = u'?');

  // Drops the joiners; finds the characters that would pass through and be read as glyphs,
  // and skips or replaces them under those policies.
  std::u16string PrepareSource(std::u16string_view source);
  // Finds what the table left that no legacy text may hold and skips or replaces it under
  // those policies. `source` is the text PrepareSource gave; it places what is found.
  std::u16string FinishWritten(std::u16string_view written, std::u16string_view source);

  const UnmappableFindings& Findings() const { return findings_; }

 private:
  template <typename IsUnmappable, typename Locate>
  std::u16string Resolve(std::u16string_view text, const IsUnmappable& isUnmappable, const Locate& locate);

  const LegacyRepertoire& repertoire_;
  UnmappablePolicy policy_;
  char16_t replacement_;
  UnmappableFindings findings_;
};

// The repertoire of the encoding at list position `position` (1 for the first legacy one), read
// off its tables in the converter data folder; nothing when a table is missing (the table
// loader reports it). `irRiReeForm` chooses the writing table as the conversion does.
std::optional<LegacyRepertoire> LoadLegacyRepertoire(const std::filesystem::path& converterFolder, int position,
                                                     bool irRiReeForm, bool storedAsBytes);

// "U+20B9" for messages.
std::string CodePointName(char32_t ch);

}  // namespace quilom::converter
