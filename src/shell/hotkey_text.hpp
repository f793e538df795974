#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/typing_front_state.hpp"

// Hotkey texts as the hotkey list shows them and "Present Hotkey" stores them: modifier words
// and one key joined by "+" ("Alt+F12", "Ctrl+Shift+T", "F9"), or "None". Words are matched
// exactly, case and all.
namespace quilom::shell {

// RegisterHotKey's modifier flags.
inline constexpr unsigned kModAlt = 0x1;
inline constexpr unsigned kModControl = 0x2;
inline constexpr unsigned kModShift = 0x4;
inline constexpr unsigned kModWin = 0x8;

enum class HotkeyKeyKind { FunctionKey, Character, Other };

struct ParsedHotkey {
  unsigned modifiers = 0;  // kMod* flags
  int vk = 0;              // the one non-modifier key
  HotkeyKeyKind kind = HotkeyKeyKind::Other;
};

// Parses a hotkey text. Empty when the text names no known key: an unknown word, no key, two
// keys, a modifier given twice, or "None" (which is no hotkey at all).
//
// Keys known: "F1"-"F24"; "A"-"Z"; "0"-"9"; the punctuation characters of a US keyboard
// (";", "=", ",", "-", ".", "/", "`", "[", "\", "]", "'"); "Space"; "Insert", "Delete",
// "Home", "End", "PageUp", "PageDown", "Up", "Down", "Left", "Right", "Pause", "Num0"-"Num9".
// Letters, digits, punctuation and "Space" are characters: they type.
std::optional<ParsedHotkey> ParseHotkeyText(std::u16string_view text);

// The key codes the hook pipeline watches for an accepted hotkey. Decisions of ours:
// - PrimaryHotkeyVk is the left-hand key of the first modifier in the text (Ctrl 0xA2,
//   Alt 0xA4, Shift 0xA0, Win 0x5B); 0 when the hotkey has no modifier.
// - SecondaryHotkeyVk1 is the hotkey's own key when it is not a character key (a character
//   key must keep typing while typing is on). SecondaryHotkeyVk2 stays 0: a hotkey text holds
//   one key only.
// "None" and texts that do not parse give all zeros.
HotkeyCodes HotkeyCodesOf(std::u16string_view text);

// The texts offered in `cmbHotkeys`, in order: "None", then "F1"-"F12" alone, then each of
// "Alt+", "Ctrl+", "Win+", "Ctrl+Alt+", "Ctrl+Shift+", "Alt+Shift+" with F1-F12, then
// "Ctrl+Alt+", "Ctrl+Shift+" and "Alt+Shift+" with the letters A-Z.
std::vector<std::u16string> OfferedHotkeyTexts();

}  // namespace quilom::shell
