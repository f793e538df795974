// The catalogue lists against the keymap files: the lists agree with each other, with the
// installed files and with the language names, and every listed LFK has a current chart.
// (That every listed LFK loads and types its sample words is checked through the command.)
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "keymaps_typist.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::testing {
namespace {

std::filesystem::path InpsFolder() {
  return settings::DataFolders::ForDataRoot(SourceDataRoot()).mainDataFolder / "inps";
}

struct ListRow {
  std::u16string lfk;
  std::u16string number;
};

std::vector<ListRow> ReadList(const std::string& name) {
  std::vector<ListRow> rows;
  for (const auto& line : text::Split(settings::ReadTextFile(InpsFolder() / name), u"\r\n")) {
    if (line.empty()) continue;
    const auto blank = line.find(u' ');
    rows.push_back({std::u16string(line.substr(0, blank)),
                    blank == std::u16string::npos ? u"" : std::u16string(line.substr(blank + 1))});
  }
  return rows;
}

TEST(KeymapCatalogue, OriginalListsEveryInstalledKeymapOnce) {
  const auto original = ReadList("Settings-Lfks-Original.txt");
  std::vector<std::u16string> listed;
  for (const auto& row : original) listed.push_back(row.lfk);
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, translit::InstalledKeymaps(ShippedKeymapFolder()));
  for (size_t i = 0; i < original.size(); ++i) EXPECT_EQ(original[i].number, text::Utf8ToUtf16(std::to_string(i + 1)));
}

TEST(KeymapCatalogue, SortedAndFinalizedHoldTheSameRows) {
  const auto original = ReadList("Settings-Lfks-Original.txt");
  const auto sorted = ReadList("Settings-Lfks-Sorted.txt");
  const auto finalized = ReadList("Settings-Lfks-Finalized.txt");
  auto key = [](const ListRow& r) { return r.lfk + u" " + r.number; };
  std::set<std::u16string> a, b, c;
  for (const auto& r : original) a.insert(key(r));
  for (const auto& r : sorted) b.insert(key(r));
  for (const auto& r : finalized) c.insert(key(r));
  EXPECT_EQ(a, b);
  EXPECT_EQ(a, c);
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end(), [](auto& x, auto& y) { return x.lfk < y.lfk; }));
  ASSERT_FALSE(finalized.empty());
  // Tamil first: no Tamil LFK after another language's.
  const auto firstOther =
      std::find_if(finalized.begin(), finalized.end(), [](auto& r) { return r.lfk.rfind(u"Tamil-", 0) != 0; });
  EXPECT_TRUE(std::none_of(firstOther, finalized.end(), [](auto& r) { return r.lfk.rfind(u"Tamil-", 0) == 0; }));
}

TEST(KeymapCatalogue, LanguageNamesCoverEveryListedLanguage) {
  std::set<std::u16string> names;
  for (const auto& line : text::Split(settings::ReadTextFile(InpsFolder() / "LangNames.txt"), u"\r\n")) {
    if (!line.empty()) names.insert(std::u16string(line));
  }
  EXPECT_EQ(names.size(), 19u);
  for (const auto& row : ReadList("Settings-Lfks-Original.txt")) {
    EXPECT_TRUE(names.count(row.lfk.substr(0, row.lfk.find(u'-')))) << text::Utf16ToUtf8(row.lfk);
  }
}

std::string XmlEscaped(const std::string& text) {
  std::string out;
  for (const char ch : text) {
    switch (ch) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#x27;";
        break;
      default:
        out += ch;
    }
  }
  return out;
}

// A chart is drawn from its keymap; one drawn from an older keymap shows other letters.
TEST(KeymapCatalogue, EveryListedKeymapHasACurrentChart) {
  const auto charts = settings::DataFolders::ForDataRoot(SourceDataRoot()).mainDataFolder / "help" / "charts";
  for (const auto& row : ReadList("Settings-Lfks-Original.txt")) {
    const auto lfk = text::Utf16ToUtf8(row.lfk);
    const std::string svg = ReadBytes(charts / (lfk + ".svg"));
    ASSERT_FALSE(svg.empty()) << lfk << " has no chart";
    KeymapTypist typist(row.lfk);
    for (size_t i = 1; i < typist.tables->phoneticKeys.size(); ++i) {
      const auto& key = typist.tables->phoneticKeys[i];
      const auto typed = typist.Type(key);
      if (key.size() != 1 || typed == key || key[0] == u' ') continue;
      EXPECT_NE(svg.find(">" + XmlEscaped(text::Utf16ToUtf8(typed)) + "<"), std::string::npos)
          << lfk << ": key " << text::Utf16ToUtf8(key);
    }
  }
}

}  // namespace
}  // namespace quilom::testing
