// What a legacy encoding cannot hold, found from its tables, and what each policy does with it.
// The small tables follow a font of Bamini's kind: letters and signs on ASCII keys, ";" the
// pulli, "," the letter இ, and the comma moved to ">", where the font draws one.

#include "converter/unmappable_characters.hpp"

#include <gtest/gtest.h>

#include "converter/pair_replacer.hpp"
#include "support/temp_folder.hpp"

namespace quilom::converter {
namespace {

const std::vector<TablePair> kReading = {{u">", u","}, {u",", u"இ"}, {u"f", u"க"}, {u"h", u"ா"}, {u";", u"்"}};
const std::vector<TablePair> kWriting = {{u",", u">"}, {u"இ", u","}, {u"க", u"f"}, {u"ா", u"h"}, {u"்", u";"}};

struct Converted {
  std::u16string text;
  UnmappableFindings findings;
};

Converted Write(std::u16string_view unicode, UnmappablePolicy policy, bool storedAsBytes = true,
                char16_t replacement = u'?') {
  const LegacyRepertoire repertoire(kReading, kWriting, storedAsBytes);
  UnmappableGuard guard(repertoire, policy, replacement);
  const std::u16string source = guard.PrepareSource(unicode);
  PairReplacer writer(kWriting);
  std::u16string written = guard.FinishWritten(writer.Apply(source), source);
  return {written, guard.Findings()};
}

TEST(LegacyRepertoire, HoldsWhatPassesUnreadOrHasAPositionOfItsOwn) {
  const LegacyRepertoire bytes(kReading, kWriting, true);
  EXPECT_TRUE(bytes.CanHold(u'.'));   // no glyph there
  EXPECT_TRUE(bytes.CanHold(u','));   // written at the font's own comma
  EXPECT_FALSE(bytes.CanHold(u';'));  // the pulli's glyph code
  EXPECT_FALSE(bytes.CanHold(u'க'));  // Tamil is the table's to write
  EXPECT_FALSE(bytes.CanHold(u'₹'));  // no byte shows it
  EXPECT_TRUE(LegacyRepertoire(kReading, kWriting, false).CanHold(u'₹'));
  EXPECT_TRUE(bytes.IsLeftOver(u'ு'));
  EXPECT_FALSE(bytes.IsLeftOver(u'f'));
}

TEST(UnmappableGuard, StopAndKeepLeaveTheTextAndNameTheEarliest) {
  // Line 1: ு has no glyph and stays Tamil; line 2: ";" would come back as the pulli.
  const std::u16string text = u"கா, கு\nகா; ₹ \U0001F600";
  for (UnmappablePolicy policy : {UnmappablePolicy::Stop, UnmappablePolicy::Keep}) {
    const Converted run = Write(text, policy);
    EXPECT_EQ(run.text, u"fh> fு\nfh; ₹ \U0001F600");
    EXPECT_EQ(run.findings.count, 4u);
    ASSERT_TRUE(run.findings.first);
    EXPECT_EQ(run.findings.first->ch, U'ு');
    EXPECT_EQ(run.findings.first->line, 1u);
    EXPECT_EQ(run.findings.first->column, 6u);
  }
}

TEST(UnmappableGuard, SkipAndReplaceWriteOnlyWhatTheFontHolds) {
  const std::u16string text = u"கா; ₹\U0001F600!";
  const Converted skipped = Write(text, UnmappablePolicy::Skip);
  EXPECT_EQ(skipped.text, u"fh !");
  EXPECT_EQ(skipped.findings.count, 3u);
  const Converted replaced = Write(text, UnmappablePolicy::Replace, true, u'.');
  EXPECT_EQ(replaced.text, u"fh. ..!");
  EXPECT_EQ(replaced.findings.count, 3u);
}

TEST(UnmappableGuard, ColumnsCountCharactersAndJoinersGoUncounted) {
  // The astral character takes two code units but one column; the joiners vanish.
  const Converted run = Write(u"\U0001F600 க\u200D\u200Cா;", UnmappablePolicy::Stop, false);
  EXPECT_EQ(run.text, u"\U0001F600 fh;");
  EXPECT_EQ(run.findings.count, 1u);
  EXPECT_EQ(run.findings.first->ch, U';');
  EXPECT_EQ(run.findings.first->column, 5u);
}

TEST(UnmappableGuard, ShippedTablesKnowTheirGaps) {
  const std::filesystem::path folder = testing::SourceDataRoot() / "Tamil Fonts Converter";
  // TSCII is list position 23, Bamini 3 (QuilomPlus-TamilFontEncodings.txt).
  const std::optional<LegacyRepertoire> tscii = LoadLegacyRepertoire(folder, 23, true, true);
  const std::optional<LegacyRepertoire> bamini = LoadLegacyRepertoire(folder, 3, true, true);
  ASSERT_TRUE(tscii && bamini);
  EXPECT_FALSE(tscii->CanHold(u'₹'));
  EXPECT_TRUE(tscii->CanHold(u';'));
  EXPECT_FALSE(bamini->CanHold(u';'));
  EXPECT_TRUE(bamini->CanHold(u'.'));
  EXPECT_FALSE(LoadLegacyRepertoire(folder, 99, true, true));
}

}  // namespace
}  // namespace quilom::converter
