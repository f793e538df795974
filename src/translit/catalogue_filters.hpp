#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "translit/catalogue_lists.hpp"

// The "Filter By" and finder vocabularies of the catalogue and what their entries match. The
// first entry of each list switches that filter off. Matching compares in lower case, and a
// finder label with a bracketed note ("Stmzh (SR, RGB)") matches by the name before the note.
//
// Decision of this implementation: the encoding named after persons is not written in the
// program. It comes with the data files: it is the first encoding of the "Original" list that
// none of the fixed entries names (PersonNamedEncoding), and it is left out of the vocabulary
// when the list names none.
namespace quilom::translit {

inline constexpr std::u16string_view kAllLanguages = u"All Languages";
inline constexpr std::u16string_view kExceptTamil = u"Except Tamil";
inline constexpr std::u16string_view kAllEncodings = u"All Font Encodings";
inline constexpr std::u16string_view kNonUnicode = u"NonUnicode";
inline constexpr std::u16string_view kAllLayouts = u"All Keyboard Layouts";
inline constexpr std::u16string_view kStmzhFinderLabel = u"Stmzh (SR, RGB)";

inline constexpr std::array<std::u16string_view, 21> kLanguageFilters = {
    u"All Languages", u"Tamil",   u"Hindi",    u"Sanskrit",        u"Telugu",  u"Kannada", u"Malayalam",
    u"Marathi",       u"Konkani", u"Gujarati", u"Bengali",         u"Punjabi", u"Oriya",   u"Assamese",
    u"Sourashtra",    u"Arabic",  u"Greek",    u"LatinScript&IPA", u"English", u"Roman",   u"Except Tamil"};
inline constexpr std::array<std::u16string_view, 6> kLayoutFilters = {
    u"All Keyboard Layouts", u"PhoneticTransliteration", u"UserDefinedPhonetics1",
    u"TypeWriterOld",        u"TypeWriterNew",           u"TamilNet99"};

enum class VocabularyUse { Filter, Finder };

// "All Font Encodings", "Unicode", "NonUnicode", the person-named encoding (when not empty),
// "Stmzh", "Bamini", "Shreelipi", "Tab", "Tam", "Tscii"; the finder shows "Stmzh" as
// "Stmzh (SR, RGB)".
std::vector<std::u16string> EncodingVocabulary(std::u16string_view personNamedEncoding, VocabularyUse use);
std::vector<std::u16string> LanguageVocabulary();
std::vector<std::u16string> LayoutVocabulary();

// The first encoding of `original` that the fixed entries do not name, or "".
std::u16string PersonNamedEncoding(const std::vector<LfkRow>& original);

// The lower-case value an entry compares with: "stmzh (sr, rgb)" gives "stmzh".
std::u16string FilterKey(std::u16string_view entry);

// The three chosen entries, as shown in the combo boxes (filter or finder labels).
struct LfkChoice {
  std::u16string language{kAllLanguages};
  std::u16string encoding{kAllEncodings};
  std::u16string layout{kAllLayouts};
};

bool RowMatches(const LfkRow& row, const LfkChoice& choice);
// Row i is visible when it matches.
std::vector<bool> VisibleRows(const std::vector<LfkRow>& rows, const LfkChoice& choice);

struct FinderResult {
  int row = -1;            // the row to highlight, -1 for none
  std::u16string message;  // shown before highlighting when the choice matched no visible row
};

// The first visible row matching `choice`. When there is none, the message names `changedEntry`
// (the finder entry the user just picked) and the row is the first visible row of the chosen
// language, else the first row of that language anywhere in the list (so the user still lands
// on it), else -1.
FinderResult FindLfk(const std::vector<LfkRow>& rows, const std::vector<bool>& visible, const LfkChoice& choice,
                     std::u16string_view changedEntry);

std::u16string NoMatchingLfkMessage(std::u16string_view choice, std::u16string_view language);

}  // namespace quilom::translit
