#pragma once

#include <array>
#include <string>
#include <string_view>

#include "settings/data_folders.hpp"
#include "settings/ini_file.hpp"

// The typing settings of "inis\qm-settings.ini": five sections whose keys switch the keymap
// loaders and the start-up behaviour. Reading and writing go through IniSettings, so the copy
// in the shared data folder wins over the older copy beside the executable.
namespace quilom::translit {

inline constexpr std::u16string_view kGeneralSection = u"General";
inline constexpr std::u16string_view kTamilPhoneticsSection = u"Tamil-Phonetics";
inline constexpr std::u16string_view kTamilNet99Section = u"Tamil-Net99";
inline constexpr std::u16string_view kOtherLangsPhoneticsSection = u"OtherLangs-Phonetics";
inline constexpr std::u16string_view kOtherLangsAnySection = u"OtherLangs-Any";

// One key of the file with the value a missing key or file stands for.
struct TypingSettingKey {
  std::u16string_view section;
  std::u16string_view key;
  std::u16string_view fallback;
};

// The keys of the four `chbTevGeneral` items, items 1 to 4 in this order. Item 3 keeps the key
// name "StartQuilomMinimized" although it holds the Excel option: existing files use that name.
inline constexpr std::array<TypingSettingKey, 4> kGeneralItems = {{
    {kGeneralSection, u"StartQuilomSilently", u"0"},
    {kGeneralSection, u"OnCloseMinimizeQuilom", u"0"},
    {kGeneralSection, u"StartQuilomMinimized", u"0"},
    {kGeneralSection, u"BalloonTipAtStartup", u"1"},
}};
inline constexpr int kExcelGeneralItem = 3;

// "ExcludeH" and "TamilNumeralsConversion" default to off, as the shipped file has them: a fresh
// installation types the Tamil phonetic scheme exactly as its keymap file is written.
inline constexpr TypingSettingKey kExcludeHKey{kTamilPhoneticsSection, u"ExcludeH", u"0"};
inline constexpr TypingSettingKey kTamilNumeralsKey{kTamilPhoneticsSection, u"TamilNumeralsConversion", u"0"};
inline constexpr TypingSettingKey kConsecutiveAgaraKey{kTamilNet99Section, u"ConsecutiveAgaraUyirmeys", u"1"};
inline constexpr TypingSettingKey kChChKey{kOtherLangsPhoneticsSection, u"chCh", u"0"};
inline constexpr TypingSettingKey kClassicKey{kOtherLangsPhoneticsSection, u"Classic", u"1"};
inline constexpr TypingSettingKey kOwnKeyboardLayoutKey{kOtherLangsAnySection, u"UseMyOwnKeyboardLayout", u"0"};

// Every value as a tick ("1" ticks, anything else unticks). Default-constructed it is what a
// fresh installation shows.
struct TypingSettings {
  bool startSilently = false;
  bool minimizeOnClose = false;
  bool excelTyping = false;  // "StartQuilomMinimized"
  bool balloonAtStartup = true;
  bool excludeH = false;
  bool tamilNumerals = false;
  bool consecutiveAgaraUyirmeys = true;
  bool chCh = false;
  bool classic = true;
  bool ownKeyboardLayout = false;
  // From "qm-settings-2.ini": "Extended scheme" = "1" (see typing_settings2.hpp).
  bool extendedScheme = false;

  bool operator==(const TypingSettings&) const = default;
};

// The categories of the window's `lcat` list; the ":" rows separate them and show nothing.
inline constexpr std::array<std::u16string_view, 5> kSettingsCategories = {u"GENERAL", u":", u"TAMIL", u":",
                                                                           u"OTHER LANGUAGES"};
// The sections whose controls a click on `lcat` row `row` shows; empty for a separator or a row
// out of range.
std::array<std::u16string_view, 2> SectionsOfCategory(int row);

// Loads the five sections, and "Extended scheme" of the second ini file. A missing file or key
// gives its default without any report.
TypingSettings LoadTypingSettings(const settings::DataFolders& folders);

// The yes/no question the window asks through a message box; tests answer it themselves.
class Prompter {
 public:
  virtual ~Prompter() = default;
  // True for Yes.
  virtual bool AskYesNo(std::u16string_view title, std::u16string_view question) = 0;
};

// The question asked before the Excel option (item 3) is ticked, line for line.
std::u16string ExcelOptionQuestion();

// A click on `chbTevGeneral` item `item` (1 to 4) that leaves it `ticked`: writes its key at
// once ("1" or "0") and returns the state the box must show. Ticking item 3 first asks
// ExcelOptionQuestion; anything but Yes writes nothing and returns false (the tick is taken
// back). Unticking never asks. An item out of range writes nothing and returns false.
bool ClickGeneralItem(const settings::DataFolders& folders, int item, bool ticked, Prompter& prompter);

// Writes one tick of any of the keys above ("1" or "0"). Returns whether the file was written.
bool WriteTypingSetting(const settings::DataFolders& folders, const TypingSettingKey& key, bool ticked);

}  // namespace quilom::translit
