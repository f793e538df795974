#include "shell/script_faces.hpp"

#include <algorithm>
#include <array>

namespace quilom::shell {

namespace {

struct ScriptBlock {
  char32_t first;
  char32_t last;
  std::u16string_view name;
  std::u16string_view windowsFace;  // the script's own older Windows face
};

constexpr std::array<ScriptBlock, 10> kBlocks = {{
    {0x0370, 0x03FF, u"Greek", u""},
    {0x0900, 0x097F, u"Devanagari", u"Mangal"},
    {0x0980, 0x09FF, u"Bengali", u"Vrinda"},
    {0x0A00, 0x0A7F, u"Gurmukhi", u"Raavi"},
    {0x0A80, 0x0AFF, u"Gujarati", u"Shruti"},
    {0x0B00, 0x0B7F, u"Oriya", u"Kalinga"},
    {0x0B80, 0x0BFF, u"Tamil", u"Latha"},
    {0x0C00, 0x0C7F, u"Telugu", u"Gautami"},
    {0x0C80, 0x0CFF, u"Kannada", u"Tunga"},
    {0x0D00, 0x0D7F, u"Malayalam", u"Kartika"},
}};

const ScriptBlock* BlockOf(char32_t letter) {
  for (const ScriptBlock& block : kBlocks)
    if (letter >= block.first && letter <= block.last) return &block;
  return nullptr;
}

bool Contains(std::u16string_view face, std::u16string_view word) {
  return !word.empty() && face.find(word) != std::u16string_view::npos;
}

// Lower is tried sooner.
int Rank(const std::u16string& face, const ScriptBlock* block) {
  if (block == nullptr) return 6;
  const bool indic = block->first >= 0x0900;
  if (indic && face == u"Nirmala UI") return 0;
  if (face == block->windowsFace) return 1;
  if (Contains(face, block->name)) {
    if (Contains(face, u" UI")) return 2;
    if (Contains(face, u"Sans")) return 3;
    return 4;
  }
  return 6;
}

}  // namespace

std::u16string_view ScriptNameOf(char32_t letter) {
  const ScriptBlock* block = BlockOf(letter);
  return block != nullptr ? block->name : std::u16string_view();
}

std::vector<std::u16string> FaceCandidates(char32_t letter, const std::vector<std::u16string>& installed) {
  std::vector<std::u16string> faces;
  for (const std::u16string& face : installed) {
    if (face.empty() || face.front() == u'@') continue;
    if (std::find(faces.begin(), faces.end(), face) == faces.end()) faces.push_back(face);
  }
  const ScriptBlock* block = BlockOf(letter);
  std::stable_sort(faces.begin(), faces.end(), [block](const std::u16string& a, const std::u16string& b) {
    const int rankA = Rank(a, block);
    const int rankB = Rank(b, block);
    return rankA != rankB ? rankA < rankB : (rankA == 6 && a < b);
  });
  return faces;
}

}  // namespace quilom::shell
