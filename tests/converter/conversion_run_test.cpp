#include "converter/conversion_run.hpp"

#include <gtest/gtest.h>

#include <deque>

#include "converter/plain_text_editor.hpp"
#include "support/recording_reporter.hpp"

namespace quilom::converter {
namespace {

// Records every call as the run makes it, and carries out replace-alls on a plain text so that
// the test can see what the document holds. Can be told to fail at a given replace-all.
class RecordingEditor final : public DocumentEditor {
 public:
  explicit RecordingEditor(std::u16string text, bool selection = false)
      : plain_(std::move(text), 0, selection ? 1 : 0), selection_(selection) {}

  struct Replace {
    std::u16string find, replacement, findFont, replacementFont;
  };

  bool HasSelection() override { return selection_; }
  void SetScope(EditScope scope) override {
    scope_ = scope;
    plain_.SetScope(scope);
  }
  void SetFindFont(std::u16string_view name) override { findFont_ = name; }
  void SetReplacementFont(std::u16string_view name) override { replacementFont_ = name; }
  bool ReplaceAll(std::u16string_view find, std::u16string_view replacement) override {
    if (failAt_ && replaces.size() == *failAt_) return false;
    replaces.push_back({std::u16string(find), std::u16string(replacement), findFont_, replacementFont_});
    return plain_.ReplaceAll(find, replacement);
  }
  void SetScreenUpdating(bool on) override { screenUpdates.push_back(on); }
  void ClearUndo() override { ++undoClears; }
  ErrorDetails LastError() const override { return {4605, u"Word", u"This command is not available."}; }

  const std::u16string& Text() { return plain_.Text(); }
  void FailAt(std::size_t call) { failAt_ = call; }

  std::vector<Replace> replaces;
  std::vector<bool> screenUpdates;
  int undoClears = 0;
  std::optional<EditScope> scope_;

 private:
  PlainTextEditor plain_;
  bool selection_;
  std::u16string findFont_, replacementFont_;
  std::optional<std::size_t> failAt_;
};

class ScriptedPrompter final : public Prompter {
 public:
  explicit ScriptedPrompter(std::deque<PromptAnswer> answers = {}) : answers_(std::move(answers)) {}
  PromptAnswer AskYesNoCancel(std::u16string_view message) override {
    questions.emplace_back(message);
    if (answers_.empty()) return PromptAnswer::Other;
    const PromptAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  PromptAnswer AskYesNo(std::u16string_view message, bool) override { return AskYesNoCancel(message); }
  void Inform(std::u16string_view message) override { notices.emplace_back(message); }

  std::vector<std::u16string> questions;
  std::vector<std::u16string> notices;

 private:
  std::deque<PromptAnswer> answers_;
};

FontsList Fonts(std::vector<std::u16string> names, int selected, std::u16string defaultFont = u"DefaultLegacy") {
  std::vector<std::u16string> rows = {u"Any Font", u"Default Font"};
  rows.insert(rows.end(), names.begin(), names.end());
  return {rows, selected, std::move(defaultFont)};
}

ConversionRequest LegacyRequest(std::u16string table, FontsList legacy) {
  ConversionRequest request;
  request.direction = ConversionDirection::LegacyToUnicode;
  request.tableText = std::move(table);
  request.legacyFonts = std::move(legacy);
  request.unicodeFonts = Fonts({u"Latha"}, 2, u"Latha");
  return request;
}

struct RunResult {
  RunOutcome outcome;
  std::vector<std::u16string> labels;
};

RunResult RunIt(const ConversionRequest& request, DocumentEditor& editor, Prompter& prompter) {
  RunResult result;
  std::int64_t now = 1000;
  result.outcome = RunConversion(
      request, editor, prompter, [&](std::u16string_view label) { result.labels.emplace_back(label); },
      [&now] { return now += 3; });
  return result;
}

TEST(ConversionRun, WholeDocumentWithoutSelectionAsksNothingAndAppliesPairsInOrder) {
  RecordingEditor editor(u"ab ba");
  ScriptedPrompter prompter;
  const RunResult result = RunIt(LegacyRequest(u"ab X\r\nb Y\r\nX Z", Fonts({u"Bamini"}, 2)), editor, prompter);
  EXPECT_EQ(result.outcome.status, RunStatus::Completed);
  EXPECT_TRUE(prompter.questions.empty());
  EXPECT_EQ(editor.scope_, EditScope::WholeDocument);
  EXPECT_EQ(editor.Text(), u"Z Ya");
  ASSERT_EQ(editor.replaces.size(), 3u);
  EXPECT_EQ(editor.replaces[0].findFont, u"Bamini");
  EXPECT_EQ(editor.replaces[0].replacementFont, u"Latha");
}

TEST(ConversionRun, RangeQuestionChoosesSelectionOrWholeDocumentOrStops) {
  struct Row {
    PromptAnswer answer;
    std::optional<EditScope> scope;
  };
  for (const Row& row : {Row{PromptAnswer::Yes, EditScope::Selection}, Row{PromptAnswer::No, EditScope::WholeDocument},
                         Row{PromptAnswer::Cancel, std::nullopt}, Row{PromptAnswer::Other, std::nullopt}}) {
    RecordingEditor editor(u"aaa", true);
    ScriptedPrompter prompter({row.answer});
    const RunResult result = RunIt(LegacyRequest(u"a b", Fonts({u"F"}, 2)), editor, prompter);
    ASSERT_EQ(prompter.questions.size(), 1u);
    EXPECT_EQ(prompter.questions[0], kRangeQuestion);
    EXPECT_EQ(editor.scope_, row.scope);
    if (!row.scope) {
      // Stopped: nothing touched, no label shown, and the user is told why.
      EXPECT_EQ(editor.Text(), u"aaa");
      EXPECT_TRUE(editor.replaces.empty());
      EXPECT_TRUE(result.labels.empty());
      EXPECT_EQ(prompter.notices, std::vector<std::u16string>{std::u16string(kNeitherYesNorNo)});
    } else {
      EXPECT_EQ(editor.Text(), row.scope == EditScope::Selection ? u"baa" : u"bbb");
    }
  }
}

TEST(ConversionRun, AnyFontAnsweredNoRunsOncePerListedFontSkippingEmptyRows) {
  RecordingEditor editor(u"x");
  ScriptedPrompter prompter({PromptAnswer::No});
  RunIt(LegacyRequest(u"p q\r\nr s", Fonts({u"Bamini", u"", u"Kalaham"}, 0)), editor, prompter);
  ASSERT_EQ(prompter.questions.size(), 1u);
  EXPECT_EQ(prompter.questions[0], kAnyFontQuestion);
  ASSERT_EQ(editor.replaces.size(), 4u);
  EXPECT_EQ(editor.replaces[0].findFont, u"Bamini");
  EXPECT_EQ(editor.replaces[1].findFont, u"Bamini");
  EXPECT_EQ(editor.replaces[2].findFont, u"Kalaham");
  EXPECT_EQ(editor.replaces[3].findFont, u"Kalaham");
}

TEST(ConversionRun, AnyFontAnsweredYesRunsOnceInAnyFont) {
  RecordingEditor editor(u"x");
  ScriptedPrompter prompter({PromptAnswer::Yes});
  RunIt(LegacyRequest(u"p q", Fonts({u"Bamini", u"Kalaham"}, 0)), editor, prompter);
  ASSERT_EQ(editor.replaces.size(), 1u);
  EXPECT_EQ(editor.replaces[0].findFont, u"");
}

TEST(ConversionRun, LegacyFontRowsResolveWithoutQuestions) {
  struct Row {
    FontsList fonts;
    std::u16string expected;
  };
  const std::vector<Row> rows = {
      {Fonts({u"OnlyOne"}, 0), u"OnlyOne"},      // "Any Font" with three rows: the third row
      {Fonts({u"A", u"B"}, 1, u"Def"), u"Def"},  // "Default Font": the encoding's default
      {Fonts({u"A", u"B"}, 3), u"B"},            // any other row as it stands
  };
  for (const Row& row : rows) {
    RecordingEditor editor(u"x");
    ScriptedPrompter prompter;
    RunIt(LegacyRequest(u"p q", row.fonts), editor, prompter);
    EXPECT_TRUE(prompter.questions.empty());
    ASSERT_EQ(editor.replaces.size(), 1u);
    EXPECT_EQ(editor.replaces[0].findFont, row.expected);
  }
}

TEST(ConversionRun, UnicodeToLegacyFindsTheUnicodeFontAndGivesTheLegacyFont) {
  RecordingEditor editor(u"க");
  ScriptedPrompter prompter;
  ConversionRequest request = LegacyRequest(u"க ¸", Fonts({u"TSCu_Paranar", u"TSCu_Times", u"TSCu_Comic"}, 0));
  request.direction = ConversionDirection::UnicodeToLegacy;
  request.unicodeFonts = Fonts({u"Latha"}, 0);
  RunIt(request, editor, prompter);
  EXPECT_TRUE(prompter.questions.empty());
  ASSERT_EQ(editor.replaces.size(), 1u);
  EXPECT_EQ(editor.replaces[0].findFont, u"");
  EXPECT_EQ(editor.replaces[0].replacementFont, u"TSCu_Paranar");
  EXPECT_EQ(editor.Text(), u"¸");
}

TEST(ConversionRun, PlaceholderBlockIsFoundInAnyFont) {
  RecordingEditor editor(u"x");
  ScriptedPrompter prompter;
  // Fullwidth "!" and "#" in the table become placeholders, and their pairs form the block.
  RunIt(LegacyRequest(u"a \uFF01\r\n\uFF01 b\r\nc d\r\n\uFF03 e\r\nf g", Fonts({u"Bamini"}, 2)), editor, prompter);
  ASSERT_EQ(editor.replaces.size(), 5u);
  const std::vector<std::u16string> expected = {u"Bamini", u"", u"", u"", u"Bamini"};
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(editor.replaces[i].findFont, expected[i]) << i;
  EXPECT_EQ(editor.replaces[0].replacement, u"\u0226");
}

TEST(ConversionRun, ProgressEveryFiftyPairsAndTheFinalTime) {
  std::u16string table;
  for (int i = 0; i < 120; ++i) table += u"k" + std::u16string(1, static_cast<char16_t>(u'A' + i % 26)) + u" z\r\n";
  RecordingEditor editor(u"x");
  ScriptedPrompter prompter;
  const RunResult result = RunIt(LegacyRequest(table, Fonts({u"F"}, 2)), editor, prompter);
  // 121 pairs (the last line is empty): progress at pairs 50 and 100.
  const std::vector<std::u16string> expected = {std::u16string(kInProgress), u"41%", u"82%",
                                                u"100% Completed. Time taken = 3 seconds"};
  EXPECT_EQ(result.labels, expected);
}

TEST(ConversionRun, PerFontPassesNameTheFontInTheirProgress) {
  std::u16string table;
  for (int i = 0; i < 60; ++i) table += u"q z\r\n";
  RecordingEditor editor(u"x");
  ScriptedPrompter prompter({PromptAnswer::No});
  const RunResult result = RunIt(LegacyRequest(table, Fonts({u"One", u"Two"}, 0)), editor, prompter);
  ASSERT_EQ(result.labels.size(), 4u);
  EXPECT_EQ(result.labels[1], u"One (81%)");
  EXPECT_EQ(result.labels[2], u"Two (81%)");
}

TEST(ConversionRun, FailureIsReportedWithItsTagAndKeepsWhatWasDone) {
  testing::ScopedRecordingReporter reporter;
  RecordingEditor editor(u"ab");
  editor.FailAt(1);
  ScriptedPrompter prompter;
  const RunResult result = RunIt(LegacyRequest(u"a 1\r\nb 2\r\nc 3", Fonts({u"F"}, 2)), editor, prompter);
  EXPECT_EQ(result.outcome.status, RunStatus::Failed);
  EXPECT_EQ(editor.Text(), u"1b");
  EXPECT_TRUE(reporter->HasTag(kLegacyToUnicodeTag));
  ASSERT_EQ(reporter->messages.size(), 1u);
  EXPECT_NE(reporter->messages[0].find(u"pair 2 of 3"), std::u16string::npos);
  EXPECT_EQ(result.labels.size(), 1u);  // no "Completed" after a failure
  // The word processor is put back as it was, even after a failure.
  EXPECT_EQ(editor.screenUpdates, (std::vector<bool>{false, true}));
  EXPECT_EQ(editor.undoClears, 1);
}

TEST(ConversionRun, VowelSignsOffSkipsLoneSignPairsFromTheMarkerOn) {
  RecordingEditor editor(u"¸¡ ¡");
  ScriptedPrompter prompter;
  ConversionRequest request = LegacyRequest(u"¸¡ கா\r\n¸ க\r\n¡ ா", Fonts({u"F"}, 2));
  request.convertVowelSigns = false;
  RunIt(request, editor, prompter);
  EXPECT_EQ(editor.Text(), u"கா ¡");
  request.convertVowelSigns = true;
  RecordingEditor second(u"¸¡ ¡");
  RunIt(request, second, prompter);
  EXPECT_EQ(second.Text(), u"கா ா");
}

}  // namespace
}  // namespace quilom::converter
