#include "settings/settings_choices.hpp"

#include "settings/error_report.hpp"
#include "settings/settings_lines.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::settings {

std::u16string SettingsChoicesOf(std::u16string_view text, std::u16string_view key) {
  const auto lines = text::Split(text, text::kCrLf);
  const std::u16string wanted = KeyLine(key);
  for (size_t i = 1; i < lines.size(); ++i) {
    if (text::Trim(lines[i]) != wanted) continue;
    std::u16string choices;
    for (size_t k = i + 1; k < lines.size(); ++k) {
      const std::u16string choice = text::Trim(lines[k]);
      if (choice.empty()) break;
      if (!choices.empty()) choices += u'|';
      choices += choice;
    }
    return choices;
  }
  return {};
}

std::u16string ReadSettingsChoices(const std::filesystem::path& choicesFile, std::u16string_view key) {
  try {
    return SettingsChoicesOf(ReadTextFile(choicesFile), key);
  } catch (...) {
    ReportError(u"GENLC - LdS", ErrorDetails{7, u"ReadSettingsChoices", u"Unexpected failure"});
  }
  return {};
}

}  // namespace quilom::settings
