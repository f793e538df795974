#include "shell/language_setting_warning.hpp"

namespace quilom::shell {

std::optional<std::u16string> LanguageSettingWarning(unsigned activeCodePage) {
  if (activeCodePage != kUtf8CodePage) return std::nullopt;
  return std::u16string(
      u"IMPORTANT: Quilom+ has detected that possibly one of the settings in your Windows 'Language settings' "
      u"scheme needs to be necessarily UNTICKED, for all the modules of Quilom+ to function smoothly.\r\n\r\n"
      u"The setting is 'Beta: Use Unicode UTF-8 for worldwide language support' (Control Panel > Region > "
      u"Administrative > Change system locale...). Please read the topic on this setting in the help pages "
      u"of Quilom++ before you untick it; Windows asks for a restart afterwards.");
}

}  // namespace quilom::shell
