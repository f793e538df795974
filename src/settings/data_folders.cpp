#include "settings/data_folders.hpp"

#include <string>

namespace quilom::settings {

DataFolders DataFolders::ForProgramFolder(const std::filesystem::path& programFolder) {
  DataFolders folders = ForDataRoot(programFolder / "Sorvin");
  folders.programFolder = programFolder;
  return folders;
}

DataFolders DataFolders::ForDataRoot(const std::filesystem::path& givenRoot) {
  // "--data DIR/" names the same folder as "--data DIR"; its parent is the program folder.
  const std::filesystem::path dataRoot = givenRoot.has_filename() ? givenRoot : givenRoot.parent_path();
  DataFolders folders;
  folders.programFolder = dataRoot.parent_path();
  folders.dataRoot = dataRoot;
  folders.mainDataFolder = dataRoot / "Indic Direct Typer";
  folders.sharedDataFolder = dataRoot / "pelandr";
  folders.keymapFolder = folders.mainDataFolder / "qmLFKs-txts-xmls";
  return folders;
}

std::filesystem::path DataFolders::ModuleDataFolder(std::u16string_view moduleName) const {
  return dataRoot / std::filesystem::path(std::u16string(moduleName));
}

}  // namespace quilom::settings
