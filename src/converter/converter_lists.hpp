#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "converter/document_editor.hpp"

// The converter's lists: the encodings, the Unicode fonts, the legacy fonts that suit an
// encoding, and the cached list of the system's fonts. The files lie in the converter data
// folder (the module folder "Tamil Fonts Converter").
namespace quilom::converter {

inline constexpr std::u16string_view kConverterModule = u"Tamil Fonts Converter";
inline constexpr std::u16string_view kEncodingsFile = u"QuilomPlus-TamilFontEncodings.txt";
inline constexpr std::u16string_view kUnicodeFontsFile = u"QuilomPlus-Unicode fonts.txt";
inline constexpr std::u16string_view kSearchPatternsFile = u"QuilomPlus-NonUniSearchPatterns.txt";
inline constexpr std::u16string_view kDefaultFontsFile = u"QuilomPlus-TamilFontEncodings-DefaultFontToBeUsed.txt";
inline constexpr std::u16string_view kWinFontsListFile = u"QuilomPlus-WinFontsList.txt";
inline constexpr std::u16string_view kFontsListHeader = u"List of all fonts present in the system";
inline constexpr std::u16string_view kAnyFont = u"Any Font";
inline constexpr std::u16string_view kDefaultFont = u"Default Font";

// The system's screen fonts, as the Windows layer sees them; tests give a fixed list.
class FontCatalog {
 public:
  virtual ~FontCatalog() = default;
  virtual int Count() const = 0;
  // Font i, 0-based, in the system's order.
  virtual std::u16string Name(int index) const = 0;
  // The name a font object reports after its name was set to `requested`: the requested name
  // when such a font exists, else the name of the font the system substitutes.
  virtual std::u16string ResolvedName(std::u16string_view requested) const = 0;
};

// What the loading and the regeneration show while they work.
struct ListsUi {
  Prompter* prompter = nullptr;                // the "Fonts have got added or deleted" message
  ProgressLabel progress;                      // `lblPerc`; also lets the window repaint
  std::function<void(bool busy)> busyPointer;  // the hourglass pointer, on and off
};

struct ConverterLists {
  std::vector<std::u16string> defaultFonts;  // line k: default legacy font of list position k
  std::vector<std::u16string> encodings;     // the From and To lists' rows
  std::vector<std::u16string> unicodeFonts;  // "Any Font", "Default Font", installed candidates
  // See GenerateFontsList for its two layouts; consumers start at element 1.
  std::vector<std::u16string> systemFonts;
};

// True when a font object set to `name` reads back `name`, ignoring ASCII case. Reports "b-Ifi"
// and answers false on failure.
bool IsFontInstalled(const FontCatalog& fonts, std::u16string_view name);

// Rebuilds the system fonts array (element i = system font i, empty for a name beginning with
// "@") and writes the fonts-list file: the header line, CR LF, then the elements joined with
// CR LF. Progress: "(Re)Generating the fonts list... Please wait..." then that text, a blank and
// the percentage every 100 fonts, then "Fonts list generation process completed.".
// Reports "GFL" when the file cannot be written; the array is still returned.
std::vector<std::u16string> GenerateFontsList(const std::filesystem::path& converterFolder, const FontCatalog& fonts,
                                              const ListsUi& ui);

// Reads every list file (steps in the order of the window's load), regenerating the fonts-list
// file when it is missing (silently) or when its line count no longer matches the system's
// fonts (after telling the user why). Reports "App Load" on failure and returns what it read.
ConverterLists LoadConverterLists(const std::filesystem::path& converterFolder, const FontCatalog& fonts,
                                  const ListsUi& ui);

// The legacy fonts list for the encoding at `position`: the patterns of that line of the
// search-patterns file, matched as case-insensitive prefixes against system fonts 1 to the
// last; a font matched by two patterns appears twice. With any match: "Any Font",
// "Default Font", then the matches sorted by code unit; with none: an empty list. `errorTag`
// is "LF1" from the From list and "LTo" from the To list.
std::vector<std::u16string> FillNonUnicodeFonts(const std::filesystem::path& converterFolder,
                                                const std::vector<std::u16string>& systemFonts, int position,
                                                std::u16string_view errorTag);

// Ascending binary (code-unit) order, by a recursive quicksort. Reports "QS" on failure.
void QuickSortBinary(std::vector<std::u16string>& items);

}  // namespace quilom::converter
