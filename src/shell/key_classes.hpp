#pragma once

// The classes of virtual keys that the hook pipeline tells apart.
namespace quilom::shell {

inline constexpr int kVkBack = 0x08;
inline constexpr int kVkTab = 0x09;
inline constexpr int kVkReturn = 0x0D;
inline constexpr int kVkShift = 0x10;
inline constexpr int kVkControl = 0x11;
inline constexpr int kVkMenu = 0x12;
inline constexpr int kVkLWin = 0x5B;
inline constexpr int kVkRWin = 0x5C;

// The signal handed to ProcessHookedKey in place of a key when the composition is broken.
inline constexpr int kResetSignal = 1;

enum class KeyClass {
  LetterSpace,  // 'A'-'Z', space
  Punctuation,  // OEM keys 0xBA-0xC0, 0xDB-0xDF
  Digit,        // top-row '0'-'9'
  Modifier,     // left/right Shift, Ctrl, Alt, Windows keys
  TabEnter,
  NumpadDigit,  // 0x60-0x69
  Other,
};

KeyClass ClassifyKey(int vk);

// Letters, space, punctuation and digits: the keys that type.
bool IsTypingClass(KeyClass keyClass);

bool IsAltKey(int vk);      // 0xA4, 0xA5
bool IsWindowsKey(int vk);  // 0x5B, 0x5C

}  // namespace quilom::shell
