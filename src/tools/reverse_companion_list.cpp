#include "tools/reverse_companion_list.hpp"

#include <system_error>

#include "settings/text_file.hpp"

namespace quilom::tools {

ReverseWordList LoadCompanionWordList(const std::filesystem::path& mainDataFolder) {
  const auto file = mainDataFolder / std::filesystem::path(kCompanionWordListFile);
  std::error_code missing;
  if (!std::filesystem::exists(file, missing)) return LoadReverseWordList(mainDataFolder);
  return ReverseWordList::Parse(settings::ReadTextFile(file));
}

}  // namespace quilom::tools
