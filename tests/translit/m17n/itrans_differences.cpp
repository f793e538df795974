#include "itrans_differences.hpp"

#include <regex>

#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::testing {
namespace {

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  for (const auto& field : text::Split(text::Utf8ToUtf16(line), u"\t")) fields.push_back(text::Utf16ToUtf8(field));
  return fields;
}

std::optional<LanguageDifferences> SectionHeader(const std::string& line, std::string& language) {
  static const std::regex header(R"(^\[([A-Za-z]+)\] ([a-z]+-itrans): (\d+) words of aspell-[a-z]+, (\d+) differ)");
  std::smatch m;
  if (!std::regex_search(line, m, header)) return std::nullopt;
  language = m[1];
  LanguageDifferences section;
  section.method = m[2];
  section.words = std::stoul(m[3]);
  section.differing = std::stoul(m[4]);
  return section;
}

std::optional<ListedDifference> Row(const std::string& line) {
  const auto fields = Fields(line);
  if (fields.size() != 5) return std::nullopt;
  ListedDifference row{fields[0], fields[1], fields[2], ListedDifference::Kind::Text, "", "", {}, fields[4], 0};
  const std::string& rule = fields[3];
  const auto arrow = rule.find(" > ");
  if (rule.rfind("none ", 0) == 0) {
    row.kind = ListedDifference::Kind::None;
    row.from = rule.substr(5);
  } else if ((rule.rfind("keys ", 0) == 0 || rule.rfind("text ", 0) == 0) && arrow != std::string::npos) {
    row.kind = rule[0] == 'k' ? ListedDifference::Kind::Keys : ListedDifference::Kind::Text;
    row.from = rule.substr(5, arrow - 5);
    row.to = rule.substr(arrow + 3);
  } else {
    return std::nullopt;
  }
  try {
    if (row.kind != ListedDifference::Kind::Text) row.keysPattern = std::regex(row.from);
  } catch (const std::regex_error&) {
    return std::nullopt;
  }
  return row;
}

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
  if (from == "$") return text + to;
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

bool Applies(const ListedDifference& row, const std::string& keys) {
  return row.kind == ListedDifference::Kind::Text || std::regex_search(keys, row.keysPattern);
}

bool Agree(const std::vector<ListedDifference>& rows, const std::vector<size_t>& chosen, std::string keys,
           const std::string& ours, const M17nTyping& m17n) {
  using Kind = ListedDifference::Kind;
  for (const size_t i : chosen) {
    if (rows[i].kind == Kind::None) return true;
    if (rows[i].kind == Kind::Keys) keys = std::regex_replace(keys, rows[i].keysPattern, rows[i].to);
  }
  std::string text = m17n(keys);
  for (const size_t i : chosen) {
    if (rows[i].kind == Kind::Text) text = ReplaceAll(text, rows[i].from, rows[i].to);
  }
  return text == ours;
}

// Calls `tryChoice` with every choice of `size` of the candidates, in order, until it says yes.
bool Choose(const std::vector<size_t>& candidates, size_t size, size_t from, std::vector<size_t>& chosen,
            const std::function<bool(const std::vector<size_t>&)>& tryChoice) {
  if (chosen.size() == size) return tryChoice(chosen);
  for (size_t i = from; i < candidates.size(); ++i) {
    chosen.push_back(candidates[i]);
    if (Choose(candidates, size, i + 1, chosen, tryChoice)) return true;
    chosen.pop_back();
  }
  return false;
}

}  // namespace

std::map<std::string, LanguageDifferences> ReadListedDifferences(const std::filesystem::path& notes,
                                                                 std::vector<std::string>& problems) {
  std::map<std::string, LanguageDifferences> sections;
  LanguageDifferences* current = nullptr;
  int number = 0;
  for (const auto& line16 : text::Split(settings::ReadTextFile(notes), u"\r\n")) {
    const std::string line = text::Utf16ToUtf8(line16);
    ++number;
    std::string language;
    if (auto header = SectionHeader(line, language)) {
      current = &(sections[language] = *header);
    } else if (line.find('\t') != std::string::npos) {
      auto row = Row(line);
      if (!row || !current) {
        problems.push_back("line " + std::to_string(number) + ": " + line);
        continue;
      }
      row->line = number;
      current->rows.push_back(*row);
    }
  }
  return sections;
}

std::optional<std::vector<size_t>> Explain(const std::vector<ListedDifference>& rows, const std::string& keys,
                                           const std::string& ours, const M17nTyping& m17n) {
  std::vector<size_t> candidates;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (Applies(rows[i], keys)) candidates.push_back(i);
  }
  std::vector<size_t> chosen;
  const auto agree = [&](const std::vector<size_t>& choice) { return Agree(rows, choice, keys, ours, m17n); };
  for (size_t size = 1; size <= 4 && size <= candidates.size(); ++size) {
    if (Choose(candidates, size, 0, chosen, agree)) return chosen;
  }
  return std::nullopt;
}

}  // namespace quilom::testing
