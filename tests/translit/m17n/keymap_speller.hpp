#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "translit/phonetic_keymap.hpp"

namespace quilom::testing {

// Spells a word as keys by walking a keymap backwards: the word is cut into the fewest
// outputs of the keymap's entries, and each piece is spelt by one of the keys that give it,
// chosen at random (seeded) so that every spelling a keymap offers gets typed. Where keys
// run together into another key ("ka" + "i" is "kai"), the next candidate key is taken, as
// a typist would; `type` tells what a run of keys gives.
class KeymapSpeller {
 public:
  using TypeKeys = std::function<std::u16string(std::u16string_view keys)>;

  KeymapSpeller(const translit::PhoneticKeymap& keymap, TypeKeys type, std::uint32_t seed);

  // Keys for `word`, or nothing when the keymap's outputs cannot make it up. The keys need
  // not type the word back: when no choice of keys does, the first candidates are kept.
  std::optional<std::u16string> Keys(std::u16string_view word);

 private:
  struct Piece {
    std::u16string output;
    std::vector<std::u16string> keys;  // in the file's order
  };

  std::vector<const Piece*> Cut(std::u16string_view word) const;
  std::u16string ChooseKey(const Piece& piece, const std::u16string& keysSoFar, std::u16string_view wanted, bool last);

  std::unordered_map<char16_t, std::vector<Piece>> piecesByFirst_;
  TypeKeys type_;
  std::mt19937 random_;
};

}  // namespace quilom::testing
