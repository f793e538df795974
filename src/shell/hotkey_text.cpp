#include "shell/hotkey_text.hpp"

#include <array>
#include <utility>

#include "text/strings.hpp"

namespace quilom::shell {

namespace {

struct NamedKey {
  std::u16string_view name;
  int vk;
};

constexpr std::array<NamedKey, 21> kNamedKeys = {{
    {u";", 0xBA},       {u"=", 0xBB},        {u",", 0xBC},      {u"-", 0xBD},    {u".", 0xBE},
    {u"/", 0xBF},       {u"`", 0xC0},        {u"[", 0xDB},      {u"\\", 0xDC},   {u"]", 0xDD},
    {u"'", 0xDE},       {u"Space", 0x20},    {u"Insert", 0x2D}, {u"Delete", 0x2E}, {u"Home", 0x24},
    {u"End", 0x23},     {u"PageUp", 0x21},   {u"PageDown", 0x22}, {u"Pause", 0x13}, {u"Left", 0x25},
    {u"Right", 0x27},
}};

constexpr std::array<NamedKey, 2> kArrowKeys = {{{u"Up", 0x26}, {u"Down", 0x28}}};

// A number of one or two decimal digits from `first` to `last`, or -1.
int SmallNumber(std::u16string_view text, int first, int last) {
  if (text.empty() || text.size() > 2 || text[0] == u'0') return -1;
  int value = 0;
  for (const char16_t c : text) {
    if (c < u'0' || c > u'9') return -1;
    value = value * 10 + (c - u'0');
  }
  return value >= first && value <= last ? value : -1;
}

std::optional<ParsedHotkey> ParseKeyWord(std::u16string_view word) {
  if (word.size() == 1 && ((word[0] >= u'A' && word[0] <= u'Z') || (word[0] >= u'0' && word[0] <= u'9')))
    return ParsedHotkey{0, static_cast<int>(word[0]), HotkeyKeyKind::Character};
  if (word.size() > 1 && word[0] == u'F') {
    const int n = SmallNumber(word.substr(1), 1, 24);
    if (n > 0) return ParsedHotkey{0, 0x70 + n - 1, HotkeyKeyKind::FunctionKey};
  }
  if (word.size() == 4 && word.substr(0, 3) == u"Num" && word[3] >= u'0' && word[3] <= u'9')
    return ParsedHotkey{0, 0x60 + (word[3] - u'0'), HotkeyKeyKind::Other};
  for (const auto& key : kNamedKeys) {
    if (key.name != word) continue;
    const bool character = key.vk >= 0xBA || key.vk == 0x20;
    return ParsedHotkey{0, key.vk, character ? HotkeyKeyKind::Character : HotkeyKeyKind::Other};
  }
  for (const auto& key : kArrowKeys)
    if (key.name == word) return ParsedHotkey{0, key.vk, HotkeyKeyKind::Other};
  return std::nullopt;
}

unsigned ModifierOf(std::u16string_view word) {
  if (word == u"Ctrl") return kModControl;
  if (word == u"Alt") return kModAlt;
  if (word == u"Shift") return kModShift;
  if (word == u"Win") return kModWin;
  return 0;
}

std::vector<std::u16string> HotkeyWords(std::u16string_view text) { return text::Split(text, u"+"); }

std::u16string Number(int n) {
  std::u16string digits;
  do {
    digits.insert(digits.begin(), static_cast<char16_t>(u'0' + n % 10));
    n /= 10;
  } while (n > 0);
  return digits;
}

int PrimaryVkOf(std::u16string_view text) {
  for (const auto& word : HotkeyWords(text)) {
    switch (ModifierOf(word)) {
      case kModControl: return 0xA2;
      case kModAlt: return 0xA4;
      case kModShift: return 0xA0;
      case kModWin: return 0x5B;
      default: break;
    }
  }
  return 0;
}

}  // namespace

std::optional<ParsedHotkey> ParseHotkeyText(std::u16string_view text) {
  const std::vector<std::u16string> words = HotkeyWords(text);
  ParsedHotkey result;
  bool haveKey = false;
  for (const auto& word : words) {
    const unsigned modifier = ModifierOf(word);
    if (modifier != 0) {
      if ((result.modifiers & modifier) != 0 || haveKey) return std::nullopt;
      result.modifiers |= modifier;
      continue;
    }
    const auto key = ParseKeyWord(word);
    if (!key || haveKey) return std::nullopt;
    result.vk = key->vk;
    result.kind = key->kind;
    haveKey = true;
  }
  if (!haveKey) return std::nullopt;
  return result;
}

HotkeyCodes HotkeyCodesOf(std::u16string_view text) {
  HotkeyCodes codes;
  const auto parsed = ParseHotkeyText(text);
  if (!parsed) return codes;
  codes.PrimaryHotkeyVk = PrimaryVkOf(text);
  if (parsed->kind != HotkeyKeyKind::Character) codes.SecondaryHotkeyVk1 = parsed->vk;
  return codes;
}

std::vector<std::u16string> OfferedHotkeyTexts() {
  std::vector<std::u16string> texts{u"None"};
  for (int n = 1; n <= 12; ++n) texts.push_back(u"F" + Number(n));
  for (const std::u16string_view prefix : {u"Alt+", u"Ctrl+", u"Win+", u"Ctrl+Alt+", u"Ctrl+Shift+", u"Alt+Shift+"})
    for (int n = 1; n <= 12; ++n) texts.push_back(std::u16string(prefix) + u"F" + Number(n));
  for (const std::u16string_view prefix : {u"Ctrl+Alt+", u"Ctrl+Shift+", u"Alt+Shift+"})
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) texts.push_back(std::u16string(prefix) + letter);
  return texts;
}

}  // namespace quilom::shell
