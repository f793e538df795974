#include "tools/reverse_word_list.hpp"

#include <algorithm>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::tools {

bool IsWordListBoundary(char16_t ch) { return ch >= u'\u0009' && ch <= u'\u0B7F'; }

namespace {

// ந that the letter rules would spell "w" when asked for typeable output.
bool HoldsNaOutsideNdh(std::u16string_view tamil) {
  for (size_t pos = tamil.find(u'\u0BA8'); pos != std::u16string_view::npos; pos = tamil.find(u'\u0BA8', pos + 1)) {
    if (tamil.substr(pos + 1, 2) != u"\u0BCD\u0BA4") return true;
  }
  return false;
}

}  // namespace

ReverseWordList ReverseWordList::Parse(std::u16string_view text) {
  ReverseWordList list;
  std::u16string normalised = text::ReplaceAll(text, u"\r\n", u"\n");
  const auto lines = text::Split(normalised, u"\n");
  for (size_t i = 0; i < lines.size(); ++i) {
    std::u16string_view line = lines[i];
    if (!line.empty() && line.front() == u'\uFEFF') line.remove_prefix(1);
    if (line.empty() || line.front() == u'#') continue;
    const size_t blank = line.find(u' ');
    const std::u16string_view tamil = line.substr(0, blank);
    const bool usable = blank != std::u16string_view::npos && !tamil.empty() &&
                        std::none_of(tamil.begin(), tamil.end(), IsWordListBoundary);
    if (!usable) {
      list.badLines_.push_back(i + 1);
      continue;
    }
    list.words_.try_emplace(std::u16string(tamil), Spelling{std::u16string(line.substr(blank + 1)), HoldsNaOutsideNdh(tamil)});
  }
  return list;
}

// Listed words hold no boundary character, so a word stands between boundaries exactly when it
// is a whole run of non-boundary characters: one pass over the runs finds every match.
std::u16string ReverseWordList::Apply(std::u16string_view text, bool typeableNa) const {
  if (words_.empty()) return std::u16string(text);
  std::u16string result;
  result.reserve(text.size());
  size_t pos = 0;
  while (pos < text.size()) {
    if (IsWordListBoundary(text[pos])) {
      result += text[pos++];
      continue;
    }
    size_t end = pos;
    while (end < text.size() && !IsWordListBoundary(text[end])) ++end;
    const std::u16string run(text.substr(pos, end - pos));
    const auto found = words_.find(run);
    const bool use = found != words_.end() && !(typeableNa && found->second.needsTypeableNa);
    result += use ? found->second.latin : run;
    pos = end;
  }
  return result;
}

ReverseWordList LoadReverseWordList(const std::filesystem::path& mainDataFolder) {
  const auto path = mainDataFolder / std::filesystem::path(kReverseWordListFile);
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) {
    ReportError(u"RT-sk", {53, u"ReverseWordList", u"Word list not found: " + path.u16string()});
    return {};
  }
  ReverseWordList list = ReverseWordList::Parse(settings::ReadTextFile(path));
  if (!list.badLines().empty()) {
    std::u16string lines;
    for (size_t line : list.badLines()) {
      if (!lines.empty()) lines += u", ";
      for (char c : std::to_string(line)) lines += static_cast<char16_t>(c);
    }
    ReportError(u"RT-sk", {13, u"ReverseWordList",
                           u"Lines skipped in " + path.u16string() + u" (a Tamil word, one blank, its spelling): " + lines});
  }
  return list;
}

}  // namespace quilom::tools
