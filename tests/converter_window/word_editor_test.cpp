#include "converter/window/word_editor.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "converter/conversion_run.hpp"
#include "fake_automation.hpp"
#include "support/recording_reporter.hpp"
#include "text/utf.hpp"

namespace quilom::converter::window {
namespace {

using ::testing::ElementsAre;
using testing::FakeAutomation;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kAllOptions =
    "MatchCase=True,MatchWholeWord=False,MatchWildcards=False,MatchSoundsLike=False,MatchAllWordForms=False,"
    "Forward=True,Wrap=0,";

TEST(WordDocumentEditor, WholeDocumentTakesTheContentRangeAfreshForEveryPair) {
  auto word = FakeAutomation::Root();
  WordDocumentEditor editor(word);
  editor.SetScope(EditScope::WholeDocument);
  ASSERT_TRUE(editor.ReplaceAll(u"a", u"\u0B85"));
  ASSERT_TRUE(editor.ReplaceAll(u"b", u"\u0B86"));
  EXPECT_EQ(std::count(word->Log().begin(), word->Log().end(), "get ActiveDocument.Content.Find"), 2);
  EXPECT_THAT(word->LinesStartingWith("call ActiveDocument.Content.Find.Execute"),
              ElementsAre("call ActiveDocument.Content.Find.Execute(FindText=a," + kAllOptions +
                              "Format=False,ReplaceWith=\u0B85,Replace=2)",
                          "call ActiveDocument.Content.Find.Execute(FindText=b," + kAllOptions +
                              "Format=False,ReplaceWith=\u0B86,Replace=2)"));
  EXPECT_THAT(word->LinesStartingWith("get ActiveWindow"), IsEmpty());
}

TEST(WordDocumentEditor, SelectionScopeSearchesWithTheSelectionsOwnFind) {
  auto word = FakeAutomation::Root();
  WordDocumentEditor editor(word);
  editor.SetScope(EditScope::Selection);
  ASSERT_TRUE(editor.ReplaceAll(u"x", u"y"));
  EXPECT_EQ(word->LinesStartingWith("call ActiveWindow.Selection.Find.Execute(FindText=x,").size(), 1u);
  EXPECT_THAT(word->LinesStartingWith("get ActiveDocument"), IsEmpty());
}

TEST(WordDocumentEditor, FontsConstrainTheFindAndTheReplacementAndAreClearedBetweenPairs) {
  auto word = FakeAutomation::Root();
  WordDocumentEditor editor(word);
  editor.SetScope(EditScope::WholeDocument);
  editor.SetFindFont(u"Bamini");
  editor.SetReplacementFont(u"Latha");
  ASSERT_TRUE(editor.ReplaceAll(u"f", u"g"));
  EXPECT_THAT(word->LinesStartingWith("put "),
              ElementsAre("put ActiveDocument.Content.Find.Font.Name=Bamini",
                          "put ActiveDocument.Content.Find.Replacement.Font.Name=Latha"));
  EXPECT_THAT(word->Log().back(), HasSubstr("Format=True"));

  // A pair of the placeholder block runs with no find font: the earlier constraint must not
  // linger in Word's find, so the formatting is cleared before every pair.
  word->Log().clear();
  editor.SetFindFont(u"");
  editor.SetReplacementFont(u"");
  ASSERT_TRUE(editor.ReplaceAll(u"f", u"g"));
  EXPECT_THAT(word->LinesStartingWith("call ActiveDocument.Content.Find.ClearFormatting"), ::testing::SizeIs(1));
  EXPECT_THAT(word->LinesStartingWith("call ActiveDocument.Content.Find.Replacement.ClearFormatting"),
              ::testing::SizeIs(1));
  EXPECT_THAT(word->LinesStartingWith("put "), IsEmpty());
  EXPECT_THAT(word->Log().back(), HasSubstr("Format=False"));
}

TEST(WordDocumentEditor, CaretsAreDoubledForWordAndAnEmptyFindCallsNothing) {
  auto word = FakeAutomation::Root();
  WordDocumentEditor editor(word);
  ASSERT_TRUE(editor.ReplaceAll(u"^p", u"a^"));
  EXPECT_THAT(word->Log().back(), HasSubstr("FindText=^^p,"));
  EXPECT_THAT(word->Log().back(), HasSubstr("ReplaceWith=a^^,"));
  word->Log().clear();
  EXPECT_TRUE(editor.ReplaceAll(u"", u"z"));
  EXPECT_THAT(word->Log(), IsEmpty());
}

TEST(WordDocumentEditor, SelectionExistsOnlyWhenItsEndLiesAfterItsStart) {
  struct Row {
    std::int32_t start;
    std::int32_t end;
    bool expected;
  };
  for (const Row& row : {Row{4, 4, false}, Row{2, 9, true}, Row{0, 1, true}, Row{9, 2, false}}) {
    auto word = FakeAutomation::Root();
    word->At("ActiveWindow.Selection")->Set("Start", row.start);
    word->At("ActiveWindow.Selection")->Set("End", row.end);
    EXPECT_EQ(WordDocumentEditor(word).HasSelection(), row.expected) << row.start << ".." << row.end;
  }
}

TEST(WordDocumentEditor, FailuresComeBackAsTheWordError) {
  quilom::testing::ScopedRecordingReporter reports;
  auto word = FakeAutomation::Root();
  word->FailOn("ActiveDocument.Content.Find.Execute");
  word->FailOn("ActiveWindow.Selection");
  word->FailOn("ScreenUpdating");
  WordDocumentEditor editor(word);
  EXPECT_FALSE(editor.ReplaceAll(u"a", u"b"));
  EXPECT_EQ(editor.LastError().description, u"refused ActiveDocument.Content.Find.Execute");
  EXPECT_TRUE(reports->messages.empty());  // the run reports ReplaceAll failures itself

  EXPECT_FALSE(editor.HasSelection());
  editor.SetScreenUpdating(false);
  ASSERT_EQ(reports->messages.size(), 2u);
  EXPECT_TRUE(reports->HasTag(kWordEditorTag));
  EXPECT_NE(reports->messages[1].find(u"refused ScreenUpdating"), std::u16string::npos);

  // A selection whose bounds are no numbers is no selection, and the report says why.
  auto odd = FakeAutomation::Root();
  odd->At("ActiveWindow.Selection")->Set("Start", std::u16string(u"x"));
  EXPECT_FALSE(WordDocumentEditor(odd).HasSelection());
  EXPECT_NE(reports->messages.back().find(u"'Start' is not a number"), std::u16string::npos);
}

TEST(WordDocumentEditor, ScreenUpdatingAndUndoClearReachTheirObjects) {
  auto word = FakeAutomation::Root();
  WordDocumentEditor editor(word);
  editor.SetScreenUpdating(false);
  editor.ClearUndo();
  EXPECT_THAT(word->Log(),
              ElementsAre("put ScreenUpdating=False", "get ActiveDocument", "call ActiveDocument.UndoClear()"));
}

TEST(WordDocumentEditor, ARunStoppedByWordReportsThePairItReached) {
  quilom::testing::ScopedRecordingReporter reports;
  auto word = FakeAutomation::Root();
  // The second pair's find fails: Word's error names the member, the run names the pair.
  word->FailFromCall("ActiveDocument.Content.Find.Execute", 2);
  word->At("ActiveWindow.Selection")->Set("Start", 0);
  word->At("ActiveWindow.Selection")->Set("End", 0);
  WordDocumentEditor editor(word);
  class NoQuestions final : public Prompter {
    PromptAnswer AskYesNoCancel(std::u16string_view) override { return PromptAnswer::Other; }
    PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::Other; }
    void Inform(std::u16string_view) override {}
  } prompter;
  ConversionRequest request;
  request.tableText = u"a x\r\nb y\r\nc z";
  request.legacyFonts = {{u"Any Font", u"Default Font", u"Bamini"}, 2, u""};
  request.unicodeFonts = {{u"Any Font", u"Default Font"}, 0, u""};
  const RunOutcome outcome = RunConversion(request, editor, prompter, {}, {});
  EXPECT_EQ(outcome.status, RunStatus::Failed);
  EXPECT_EQ(word->LinesStartingWith("call ActiveDocument.Content.Find.Execute").size(), 2u);
  ASSERT_TRUE(reports->HasTag(kLegacyToUnicodeTag));
  EXPECT_NE(reports->messages[0].find(u"pair 2 of 3"), std::u16string::npos) << text::Utf16ToUtf8(reports->messages[0]);
  // Screen updating comes back on and the undo list is cleared even after the failure.
  EXPECT_EQ(word->LinesStartingWith("put ScreenUpdating=True").size(), 1u);
  EXPECT_EQ(word->LinesStartingWith("call ActiveDocument.UndoClear").size(), 1u);
}

}  // namespace
}  // namespace quilom::converter::window
