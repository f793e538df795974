#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "shell/typing_output.hpp"
#include "shell_fakes.hpp"
#include "support/recording_reporter.hpp"

namespace quilom::shell {
namespace {

using testing::FakeEditorBox;
using testing::RecordingSubmitter;

std::vector<InputBatch> Plan(int eraseCount, std::u16string_view text) {
  std::vector<InputBatch> plan;
  PlanReplacement(eraseCount, text, plan);
  return plan;
}

TEST(OutputPlan, BackspaceTableHoldsWholePressesDownFirst) {
  const auto& table = BackspaceInputs();
  for (int slot = 0; slot < kBackspaceSlots; ++slot) {
    EXPECT_EQ(table[slot].vk, kVkBackspace);
    EXPECT_EQ(table[slot].flags, slot % 2 == 0 ? 0u : kKeyEventKeyUp) << "slot " << slot;
  }
}

TEST(OutputPlan, ErasuresOfEverySizeStayInsideTheTable) {
  for (const int erase : {0, 1, 3, 14, 15, 16, 30, 31, 40, 100}) {
    const auto plan = Plan(erase, u"");
    int records = 0;
    for (const InputBatch& batch : plan) {
      ASSERT_EQ(batch.table, InputTable::Backspace);
      EXPECT_LE(batch.first + batch.count, kBackspaceSlots) << "erase " << erase;
      EXPECT_EQ(batch.first % 2, 0) << "every batch starts with a key-down";
      EXPECT_EQ(batch.count % 2, 0) << "every batch ends with a key-up";
      records += batch.count;
    }
    EXPECT_EQ(records, 2 * erase);
  }
}

TEST(OutputPlan, BatchesForTypicalErasures) {
  EXPECT_TRUE(Plan(0, u"").empty());
  EXPECT_EQ(Plan(3, u""), (std::vector<InputBatch>{{InputTable::Backspace, 24, 6, 0}}));
  EXPECT_EQ(Plan(16, u""),
            (std::vector<InputBatch>{{InputTable::Backspace, 0, 30, 0}, {InputTable::Backspace, 28, 2, 0}}));
  EXPECT_EQ(Plan(-2, u"x"), (std::vector<InputBatch>{{InputTable::UnicodeChar, 0, 2, u'x'}}));
}

TEST(OutputPlan, TextGoesOneCodeUnitPerPressAfterTheErasure) {
  const auto plan = Plan(1, u"\u0B95\U0001F600");
  ASSERT_EQ(plan.size(), 4u);
  EXPECT_EQ(plan[0].table, InputTable::Backspace);
  EXPECT_EQ(plan[1].codeUnit, u'\u0B95');
  EXPECT_EQ(plan[2].codeUnit, char16_t(0xD83D));
  EXPECT_EQ(plan[3].codeUnit, char16_t(0xDE00));
  const auto unicode = UnicodeCharInputs(0xD83D);
  EXPECT_EQ(unicode[0], (KeyInputRecord{0, 0xD83D, kKeyEventUnicode}));
  EXPECT_EQ(unicode[1], (KeyInputRecord{0, 0xD83D, kKeyEventUnicode | kKeyEventKeyUp}));
}

TEST(TypingOutput, PlaysBackAsTheEditIntended) {
  RecordingSubmitter submitter;
  TypingOutput output(submitter);
  output.OutputReplacement(0, u"\u0B95\u0BCD");
  output.OutputReplacement(1, u"");
  output.OutputReplacement(0, u"\u0BBE");
  EXPECT_EQ(submitter.screen, u"\u0B95\u0BBE");
  EXPECT_EQ(output.LastSentCodeUnit(), u'\u0BBE');
}

TEST(TypingOutput, DropAllModeSendsNothingNotEvenTheErasure) {
  RecordingSubmitter submitter;
  TypingOutput output(submitter);
  output.SetOutputSuppressed(translit::OutputSink::kDropAll);
  output.OutputReplacement(3, u"abc");
  EXPECT_EQ(submitter.submitCount, 0);
}

TEST(OwnEditor, ClusterProbeTellsTheTwoKindsOfBoxApart) {
  FakeEditorBox plain;
  EXPECT_FALSE(ProbeCaretSnapsToClusters(plain));
  EXPECT_EQ(plain.text, u"");
  FakeEditorBox snapping;
  snapping.snapsToClusters = true;
  EXPECT_TRUE(ProbeCaretSnapsToClusters(snapping));
  EXPECT_EQ(snapping.text, u"");
}

TEST(OwnEditor, ErasesBeforeTheCaretAndTypes) {
  FakeEditorBox box;
  box.text = u"ab\u0B95\u0BCDcd";
  box.start = 4;  // after the virama
  ReplaceInEditor(box, false, 1, u"\u0BBE");
  EXPECT_EQ(box.text, u"ab\u0B95\u0BBEcd");
  EXPECT_EQ(box.start, 4);
}

TEST(OwnEditor, SnappingBoxKeepsTheClusterStartItWasPushedBackTo) {
  FakeEditorBox box;
  box.snapsToClusters = true;
  box.text = u"x\u0B95\u0BC1\u0BAE";  // x, KA + U, MA; the caret at the end
  box.start = 4;
  // Erase the vowel sign and MA: the caret cannot stop between KA and its sign.
  ReplaceInEditor(box, true, 2, u"\u0BC2");
  EXPECT_EQ(box.text, u"x\u0B95\u0BC2");
}

TEST(OwnEditor, TypingOutputUsesTheBoxOnlyWhenAskedAndReportsFailures) {
  RecordingSubmitter submitter;
  TypingOutput output(submitter);
  FakeEditorBox box;
  output.SetOwnEditor(&box);
  output.OutputReplacement(0, u"a");
  EXPECT_EQ(submitter.screen, u"a") << "the box is not the target until it has the focus";
  output.SetTypeIntoOwnEditor(true);
  output.OutputReplacement(0, u"b");
  EXPECT_EQ(box.text, u"b");
  EXPECT_EQ(submitter.screen, u"a");

  quilom::testing::ScopedRecordingReporter reports;
  box.failing = true;
  output.OutputReplacement(1, u"c");
  EXPECT_TRUE(reports->HasTag(u"PTevMsgH - "));
}

TEST(OutputPlan, PasteErasesFirstThenHoldsPastesAndGivesTheClipboardBack) {
  std::vector<InputBatch> plan;
  PlanPaste(2, u"கி", plan);
  const std::vector<InputBatch> expected = {{InputTable::Backspace, 26, 4, 0},
                                            {InputTable::ClipboardHold, 0, 0, 0},
                                            {InputTable::PasteKeys, 0, 4, 0},
                                            {InputTable::ClipboardGiveBack, 0, 0, 0}};
  EXPECT_EQ(plan, expected);
  PlanPaste(1, u"", plan);
  EXPECT_EQ(plan, (std::vector<InputBatch>{{InputTable::Backspace, 28, 2, 0}}))
      << "nothing to paste, clipboard untouched";
  const auto& keys = PasteInputs();
  EXPECT_EQ(keys[0], (KeyInputRecord{kVkControlKey, 0, 0}));
  EXPECT_EQ(keys[1], (KeyInputRecord{kVkV, 0, 0}));
  EXPECT_EQ(keys[3], (KeyInputRecord{kVkControlKey, 0, kKeyEventKeyUp}));
}

TEST(OutputPlan, PastedTypingKeepsTheUsersClipboard) {
  testing::RecordingSubmitter screen;
  screen.clipboard = u"the user's";
  TypingOutput output(screen);
  output.SetPasteThroughClipboard(true);
  output.OutputReplacement(0, u"க்");
  output.OutputReplacement(1, u"ா");
  EXPECT_EQ(screen.screen, u"கா");
  EXPECT_EQ(screen.clipboard, u"the user's");
}

}  // namespace
}  // namespace quilom::shell
