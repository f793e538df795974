#include "shell/hotkey_check.hpp"

namespace quilom::shell {

namespace {

constexpr std::u16string_view kTriedEnding = u"' being the hotkey tried by you to be set, in this case).";

HotkeyCheckResult Refuse(std::u16string message) {
  HotkeyCheckResult result;
  result.message = std::move(message);
  return result;
}

std::u16string CharacterRuleBroken(const ParsedHotkey& hotkey, std::u16string_view text) {
  if (hotkey.kind != HotkeyKeyKind::Character) return {};
  if (hotkey.modifiers == kModShift)
    return u"You shall not try to set any such combination of 'Shift+[Alphabet/Numeral/Punctuation]' as your "
           u"hotkey ('" +
           std::u16string(text) + std::u16string(kTriedEnding);
  if (hotkey.modifiers == 0)
    return u"You shall not try to set any such solitary character [Alphabet/Numeral/Punctuation] as your hotkey "
           u"('" +
           std::u16string(text) + std::u16string(kTriedEnding);
  return {};
}

}  // namespace

HotkeyCheckResult CheckHotkey(std::u16string_view hotkeyText, HotkeyAvailability& availability) {
  if (hotkeyText == u"None") return {HotkeyVerdict::Cleared, {}, {}};
  const auto parsed = ParseHotkeyText(hotkeyText);
  if (!parsed) return Refuse(std::u16string(hotkeyText) + u" is not a valid hotkey. Choose some other hotkey.");
  std::u16string broken = CharacterRuleBroken(*parsed, hotkeyText);
  if (!broken.empty()) return Refuse(std::move(broken));
  if (!availability.Register(parsed->modifiers, parsed->vk))
    return Refuse(u"Unable to register this hotkey (" + std::u16string(hotkeyText) +
                  u"). It is probably already registered - EITHER by your operating system OR by some other "
                  u"application.\r\nHence, choose a different hotkey.");
  if (!availability.Unregister())
    return Refuse(u"Unable to unregister the present hotkey. Please try again at a later time.");
  return {HotkeyVerdict::Accepted, {}, HotkeyCodesOf(hotkeyText)};
}

}  // namespace quilom::shell
