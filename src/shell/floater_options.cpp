#include "shell/floater_options.hpp"

#include <charconv>

#include "settings/settings_list.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::shell {
namespace {

constexpr std::u16string_view kTitle = u"Quilom++";

void ReadNumber(const std::u16string& value, int& target, bool allowNegative) {
  const std::string digits = text::Utf16ToUtf8(text::Trim(value));
  int number = 0;
  const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (ec == std::errc() && end == digits.data() + digits.size() && (allowNegative || number >= 0)) target = number;
}

std::u16string ToText(int number) { return text::Utf8ToUtf16(std::to_string(number)); }

}  // namespace

std::filesystem::path FloaterSettingsPath(const settings::DataFolders& folders) {
  return folders.mainDataFolder / "Settings - Floater.txt";
}

FloaterSettings ReadFloaterSettings(const std::filesystem::path& file) {
  FloaterSettings result;
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) return result;
  const auto values = settings::ReadSettingsListEntries(file, false);
  for (size_t i = 0; i < values.size() && i < kFloaterOptionCount; ++i) {
    const auto value = text::Trim(values[i]);
    if (value == u"1" || value == u"0") result.options[i] = value == u"1";
  }
  result.Set(FloaterOption::HookTheTypingWindow, false);
  int* placement[] = {&result.left, &result.top, &result.width, &result.height};
  for (size_t k = 0; k < 4 && kFloaterOptionCount + k < values.size(); ++k) {
    ReadNumber(values[kFloaterOptionCount + k], *placement[k], k < 2);
  }
  return result;
}

bool WriteFloaterSettings(const std::filesystem::path& file, const FloaterSettings& settings) {
  std::vector<std::u16string> values;
  for (const bool on : settings.options) values.emplace_back(on ? u"1" : u"0");
  for (const int number : {settings.left, settings.top, settings.width, settings.height}) {
    values.push_back(ToText(number));
  }
  return settings::WriteSettingsValues(file, values);
}

FloaterLook FloaterLookOf(const FloaterSettings& settings) {
  FloaterLook look;
  look.alwaysOnTop = settings.On(FloaterOption::AlwaysOnTop);
  look.followTheTyping = settings.On(FloaterOption::FollowTheTyping);
  look.autoFocus = settings.On(FloaterOption::AutoFocusTypingWindow);
  look.showAtStart = settings.On(FloaterOption::StartWithQuilom);
  look.hotkeyColumn = !settings.On(FloaterOption::HideHotkeysInfo);
  look.languageColumn = !settings.On(FloaterOption::HideLanguages);
  look.encodingColumn = !settings.On(FloaterOption::HideFontEncodings);
  look.keyboardColumn = !settings.On(FloaterOption::HideKeyboardsInfo);
  look.nameColumn = !look.languageColumn && !look.encodingColumn && !look.keyboardColumn;
  return look;
}

WindowId AutoFocusTarget(const FloaterSettings& settings, const SelectionState& state,
                         WindowId previousForegroundWindow) {
  if (!settings.On(FloaterOption::AutoFocusTypingWindow)) return 0;
  return state.HookedWindow != 0 ? state.HookedWindow : previousForegroundWindow;
}

FloaterHookOutcome HookTypingWindow(SelectionState& state, WindowId previousForegroundWindow, std::u16string_view title) {
  if (state.FocusedMode != kFocusedOnOneApplication) {
    return {HookVerdict::NotFocusedMode,
            {std::u16string(kTitle),
             u"This option is to be used only when you have chosen 'Enable typing in that application alone' in "
             u"Quilom++'s opening screen."}};
  }
  if (previousForegroundWindow == 0) {
    return {HookVerdict::NoWindowToHook, {std::u16string(kTitle), u"Unable to find any suitable window to hook"}};
  }
  state.HookedWindow = previousForegroundWindow;
  state.oneShotFocus = true;
  return {
      HookVerdict::Hooked,
      {u"Typing Window Hooked",
       u"Window having the following title has been hooked for your further focused typing: " + std::u16string(title)}};
}

FloaterMessage UnhookTypingWindow(SelectionState& state, std::u16string_view title) {
  if (state.HookedWindow == 0) return {};
  state.HookedWindow = 0;
  state.oneShotFocus = false;
  return {std::u16string(kTitle),
          u"The window in which you were doing focused typing earlier has been unhooked, via the window having the "
          u"following title:\r\n" +
              std::u16string(title)};
}

}  // namespace quilom::shell
