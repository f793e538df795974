#include "keymap_speller.hpp"

#include <algorithm>
#include <limits>

namespace quilom::testing {

KeymapSpeller::KeymapSpeller(const translit::PhoneticKeymap& keymap, TypeKeys type, std::uint32_t seed)
    : type_(std::move(type)), random_(seed) {
  for (size_t i = 1; i < keymap.phoneticKeysRaw.size(); ++i) {
    const std::u16string& output = keymap.phoneticOutputsWide[i];
    if (output.empty()) continue;
    auto& pieces = piecesByFirst_[output[0]];
    auto it = std::find_if(pieces.begin(), pieces.end(), [&](const Piece& p) { return p.output == output; });
    if (it == pieces.end()) it = pieces.insert(pieces.end(), Piece{output, {}});
    it->keys.push_back(keymap.phoneticKeysRaw[i]);
  }
}

std::vector<const KeymapSpeller::Piece*> KeymapSpeller::Cut(std::u16string_view word) const {
  constexpr int kNone = std::numeric_limits<int>::max();
  // fewest[p]: the fewest pieces that make up word[p..]; next[p]: the first of them.
  std::vector<int> fewest(word.size() + 1, kNone);
  std::vector<const Piece*> next(word.size() + 1, nullptr);
  fewest[word.size()] = 0;
  for (size_t p = word.size(); p-- > 0;) {
    const auto found = piecesByFirst_.find(word[p]);
    if (found == piecesByFirst_.end()) continue;
    for (const Piece& piece : found->second) {
      const size_t end = p + piece.output.size();
      if (end > word.size() || word.compare(p, piece.output.size(), piece.output) != 0 || fewest[end] == kNone) {
        continue;
      }
      if (fewest[end] + 1 < fewest[p]) {
        fewest[p] = fewest[end] + 1;
        next[p] = &piece;
      }
    }
  }
  std::vector<const Piece*> pieces;
  if (fewest[0] == kNone) return pieces;
  for (size_t p = 0; p < word.size(); p += next[p]->output.size()) pieces.push_back(next[p]);
  return pieces;
}

std::u16string KeymapSpeller::ChooseKey(const Piece& piece, const std::u16string& keysSoFar, std::u16string_view wanted,
                                        bool last) {
  std::vector<std::u16string> candidates = piece.keys;
  // ".h" shows a virama that nothing follows: inside a word a typist types the consonant alone.
  const auto halant = [](const std::u16string& key) { return key.size() > 2 && key.ends_with(u".h"); };
  if (!last && !std::all_of(candidates.begin(), candidates.end(), halant)) std::erase_if(candidates, halant);
  for (size_t i = candidates.size(); i > 1; --i) std::swap(candidates[i - 1], candidates[random_() % i]);
  for (const auto& key : candidates) {
    if (type_(keysSoFar + key) == wanted) return key;
  }
  return candidates.front();
}

std::optional<std::u16string> KeymapSpeller::Keys(std::u16string_view word) {
  const auto pieces = Cut(word);
  if (pieces.empty()) return std::nullopt;
  std::u16string keys;
  size_t covered = 0;
  for (const Piece* piece : pieces) {
    covered += piece->output.size();
    keys += ChooseKey(*piece, keys, word.substr(0, covered), covered == word.size());
  }
  return keys;
}

}  // namespace quilom::testing
