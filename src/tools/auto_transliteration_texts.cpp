#include "tools/auto_transliteration_texts.hpp"

#include <filesystem>
#include <system_error>

#include "settings/text_file.hpp"
#include "text/utf.hpp"

namespace quilom::tools {

std::u16string_view AutoKeymapFor(bool alternateMappings) {
  return alternateMappings ? kAlternatePhoneticKeymap : kStandardPhoneticKeymap;
}

std::u16string AutoProgressText(int percent) {
  return text::AsciiToUtf16(std::to_string(percent)) + u"% processed";
}

std::u16string AutoCharacterCountsText(std::size_t inputLength, std::size_t outputLength) {
  return u"Input characters  = " + text::AsciiToUtf16(std::to_string(inputLength)) + u"  |  " +
         u"Output characters = " + text::AsciiToUtf16(std::to_string(outputLength));
}

std::u16string LoadAutoTransliterationSample(const settings::DataFolders& folders) {
  const auto own = folders.ModuleDataFolder(kAutoTransliteratorModule) / "inps" / "sample-for-at.txt";
  std::error_code missing;
  if (std::filesystem::exists(own, missing)) return settings::ReadTextFile(own);
  return settings::ReadTextFile(folders.mainDataFolder / "inps" / "sample-for-at.txt");
}

}  // namespace quilom::tools
