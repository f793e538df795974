#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "cli/command.hpp"
#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "translit/typing_settings.hpp"

namespace quilom::cli {
namespace {

struct Run {
  int status;
  std::string out, err;
};

Run Translit(std::vector<std::string> words, const std::string& input = "",
             const std::filesystem::path& dataRoot = testing::SourceDataRoot()) {
  std::vector<std::string> args = {"--data", dataRoot.string(), "translit"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

TEST(TranslitCommand, TypesStandardInputOrAFileThroughTheTamilKeymap) {
  const auto run = Translit({}, "vaNakkam thamizh\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "வணக்கம் தமிழ்\n");
  testing::TempFolder folder;
  testing::WriteBytes(folder / "in.txt", "amma appaa\n");
  const auto fromFile = Translit({(folder / "in.txt").string()});
  EXPECT_EQ(fromFile.status, 0) << fromFile.err;
  EXPECT_EQ(fromFile.out, "அம்ம அப்பா\n");
}

TEST(TranslitCommand, KeepsLineBreaksAndDropsTheByteOrderMark) {
  const auto run = Translit({"--keymap", "Tamil-Unicode-PhoneticTransliteration"}, "\xEF\xBB\xBFka\r\n\r\nki 12\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "க\r\n\r\nகி 12\n");
}

struct SampleRow {
  std::string keys;
  std::string text;
};

// The table beside this file: keymap, keys, text; several rows per keymap keep their order.
std::multimap<std::string, SampleRow> SampleWords() {
  std::multimap<std::string, SampleRow> rows;
  std::ifstream file(std::filesystem::path(QUILOM_SOURCE_DIR) / "tests" / "cli" / "translit_sample_words.tsv");
  std::string line;
  while (std::getline(file, line)) {
    if (line.empty() || line[0] == '#') continue;
    const size_t first = line.find('\t');
    const size_t second = line.find('\t', first + 1);
    if (second == std::string::npos) {
      ADD_FAILURE() << "sample row without three fields: " << line;
      continue;
    }
    rows.emplace(line.substr(0, first), SampleRow{line.substr(first + 1, second - first - 1), line.substr(second + 1)});
  }
  return rows;
}

// Each LFK of the catalogue as delivered, typed through the command as a user runs it: the
// keymap loads under the shipped typing settings with no message and types its sample words.
TEST(TranslitCommand, EveryListedKeymapLoadsQuietlyAndTypesItsSampleWords) {
  const auto samples = SampleWords();
  const auto list = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).mainDataFolder / "inps" /
                    "Settings-Lfks-Original.txt";
  int listed = 0;
  for (const auto& line : text::Split(settings::ReadTextFile(list), u"\r\n")) {
    if (line.empty()) continue;
    ++listed;
    const auto lfk = text::Utf16ToUtf8(line.substr(0, line.find(u' ')));
    const auto [begin, end] = samples.equal_range(lfk);
    if (begin == end) {
      ADD_FAILURE() << lfk << " has no sample words";
      continue;
    }
    std::string keys, expected;
    for (auto row = begin; row != end; ++row) {
      keys += row->second.keys + "\n";
      expected += row->second.text + "\n";
    }
    testing::ScopedRecordingReporter reports;
    const auto run = Translit({"--keymap", lfk}, keys);
    EXPECT_EQ(run.status, 0) << lfk;
    EXPECT_EQ(run.err, "") << lfk;
    EXPECT_TRUE(reports->messages.empty()) << lfk;
    EXPECT_EQ(run.out, expected) << lfk;
  }
  EXPECT_GT(listed, 0) << "empty list " << list;
}

// A data root of its own: the typing settings and a user's own scheme steer what loads.
TEST(TranslitCommand, LoadsWhatTheTypingSettingsAndTheUsersOwnSchemeSay) {
  testing::TempFolder root;
  const auto folders = settings::DataFolders::ForDataRoot(root.path());
  const auto shipped = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).keymapFolder;
  const std::filesystem::path tamil99 = "QuilomPlus-Tamil-Unicode-TamilNet99.xml";
  std::filesystem::create_directories(folders.keymapFolder / "ConsecutiveAgaraUyirmeys-0");
  for (const auto& file : {tamil99, "ConsecutiveAgaraUyirmeys-0" / tamil99}) {
    std::filesystem::copy_file(shipped / file, folders.keymapFolder / file);
  }
  testing::WriteBytes(folders.keymapFolder / "QuilomPlus-Tamil-Unicode-PhoneticTransliteration-Mine.txt",
                      "my own\r\n<om>n ந</om>\r\n<om>na நா</om>\r\n");

  EXPECT_EQ(Translit({"--keymap", "Tamil-Unicode-TamilNet99"}, "ha", root.path()).out, "க");
  ASSERT_TRUE(translit::WriteTypingSetting(folders, translit::kConsecutiveAgaraKey, false));
  const auto variant = Translit({"--keymap", "Tamil-Unicode-TamilNet99"}, "ha", root.path());
  EXPECT_EQ(variant.out, "கஅ") << variant.err;

  const auto own = Translit({"--keymap", "Tamil-Unicode-PhoneticTransliteration-Mine"}, "na n", root.path());
  EXPECT_EQ(own.status, 0) << own.err;
  EXPECT_EQ(own.out, "நா ந");
}

TEST(TranslitCommand, UnknownOrBrokenKeymapFailsWithAMessage) {
  const auto unknown = Translit({"--keymap", "Klingon"}, "ka");
  EXPECT_NE(unknown.status, 0);
  EXPECT_TRUE(unknown.out.empty());
  EXPECT_NE(unknown.err.find("unknown keymap 'Klingon'"), std::string::npos) << unknown.err;
  EXPECT_NE(unknown.err.find("Tamil-Unicode-PhoneticTransliteration"), std::string::npos) << unknown.err;

  testing::TempFolder root;
  const auto folder = settings::DataFolders::ForDataRoot(root.path()).keymapFolder;
  std::filesystem::create_directories(folder);
  testing::WriteBytes(folder / "QuilomPlus-Broken-Unicode-PhoneticTransliteration.xml", "title\r\n<om>k</om>\r\n");
  const auto broken = Translit({"--keymap", "Broken-Unicode-PhoneticTransliteration"}, "ka", root.path());
  EXPECT_NE(broken.status, 0);
  EXPECT_TRUE(broken.out.empty());
  EXPECT_NE(broken.err.find("QuilomPlus-Broken-Unicode-PhoneticTransliteration.xml"), std::string::npos) << broken.err;
}

TEST(TranslitCommand, BadArgumentsAndMissingFilesFail) {
  for (const auto& words :
       std::vector<std::vector<std::string>>{{"--bogus"}, {"a.txt", "b.txt"}, {"--keymap"}, {"/no/such/file.txt"}}) {
    const auto run = Translit(words, "ka");
    EXPECT_NE(run.status, 0) << words[0];
    EXPECT_FALSE(run.err.empty()) << words[0];
    EXPECT_TRUE(run.out.empty()) << words[0];
  }
}

}  // namespace
}  // namespace quilom::cli
