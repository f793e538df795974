#include "settings/shipped_settings.hpp"

#include <array>

#include "settings/settings_lines.hpp"

namespace quilom::settings {
namespace {

struct ModuleDefaults {
  std::u16string_view module;
  SettingsDefaults defaults;
};

const std::array<ModuleDefaults, 8>& AllDefaults() {
  static const std::array<ModuleDefaults, 8> all = {{
      {u"Indic Direct Typer",
       {u"Quilom++ - Indic Direct Typer settings",
        {{u"Global Typing", u"1"},
         {u"Instant Typing", u"0"},
         {u"Fast Editing", u"0"},
         {u"Smart Editing", u"0"},
         {u"CopyPaste Editing", u"0"},
         {u"Include Hotkeys", u"1"},
         {u"Present Hotkey", u"Alt+F12"},
         {u"StartQuilom++ WithWindows", u"0"}}}},
      {u"Tamil Fonts Converter",
       {u"Quilom++ - Tamil Fonts Converter settings",
        {{u"From Index", u"1"},
         {u"To Index", u"0"},
         {u"Uni Index", u"1"},
         {u"NonUni Index", u"1"},
         {u"IrRiRee Form", u"0"},
         {u"Plain Text", u"0"},
         {u"Vowel Signs", u"1"},
         {u"Quotes Format", u"1"}}}},
      {u"URL Normalizer",
       {u"Quilom++ - URL Normalizer settings",
        {{u"Auto Normalize", u"1"}, {u"Auto Copy", u"0"}, {u"Auto Open", u"0"}}}},
      {u"Unicode Viewer", {u"Quilom++ - Unicode Viewer settings", {}}},
      {u"Sanskrit Tamil Colorizer", {u"Quilom++ - Sanskrit Tamil Colorizer settings", {}}},
      {u"Auto Transliterator", {u"Quilom++ - Auto Transliterator settings", {}}},
      {u"Dual_Screen Transliterator", {u"Quilom++ - Dual_Screen Transliterator settings", {}}},
      {u"pelandr", {u"Quilom++ - pelandr settings", {}}},
  }};
  return all;
}

}  // namespace

const SettingsDefaults* ShippedSettingsOf(std::u16string_view moduleName) {
  for (const ModuleDefaults& entry : AllDefaults()) {
    if (entry.module == moduleName) return &entry.defaults;
  }
  return nullptr;
}

std::vector<std::u16string> DefaultSettingsLines(const SettingsDefaults& defaults) {
  std::vector<std::u16string> lines{std::u16string(defaults.title)};
  for (const auto& [key, value] : defaults.keys) {
    lines.push_back(KeyLine(key));
    lines.emplace_back(value);
  }
  lines.emplace_back();
  return lines;
}

}  // namespace quilom::settings
