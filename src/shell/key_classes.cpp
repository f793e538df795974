#include "shell/key_classes.hpp"

namespace quilom::shell {

KeyClass ClassifyKey(int vk) {
  if ((vk >= 'A' && vk <= 'Z') || vk == ' ') return KeyClass::LetterSpace;
  if ((vk >= 0xBA && vk <= 0xC0) || (vk >= 0xDB && vk <= 0xDF)) return KeyClass::Punctuation;
  if (vk >= '0' && vk <= '9') return KeyClass::Digit;
  if ((vk >= 0xA0 && vk <= 0xA5) || IsWindowsKey(vk)) return KeyClass::Modifier;
  if (vk == kVkTab || vk == kVkReturn) return KeyClass::TabEnter;
  if (vk >= 0x60 && vk <= 0x69) return KeyClass::NumpadDigit;
  return KeyClass::Other;
}

bool IsTypingClass(KeyClass keyClass) {
  return keyClass == KeyClass::LetterSpace || keyClass == KeyClass::Punctuation || keyClass == KeyClass::Digit;
}

bool IsAltKey(int vk) { return vk == 0xA4 || vk == 0xA5; }
bool IsWindowsKey(int vk) { return vk == kVkLWin || vk == kVkRWin; }

}  // namespace quilom::shell
