#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/data_folders.hpp"
#include "settings/shipped_settings.hpp"

// By-key access to a window's "Settings.txt". Each window holds one ToolSettings bound to its
// module folder and to the two problem tags it reports with. Nothing is cached: every read reads
// the whole file and every save rewrites it whole (UTF-16LE with mark), so a crash never loses
// an option already saved.
namespace quilom::settings {

// The windows that keep settings by key, each with its pair of problem tags.
enum class SettingsWindow {
  FontsConverter,          // "TFC - LdS" / "TFC - WrS"
  MainTyping,              // "DT - LdS" / "DT - WrS"
  UnicodeViewer,           // "UV - GsUv" / "UV - WsUv"
  UrlNormaliser,           // the Unicode viewer's tags, kept as users' reports know them
  GeneralSettings,         // "GENL - LdS" / "GENL - WrS"
  GeneralSettingsChoices,  // "GENLC - LdS" / "GENLD - WrS"
  Colouriser,              // "Clrzr-load" / "ec1"
  OnScreenKeyboard,        // "LS-Lfks" / "WS-Lfks"
};

struct SettingsTags {
  std::u16string_view load;
  std::u16string_view save;
};

SettingsTags TagsOf(SettingsWindow window);

// The module folder name of a window. The general settings and the on-screen keyboards keep
// their files with the main window's, in "Indic Direct Typer".
std::u16string_view ModuleNameOf(SettingsWindow window);

class ToolSettings {
 public:
  // With `defaults` (the shipped keys of that file) the file survives damage: a missing or empty
  // file is made again from them, a damaged one is copied aside and mended before it is used, and
  // every save puts back any known key the file lacks (settings_repair.hpp). Without them the
  // file is read and written exactly as it stands.
  ToolSettings(std::filesystem::path moduleFolder, std::u16string loadTag, std::u16string saveTag,
               const SettingsDefaults* defaults = nullptr);
  // The window's own folder below the data root, its tags and its shipped defaults.
  static ToolSettings For(const DataFolders& folders, SettingsWindow window);

  const std::filesystem::path& SettingsFile() const { return file_; }

  // The trimmed line after the first key line from line 1 on; empty when the key is not there.
  // A key line with no line after it reports the load tag. A missing file reports "RFF".
  std::u16string GetToolSetting(std::u16string_view key) const;

  // Puts `value`, untrimmed, on the line after the key line and rewrites the file as UTF-16LE
  // with mark. An unknown key is not added, but the file is still rewritten (so it is converted
  // to UTF-16LE). A key line with no line after it reports the save tag and leaves the file as it
  // was; so does a file that could not be read (after its "RFF"), so that a damaged or missing
  // file is never replaced by an empty one. Returns whether the file was written.
  bool SaveToolSetting(std::u16string_view key, std::u16string_view value) const;

  // One pass over the file for windows that load many keys: every key line of a known key, in
  // file order and from line 1 on, hands its trimmed value line to that key's callback (a key
  // that occurs twice is applied twice, the later one last). A known key on the last line
  // reports the load tag and ends the pass.
  using Appliers = std::vector<std::pair<std::u16string, std::function<void(const std::u16string&)>>>;
  void LoadToolSettings(const Appliers& appliers) const;

  // The same pass, collected: each key that was found, with its first value.
  std::map<std::u16string, std::u16string> ReadToolSettings(const std::vector<std::u16string>& keys) const;

 private:
  std::vector<std::u16string> Lines(bool& usable) const;

  std::filesystem::path file_;
  std::u16string loadTag_;
  std::u16string saveTag_;
  const SettingsDefaults* defaults_;
};

}  // namespace quilom::settings
