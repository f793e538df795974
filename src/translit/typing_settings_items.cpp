#include "translit/typing_settings_items.hpp"

#include <algorithm>

#include "settings/ini_file.hpp"

namespace quilom::translit {
namespace {

constexpr TypingSettingItem kItems[] = {
    {0, u"chbTevGeneral", 1, kGeneralItems[0], u"Start Quilom++ silently, without its opening screen"},
    {0, u"chbTevGeneral", 2, kGeneralItems[1], u"Closing the window minimises Quilom++ to the tray"},
    {0, u"chbTevGeneral", 3, kGeneralItems[2], u"Typing in MS-Excel (tick only if Excel typing fails)"},
    {0, u"chbTevGeneral", 4, kGeneralItems[3], u"Show the balloon tip at start-up"},
    {2, u"chbTev", 0, kExcludeHKey, u"Tamil phonetics: exclude the lone 'h' keys (ExcludeH)"},
    {2, u"chbTev", 1, kTamilNumeralsKey, u"Tamil phonetics: digit keys type Tamil numerals"},
    {2, u"chbTev99", 0, kConsecutiveAgaraKey, u"Tamil99: consecutive agara uyirmeys"},
    {4, u"chbTevLangsAll", 0, kChChKey, u"Other languages: 'ch' and 'Ch' variant keymaps (chCh)"},
    {4, u"chbTevLangsAll", 1, kClassicKey, u"Other languages: classic punctuation after consonants"},
    {4, u"chbTevLangsAll", 3, kOwnKeyboardLayoutKey, u"Use my own keyboard layout exactly as written"},
};

}  // namespace

std::span<const TypingSettingItem> TypingSettingItems() { return kItems; }

std::vector<TypingSettingItem> ItemsOfCategory(int row) {
  const auto sections = SectionsOfCategory(row);
  std::vector<TypingSettingItem> items;
  for (const auto& item : kItems) {
    if (!item.key.section.empty() && std::find(sections.begin(), sections.end(), item.key.section) != sections.end()) {
      items.push_back(item);
    }
  }
  return items;
}

bool ReadTypingSetting(const settings::DataFolders& folders, const TypingSettingKey& key) {
  const settings::IniSettings ini(folders, settings::kTypingSettingsIni);
  return ini.ReadTicked(key.section, key.key, key.fallback == u"1");
}

}  // namespace quilom::translit
