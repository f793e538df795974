#pragma once

#include <filesystem>
#include <string_view>

// Where the program's data lives: the "Sorvin" folder beside the executable, one folder per
// module below it. Computed once at start-up from the executable's folder.
namespace quilom::settings {

struct DataFolders {
  std::filesystem::path programFolder;     // the executable's folder
  std::filesystem::path dataRoot;          // programFolder / "Sorvin"
  std::filesystem::path mainDataFolder;    // dataRoot / "Indic Direct Typer"
  std::filesystem::path sharedDataFolder;  // dataRoot / "pelandr"
  std::filesystem::path keymapFolder;      // mainDataFolder / "qmLFKs-txts-xmls" (every keymap file)

  static DataFolders ForProgramFolder(const std::filesystem::path& programFolder);
  // The same layout for a data root given directly (the command line's --data DIR, tests).
  static DataFolders ForDataRoot(const std::filesystem::path& dataRoot);

  // dataRoot / moduleName. Does not check that the folder exists.
  std::filesystem::path ModuleDataFolder(std::u16string_view moduleName) const;
};

}  // namespace quilom::settings
