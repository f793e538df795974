#include "shell/us_keyboard.hpp"

#include <string_view>

namespace quilom::shell {
namespace {

struct OemKey {
  int vk;
  char16_t plain;
  char16_t shifted;
};

constexpr OemKey kOemKeys[] = {
    {0xBA, u';', u':'},  {0xBB, u'=', u'+'}, {0xBC, u',', u'<'},  {0xBD, u'-', u'_'},
    {0xBE, u'.', u'>'},  {0xBF, u'/', u'?'}, {0xC0, u'`', u'~'},  {0xDB, u'[', u'{'},
    {0xDC, u'\\', u'|'}, {0xDD, u']', u'}'}, {0xDE, u'\'', u'"'},
};

constexpr std::u16string_view kShiftedDigits = u")!@#$%^&*(";

}  // namespace

char16_t UsKeyCharacter(int vk, bool shift) {
  if (vk >= 'A' && vk <= 'Z') return static_cast<char16_t>(shift ? vk : vk - 'A' + 'a');
  if (vk == ' ') return u' ';
  if (vk >= '0' && vk <= '9') return shift ? kShiftedDigits[vk - '0'] : static_cast<char16_t>(vk);
  if (vk >= 0x60 && vk <= 0x69) return static_cast<char16_t>(u'0' + (vk - 0x60));
  for (const OemKey& key : kOemKeys) {
    if (key.vk == vk) return shift ? key.shifted : key.plain;
  }
  return 0;
}

std::optional<UsKey> UsKeyFor(char16_t ch) {
  if (ch >= u'a' && ch <= u'z') return UsKey{ch - u'a' + 'A', false};
  if (ch >= u'A' && ch <= u'Z') return UsKey{ch, true};
  if (ch == u' ') return UsKey{' ', false};
  if (ch >= u'0' && ch <= u'9') return UsKey{ch, false};
  const std::size_t shiftedDigit = kShiftedDigits.find(ch);
  if (shiftedDigit != std::u16string_view::npos) return UsKey{static_cast<int>('0' + shiftedDigit), true};
  for (const OemKey& key : kOemKeys) {
    if (key.plain == ch) return UsKey{key.vk, false};
    if (key.shifted == ch) return UsKey{key.vk, true};
  }
  return std::nullopt;
}

}  // namespace quilom::shell
