#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "cli/command.hpp"
#include "settings/data_folders.hpp"
#include "settings/text_file.hpp"
#include "shell/hooked_key_processor.hpp"
#include "shell/key_classes.hpp"
#include "shell/us_keyboard.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_resolution.hpp"
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

// The typing path as the program puts it together: each character becomes the key that gives
// it on a US keyboard (found by asking the keyboard table about every key), the key goes
// through the hook's key processor into the engine, Enter ends the composition, and what the
// engine erases and types lands in an edit box.
class LiveTyping {
 public:
  explicit LiveTyping(const std::string& keymap) : engine_(screen_), processor_(state_, engine_) {
    for (int shift = 0; shift <= 1; ++shift) {
      for (int vk = 1; vk < 256; ++vk) {
        const char16_t ch = shell::UsKeyCharacter(vk, shift == 1);
        if (ch != 0 && !keys_.count(ch)) keys_[ch] = {shift, vk};
      }
    }
    const auto folders = settings::DataFolders::ForDataRoot(testing::SourceDataRoot());
    const auto typing = translit::LoadTypingSettings(folders);
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    const std::u16string scheme = text::Utf8ToUtf16(keymap);
    EXPECT_EQ(translit::LoadKeymapForSettings(folders, typing, scheme, tables, {}), translit::LoadOutcome::Loaded);
    engine_.SetKeymap(tables);
    engine_.SetSettings(translit::EngineSettingsFor(typing, scheme));
  }

  std::string Type(const std::string& utf8) {
    for (const char16_t ch : text::Utf8ToUtf16(utf8)) {
      if (ch == u'\n') {
        processor_.ProcessHookedKey(0, shell::kVkReturn);
        screen_.text += ch;
      } else if (const auto key = keys_.find(ch); key != keys_.end()) {
        processor_.ProcessHookedKey(key->second.first, key->second.second);
      } else {
        processor_.ResetComposition();
        screen_.text += ch;
      }
    }
    return text::Utf16ToUtf8(screen_.text);
  }

 private:
  struct Screen final : translit::OutputSink {
    std::u16string text;
    void Emit(int erase, std::u16string_view typed) override {
      text.erase(text.size() - std::min<std::size_t>(static_cast<std::size_t>(erase), text.size()));
      text += typed;
    }
  };
  Screen screen_;
  translit::Engine engine_;
  shell::TypingFrontState state_;
  shell::HookedKeyProcessor processor_;
  std::map<char16_t, std::pair<int, int>> keys_;
};

// Every listed keymap's sample words, alone and as people write them: after a quote or a
// bracket, before a full stop, and opened by every punctuation key, which some keymaps type
// letters with (Tamil99's ; [ ] ' /, ITRANS's . and ~).
TEST(TranslitCommand, TypesWhatLiveTypingTypesInEveryKeymap) {
  const auto samples = SampleWords();
  std::set<std::string> keymaps;
  for (const auto& [keymap, row] : samples) keymaps.insert(keymap);
  ASSERT_GT(keymaps.size(), 20u);
  for (const std::string& keymap : keymaps) {
    std::string keys;
    for (auto [row, end] = samples.equal_range(keymap); row != end; ++row) {
      const std::string& word = row->second.keys;
      keys += word + "\n\"" + word + "\" (" + word + "). 'x" + word + "\n";
      for (const char punctuation : std::string(";[]'/.~,-=`\\")) keys += std::string(1, punctuation) + word + " ";
      keys += "\n";
    }
    const auto run = Translit({"--keymap", keymap}, keys);
    EXPECT_EQ(run.status, 0) << keymap << ": " << run.err;
    EXPECT_EQ(run.out, LiveTyping(keymap).Type(keys)) << keymap;
  }
}

TEST(TranslitCommand, Tamil99WordsOpeningWithPunctuationKeysAreTyped) {
  const auto run = Translit({"--keymap", "Tamil-Unicode-TamilNet99"}, ";q [q ]q 'q /q (hq)");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "நா சா ஞா யா ழா (கா)");
}

// A run with no blank longer than anything the engine keeps, and a text in one long piece, come
// out whole.
TEST(TranslitCommand, LongRunsAreNeverCut) {
  const auto run = Translit({}, std::string(200000, 'a') + "\nka");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, LiveTyping("Tamil-Unicode-PhoneticTransliteration").Type(std::string(200000, 'a') + "\nka"));
  EXPECT_EQ(text::Utf8ToUtf16(run.out), std::u16string(100000, u'ஆ') + u"\nக");  // "aa" is ஆ
}

TEST(TranslitCommand, GraveAccentsKeepTextAsItStandsOnRequest) {
  EXPECT_EQ(Translit({"--keep-backquoted"}, "ka `ka` ka").out, "க `ka` க");
  EXPECT_EQ(Translit({}, "`ka`").out, LiveTyping("Tamil-Unicode-PhoneticTransliteration").Type("`ka`"));
}

TEST(TranslitCommand, InvalidInputAndFailedWritesSayWhy) {
  const auto invalid = Translit({}, "ka\xFFka");
  EXPECT_EQ(invalid.status, 1);
  EXPECT_NE(invalid.err.find("not valid UTF-8: the byte at offset 2"), std::string::npos) << invalid.err;
  const auto folder = Translit({"/"});
  EXPECT_NE(folder.err.find("Is a directory"), std::string::npos) << folder.err;
  const auto missing = Translit({"/no/such/file.txt"});
  EXPECT_NE(missing.err.find("No such file or directory"), std::string::npos) << missing.err;
}

// The keymaps that type straight into a legacy font are the phonetic keymap passed through the
// converter's tables: what they type reads back, through the converter, as the phonetic keymap's
// Unicode (so a fix to a table that is not carried into its keymap fails here).
TEST(TranslitCommand, LegacyFontKeymapsTypeWhatTheConverterReadsBack) {
  const std::string words = "vaNakkam thamizh pongkal thangkam kooyil veLLi gnaanam sri aayutham kshEththiram";
  const std::string unicode = Translit({}, words).out;
  for (const char* encoding : {"Bamini", "Tscii", "Tab", "Tam", "Stmzh", "Shreelipi"}) {
    const auto typed = Translit({"--keymap", std::string("Tamil-") + encoding + "-PhoneticTransliteration"}, words);
    ASSERT_EQ(typed.status, 0) << encoding << typed.err;
    const std::u16string glyphs = text::Utf8ToUtf16(typed.out);
    EXPECT_EQ(std::count_if(glyphs.begin(), glyphs.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; }), 0)
        << encoding << " keymap leaves Unicode Tamil in: " << typed.out;
    std::vector<std::string> args = {
        "--data",       testing::SourceDataRoot().string(), "convert", "--from", encoding, "--to", "Unicode",
        "--legacy-text"};
    std::istringstream in(typed.out);
    std::ostringstream out, err;
    EXPECT_EQ(RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false), 0) << err.str();
    EXPECT_EQ(out.str(), unicode) << encoding;
  }
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
  for (const auto& words : std::vector<std::vector<std::string>>{{"--bogus"}, {"--keymap"}, {"/no/such/file.txt"}}) {
    const auto run = Translit(words, "ka");
    EXPECT_NE(run.status, 0) << words[0];
    EXPECT_FALSE(run.err.empty()) << words[0];
    EXPECT_TRUE(run.out.empty()) << words[0];
  }
}

}  // namespace
}  // namespace quilom::cli
