#pragma once

#include <optional>

// The character a key gives on a US English keyboard, which is what the keymaps are written
// against whatever layout the user has: the typist thinks in English key positions.
namespace quilom::shell {

// Letters, space, top-row and numeric-pad digits and the OEM punctuation keys, with Shift
// applied. Any other key, and 0xDF (no character on a US keyboard), gives 0. Caps Lock is
// deliberately ignored: the phonetic keymaps give capitals their own meaning.
char16_t UsKeyCharacter(int vk, bool shift);

struct UsKey {
  int vk = 0;
  bool shift = false;
};

// The key, and whether Shift is down, that gives `ch` on a US keyboard (a digit comes from the
// top row); nothing for a character no key gives.
std::optional<UsKey> UsKeyFor(char16_t ch);

}  // namespace quilom::shell
