#include "tools/auto_transliteration.hpp"

#include <gtest/gtest.h>

#include "settings/data_folders.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "translit/keymap_file.hpp"
#include "translit/recording_output_sink.hpp"

namespace quilom::tools {
namespace {

class AutoTransliterationTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto folder = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).keymapFolder;
    std::shared_ptr<const translit::PhoneticKeymap> tables;
    ASSERT_EQ(translit::LoadPhoneticKeymap(folder, u"Tamil-Unicode-PhoneticTransliteration", {}, tables),
              translit::LoadOutcome::Loaded);
    engine.SetKeymap(tables);
  }
  std::u16string Convert(std::u16string_view input, AutoTransliterationOptions options = {}) {
    return AutoTransliterate(input, engine, options);
  }

  testing::RecordingOutputSink sink;
  translit::Engine engine{sink};
};

TEST_F(AutoTransliterationTest, ConvertsLatinWordsAndCopiesTheRest) {
  const std::pair<std::u16string_view, std::u16string_view> rows[] = {
      {u"vaNakkam thamizh", u"வணக்கம் தமிழ்"},
      {u"vaNakkam 123", u"வணக்கம் 123"},
      {u"2nd (vaNakkam) #1 தமிழ் é", u"2nd (vaNakkam) #1 தமிழ் é"},
      {u"Sri Eri", u"ஸ்ரீ ஏரி"},
      {u"  ka  \t kaa  ", u"  க  \t கா  "},
      {u"a\r\nka\nki\r\n", u"அ\r\nக\nகி\r\n"},
  };
  for (const auto& [input, expected] : rows) {
    EXPECT_EQ(Convert(input), expected) << text::Utf16ToUtf8(input);
  }
}

TEST_F(AutoTransliterationTest, EmptyInputGivesNothing) { EXPECT_EQ(Convert(u""), u""); }

TEST_F(AutoTransliterationTest, XBeforeADigitStaysAsTyped) {
  EXPECT_EQ(Convert(u"x1 x9y xa"), u"x1 x9ய் க்ஷ");
  // Only the words that hold "x" and the digit are rewritten.
  EXPECT_EQ(Convert(u"ksh1 x1"), u"க்ஷ்1 x1");
}

TEST_F(AutoTransliterationTest, BackQuotedTextIsKeptWhenAsked) {
  AutoTransliterationOptions keep;
  keep.keepBackQuoted = true;
  EXPECT_EQ(Convert(u"`vaNakkam ka` vaNakkam`ka`", keep), u"`vaNakkam ka` வணக்கம்`ka`");
  EXPECT_EQ(Convert(u"`ka", keep), u"`ka");
  EXPECT_EQ(Convert(u"ka `ka`"), u"க `ka`");
}

TEST_F(AutoTransliterationTest, NothingReachesTheSinkAndLiveTypingStartsAfresh) {
  engine.ProcessKey(u'k');
  sink.edits.clear();
  EXPECT_EQ(Convert(u"vaNakkam thamizh"), u"வணக்கம் தமிழ்");
  EXPECT_TRUE(sink.edits.empty());
  EXPECT_EQ(sink.OutputSuppressed(), 0);
  EXPECT_EQ(engine.TypedLength(), 0);
  EXPECT_EQ(engine.CurrentOutput(), u"");
  engine.ProcessKey(u'a');
  EXPECT_EQ(sink.edits, (std::vector<translit::Edit>{{0, u"அ"}}));
}

TEST_F(AutoTransliterationTest, ProgressClimbsToOneHundred) {
  std::vector<int> seen;
  AutoTransliterate(u"ka ki ku kee 12", engine, {}, [&](int p) { seen.push_back(p); });
  ASSERT_EQ(seen.size(), 5u);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
  EXPECT_EQ(seen.front(), 25);
  EXPECT_EQ(seen.back(), 100);
  seen.clear();
  AutoTransliterate(u"ka", engine, {}, [&](int p) { seen.push_back(p); });
  EXPECT_EQ(seen, std::vector<int>{100});
}

}  // namespace
}  // namespace quilom::tools
