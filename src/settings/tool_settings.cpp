#include "settings/tool_settings.hpp"

#include "settings/error_report.hpp"
#include "settings/settings_lines.hpp"
#include "settings/settings_repair.hpp"
#include "text/strings.hpp"

namespace quilom::settings {
namespace {

ErrorDetails NoValueLine(std::u16string_view source, std::u16string_view key) {
  return ErrorDetails{
      9, std::u16string(source),
      u"The key line \"" + std::u16string(key) + u"\" is the last line of the file: it has no value line"};
}

}  // namespace

SettingsTags TagsOf(SettingsWindow window) {
  switch (window) {
    case SettingsWindow::FontsConverter:
      return {u"TFC - LdS", u"TFC - WrS"};
    case SettingsWindow::MainTyping:
      return {u"DT - LdS", u"DT - WrS"};
    case SettingsWindow::UnicodeViewer:
    case SettingsWindow::UrlNormaliser:
      return {u"UV - GsUv", u"UV - WsUv"};
    case SettingsWindow::GeneralSettings:
      return {u"GENL - LdS", u"GENL - WrS"};
    case SettingsWindow::GeneralSettingsChoices:
      return {u"GENLC - LdS", u"GENLD - WrS"};
    case SettingsWindow::Colouriser:
      return {u"Clrzr-load", u"ec1"};
    case SettingsWindow::OnScreenKeyboard:
      return {u"LS-Lfks", u"WS-Lfks"};
  }
  return {u"", u""};
}

std::u16string_view ModuleNameOf(SettingsWindow window) {
  switch (window) {
    case SettingsWindow::FontsConverter:
      return u"Tamil Fonts Converter";
    case SettingsWindow::UnicodeViewer:
      return u"Unicode Viewer";
    case SettingsWindow::UrlNormaliser:
      return u"URL Normalizer";
    case SettingsWindow::Colouriser:
      return u"Sanskrit Tamil Colorizer";
    case SettingsWindow::MainTyping:
    case SettingsWindow::GeneralSettings:
    case SettingsWindow::GeneralSettingsChoices:
    case SettingsWindow::OnScreenKeyboard:
      break;
  }
  return u"Indic Direct Typer";
}

ToolSettings::ToolSettings(std::filesystem::path moduleFolder, std::u16string loadTag, std::u16string saveTag,
                           const SettingsDefaults* defaults)
    : file_(std::move(moduleFolder) / "Settings.txt"),
      loadTag_(std::move(loadTag)),
      saveTag_(std::move(saveTag)),
      defaults_(defaults) {}

ToolSettings ToolSettings::For(const DataFolders& folders, SettingsWindow window) {
  const SettingsTags tags = TagsOf(window);
  return ToolSettings(folders.ModuleDataFolder(ModuleNameOf(window)), std::u16string(tags.load),
                      std::u16string(tags.save), ShippedSettingsOf(ModuleNameOf(window)));
}

std::vector<std::u16string> ToolSettings::Lines(bool& usable) const {
  return OpenSettingsLines(file_, defaults_, loadTag_, std::chrono::system_clock::now(), usable);
}

std::u16string ToolSettings::GetToolSetting(std::u16string_view key) const {
  try {
    bool readOk = false;
    const auto lines = Lines(readOk);
    size_t index = 0;
    switch (FindKeyLine(lines, key, index)) {
      case KeyLookup::Found:
        return text::Trim(lines[index + 1]);
      case KeyLookup::NoValueLine:
        ReportError(loadTag_, NoValueLine(u"GetToolSetting", key));
        return {};
      case KeyLookup::Missing:
        return {};
    }
  } catch (...) {
    ReportError(loadTag_, ErrorDetails{7, u"GetToolSetting", u"Unexpected failure"});
  }
  return {};
}

bool ToolSettings::SaveToolSetting(std::u16string_view key, std::u16string_view value) const {
  try {
    bool readOk = false;
    auto lines = Lines(readOk);
    if (!readOk) return false;
    // A key the program knows is never lost: one a file has lost comes back with its default.
    if (defaults_ != nullptr) CompleteSettingsLines(lines, *defaults_);
    size_t index = 0;
    const KeyLookup lookup = FindKeyLine(lines, key, index);
    if (lookup == KeyLookup::NoValueLine) {
      ReportError(saveTag_, NoValueLine(u"SaveToolSetting", key));
      return false;
    }
    if (lookup == KeyLookup::Found) lines[index + 1] = std::u16string(value);
    return WriteSettingsLines(file_, lines);
  } catch (...) {
    ReportError(saveTag_, ErrorDetails{7, u"SaveToolSetting", u"Unexpected failure"});
  }
  return false;
}

void ToolSettings::LoadToolSettings(const Appliers& appliers) const {
  try {
    bool readOk = false;
    const auto lines = Lines(readOk);
    for (size_t i = 1; i < lines.size(); ++i) {
      if (!text::StartsWith(lines[i], kKeyPrefix)) continue;
      for (const auto& [key, apply] : appliers) {
        if (lines[i] != KeyLine(key)) continue;
        if (i + 1 >= lines.size()) {
          ReportError(loadTag_, NoValueLine(u"LoadToolSettings", key));
          return;
        }
        if (apply) apply(text::Trim(lines[i + 1]));
      }
    }
  } catch (...) {
    ReportError(loadTag_, ErrorDetails{7, u"LoadToolSettings", u"Unexpected failure"});
  }
}

std::map<std::u16string, std::u16string> ToolSettings::ReadToolSettings(const std::vector<std::u16string>& keys) const {
  std::map<std::u16string, std::u16string> found;
  Appliers appliers;
  appliers.reserve(keys.size());
  for (const auto& key : keys) {
    appliers.emplace_back(key, [&found, key](const std::u16string& value) { found.try_emplace(key, value); });
  }
  LoadToolSettings(appliers);
  return found;
}

}  // namespace quilom::settings
