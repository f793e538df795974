#include "translit/typing_settings.hpp"

#include "settings/ini_file.hpp"
#include "translit/typing_settings2.hpp"

namespace quilom::translit {
namespace {

settings::IniSettings SettingsIni(const settings::DataFolders& folders) {
  return settings::IniSettings(folders, settings::kTypingSettingsIni);
}

bool Ticked(const settings::IniSettings& ini, const TypingSettingKey& key) {
  return ini.Read(key.section, key.key, key.fallback) == u"1";
}

}  // namespace

std::array<std::u16string_view, 2> SectionsOfCategory(int row) {
  switch (row) {
    case 0:
      return {kGeneralSection, {}};
    case 2:
      return {kTamilPhoneticsSection, kTamilNet99Section};
    case 4:
      return {kOtherLangsPhoneticsSection, kOtherLangsAnySection};
    default:
      return {};
  }
}

TypingSettings LoadTypingSettings(const settings::DataFolders& folders) {
  const auto ini = SettingsIni(folders);
  TypingSettings s;
  s.startSilently = Ticked(ini, kGeneralItems[0]);
  s.minimizeOnClose = Ticked(ini, kGeneralItems[1]);
  s.excelTyping = Ticked(ini, kGeneralItems[2]);
  s.balloonAtStartup = Ticked(ini, kGeneralItems[3]);
  s.excludeH = Ticked(ini, kExcludeHKey);
  s.tamilNumerals = Ticked(ini, kTamilNumeralsKey);
  s.consecutiveAgaraUyirmeys = Ticked(ini, kConsecutiveAgaraKey);
  s.chCh = Ticked(ini, kChChKey);
  s.classic = Ticked(ini, kClassicKey);
  s.ownKeyboardLayout = Ticked(ini, kOwnKeyboardLayoutKey);
  s.extendedScheme = ReadSettings2Tick(folders, kExtendedScheme, false);
  return s;
}

std::u16string ExcelOptionQuestion() {
  return u"This option has to be ticked only if you face issues in typing in 'Microsoft EXCEL' and 'Not "
         u"Otherwise'. So, are you SURE YOU WISH TO TICK this option?\r\n\r\nImportant Note:\r\nIf you choose to "
         u"select 'Yes' now, then REMEMBER to untick this option again, without fail, whenever you need to type "
         u"in applications other than MS-Excel.";
}

bool WriteTypingSetting(const settings::DataFolders& folders, const TypingSettingKey& key, bool ticked) {
  return SettingsIni(folders).Write(key.section, key.key, ticked ? u"1" : u"0");
}

bool ClickGeneralItem(const settings::DataFolders& folders, int item, bool ticked, Prompter& prompter) {
  if (item < 1 || item > static_cast<int>(kGeneralItems.size())) return false;
  if (item == kExcelGeneralItem && ticked && !prompter.AskYesNo(u"Quilom++", ExcelOptionQuestion())) return false;
  WriteTypingSetting(folders, kGeneralItems[static_cast<size_t>(item - 1)], ticked);
  return ticked;
}

}  // namespace quilom::translit
