#include "converter/window/convert_click.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

#include "converter/convert_checks.hpp"
#include "fake_automation.hpp"
#include "settings/text_file.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::converter::window {
namespace {

using testing::FakeAutomation;
using testing::FixedConnector;

// Answers questions from a script and keeps every text it was shown, in order.
class ScriptedPrompter final : public Prompter {
 public:
  explicit ScriptedPrompter(std::deque<PromptAnswer> answers = {}) : answers_(std::move(answers)) {}
  PromptAnswer AskYesNoCancel(std::u16string_view message) override { return Answer(message); }
  PromptAnswer AskYesNo(std::u16string_view message, bool defaultNo) override {
    defaultNoFlags.push_back(defaultNo);
    return Answer(message);
  }
  void Inform(std::u16string_view message) override { shown.emplace_back(message); }
  std::vector<std::u16string> shown;
  std::vector<bool> defaultNoFlags;

 private:
  PromptAnswer Answer(std::u16string_view message) {
    shown.emplace_back(message);
    if (answers_.empty()) return PromptAnswer::Other;
    const PromptAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  std::deque<PromptAnswer> answers_;
};

std::shared_ptr<FakeAutomation> WordWithDocuments(int count) {
  auto word = FakeAutomation::Root();
  word->At("Documents")->Set("Count", count);
  word->At("ActiveWindow.Selection")->Set("Start", 0);
  word->At("ActiveWindow.Selection")->Set("End", 0);
  return word;
}

// Unicode, then two legacy encodings; the legacy fonts list has one installed font.
WindowSnapshot Window(int from, int to) {
  WindowSnapshot window;
  window.encodings = {u"Unicode", u"Bamini", u"Tscii"};
  window.fromPosition = from;
  window.toPosition = to;
  window.legacyFonts = {{u"Any Font", u"Default Font", u"Bamini"}, 2, u"Bamini"};
  window.unicodeFonts = {{u"Any Font", u"Default Font", u"Latha"}, 2, u"Latha"};
  return window;
}

class ConvertClickTest : public ::testing::Test {
 protected:
  ClickOutcome Click(const WindowSnapshot& window, AutomationRef word, std::deque<PromptAnswer> answers) {
    connector = std::make_unique<FixedConnector>(std::move(word));
    prompter = ScriptedPrompter(std::move(answers));
    ClickServices services{connector.get(), binding, &prompter, progress, nullptr, folder.path()};
    return ConvertClick(window, services);
  }
  void WriteTable(int id, std::u16string_view text) {
    std::filesystem::create_directories(folder / "tables");
    ASSERT_TRUE(settings::WriteTextFile(TablePath(folder.path(), id), text, 3));
  }

  quilom::testing::TempFolder folder;
  quilom::testing::ScopedRecordingReporter reports;
  std::unique_ptr<FixedConnector> connector;
  ScriptedPrompter prompter;
  WordBinding binding = WordBinding::LateBound;
  ProgressLabel progress;
};

TEST_F(ConvertClickTest, WordCheckMessagesDependOnTheBindingAndComeBeforeAnyQuestion) {
  struct Row {
    WordBinding binding;
    int documents;  // -1: no Word at all
    std::u16string_view message;
  };
  for (const Row& row :
       {Row{WordBinding::LateBound, -1, kAttachFailed}, Row{WordBinding::LateBound, 0, kNoDocumentOpen},
        Row{WordBinding::EarlyBound, -1, kEarlyBoundNoWord}, Row{WordBinding::EarlyBound, 0, kEarlyBoundNoWord}}) {
    binding = row.binding;
    const ClickOutcome outcome =
        Click(Window(1, 0), row.documents < 0 ? nullptr : WordWithDocuments(row.documents), {PromptAnswer::Yes});
    EXPECT_EQ(outcome.stopMessage, row.message);
    EXPECT_THAT(prompter.shown, ::testing::ElementsAre(std::u16string(row.message)));
    EXPECT_FALSE(outcome.run.has_value());
  }
}

TEST_F(ConvertClickTest, AnUnreadableDocumentCountCountsAsNoDocument) {
  auto word = WordWithDocuments(1);
  word->FailOn("Documents.Count");
  EXPECT_EQ(Click(Window(1, 0), word, {}).stopMessage, kNoDocumentOpen);
}

TEST_F(ConvertClickTest, OnlyYesToTheBackupQuestionGoesOn) {
  for (PromptAnswer answer : {PromptAnswer::No, PromptAnswer::Other}) {
    auto word = WordWithDocuments(1);
    const ClickOutcome outcome = Click(Window(1, 1), word, {answer});
    EXPECT_THAT(prompter.shown, ::testing::ElementsAre(std::u16string(kBackupQuestion)));
    EXPECT_FALSE(prompter.defaultNoFlags.at(0));
    EXPECT_TRUE(outcome.stopMessage.empty());
    EXPECT_TRUE(word->LinesStartingWith("call").empty());
  }
}

TEST_F(ConvertClickTest, TheSelectionChecksFollowTheBackupQuestionInOrder) {
  WindowSnapshot noFonts = Window(1, 0);
  noFonts.legacyFonts.rows.clear();
  struct Row {
    WindowSnapshot window;
    std::u16string message;
  };
  const std::vector<Row> rows{
      {Window(2, 2), std::u16string(kSameEncoding)},
      {noFonts, std::u16string(kNoSuitableFont)},
      {Window(1, 2),
       u"First, convert your text in 'Bamini' font(s) to Unicode. Then, convert the resultant "
       u"Unicode text to 'Tscii' font."},
  };
  for (const Row& row : rows) {
    auto word = WordWithDocuments(3);
    const ClickOutcome outcome = Click(row.window, word, {PromptAnswer::Yes});
    EXPECT_EQ(outcome.stopMessage, row.message);
    EXPECT_THAT(prompter.shown, ::testing::ElementsAre(std::u16string(kBackupQuestion), row.message));
    EXPECT_TRUE(word->LinesStartingWith("call").empty());
  }
}

TEST_F(ConvertClickTest, LegacyToUnicodeRunsTheTableOfTheQuoteFormatInWord) {
  WriteTable(101, u"a \u0B85\r\nb \u0B86");
  WriteTable(152, u"c \u0B87");
  WindowSnapshot window = Window(1, 0);
  auto word = WordWithDocuments(1);
  ClickOutcome outcome = Click(window, word, {PromptAnswer::Yes});
  ASSERT_TRUE(outcome.run.has_value());
  EXPECT_EQ(outcome.run->status, RunStatus::Completed);
  const auto executes = word->LinesStartingWith("call ActiveDocument.Content.Find.Execute(");
  ASSERT_EQ(executes.size(), 2u);
  EXPECT_THAT(executes[0], ::testing::StartsWith("call ActiveDocument.Content.Find.Execute(FindText=a,"));
  EXPECT_THAT(word->LinesStartingWith("put ActiveDocument.Content.Find.Font.Name="),
              ::testing::Each("put ActiveDocument.Content.Find.Font.Name=Bamini"));
  EXPECT_THAT(word->LinesStartingWith("put ActiveDocument.Content.Find.Replacement.Font.Name="),
              ::testing::Each("put ActiveDocument.Content.Find.Replacement.Font.Name=Latha"));

  window.normalQuotes = false;
  word = WordWithDocuments(1);
  outcome = Click(window, word, {PromptAnswer::Yes});
  ASSERT_EQ(word->LinesStartingWith("call ActiveDocument.Content.Find.Execute(").size(), 1u);
  EXPECT_THAT(word->LinesStartingWith("call ActiveDocument.Content.Find.Execute(")[0],
              ::testing::HasSubstr("FindText=c,"));
}

TEST_F(ConvertClickTest, AMissingTableStopsWithItsReportAndTouchesNothing) {
  auto word = WordWithDocuments(1);
  const ClickOutcome outcome = Click(Window(0, 2), word, {PromptAnswer::Yes});
  EXPECT_FALSE(outcome.run.has_value());
  EXPECT_TRUE(reports->HasTag(u"TFC - Tbl"));
  EXPECT_TRUE(word->LinesStartingWith("call").empty());
}

TEST_F(ConvertClickTest, PlainTextReadsTheScopeOnceAndWritesItBackInTheTargetFont) {
  WriteTable(255, u"\u0B85 a\r\n\u0B86 b");  // Unicode to position 2, without the IrRiRee form: 253 + 2
  WindowSnapshot window = Window(0, 2);
  window.plainText = true;
  auto word = WordWithDocuments(1);
  word->At("ActiveDocument.Content")->Set("Text", std::u16string(u"\u0B85\u0B86 \u0B85"));
  const ClickOutcome outcome = Click(window, word, {PromptAnswer::Yes});
  ASSERT_TRUE(outcome.run.has_value());
  EXPECT_EQ(outcome.run->status, RunStatus::Completed);
  EXPECT_TRUE(word->LinesStartingWith("call ActiveDocument.Content.Find").empty());
  EXPECT_THAT(
      word->LinesStartingWith("put ActiveDocument.Content."),
      ::testing::ElementsAre("put ActiveDocument.Content.Text=ab a", "put ActiveDocument.Content.Font.Name=Bamini"));
}

TEST_F(ConvertClickTest, PlainTextThatCannotBeReadLeavesTheDocumentAlone) {
  WriteTable(254, u"\u0B85 a");
  WindowSnapshot window = Window(0, 1);
  window.plainText = true;
  auto word = WordWithDocuments(1);
  word->FailOn("ActiveDocument.Content.Text");
  std::vector<std::u16string> labels;
  progress = [&labels](std::u16string_view text) { labels.emplace_back(text); };
  const ClickOutcome outcome = Click(window, word, {PromptAnswer::Yes});
  ASSERT_FALSE(labels.empty());
  EXPECT_EQ(labels.back(), kRunStopped);
  ASSERT_TRUE(outcome.run.has_value());
  EXPECT_EQ(outcome.run->status, RunStatus::Failed);
  EXPECT_TRUE(word->LinesStartingWith("put ActiveDocument.Content").empty());
  EXPECT_TRUE(reports->HasTag(kUnicodeToLegacyTag));
}

TEST_F(ConvertClickTest, ConvertQuotesChecksThenReplacesTheChosenQuote) {
  const std::vector<std::u16string> legacyQuotes{u"\u00B4", u"\u00A8"};
  struct Row {
    int documents;
    WindowSnapshot window;
    std::vector<std::u16string> quotes;
    std::u16string_view message;
  };
  WindowSnapshot noFonts = Window(0, 1);
  noFonts.legacyFonts.rows.clear();
  const std::vector<Row> rows{
      {0, Window(0, 1), legacyQuotes, kNoDocumentForQuotes},
      {1, Window(1, 0), legacyQuotes, u"To be used only"},
      {1, Window(0, 1), {}, u"The NonUnicode font you have selected above does not have any quote"},
      {1, noFonts, {}, u"The NonUnicode font you have selected does not exist in your system."},
  };
  for (const Row& row : rows) {
    connector = std::make_unique<FixedConnector>(WordWithDocuments(row.documents));
    prompter = ScriptedPrompter();
    const ClickServices services{connector.get(), binding, &prompter, nullptr, nullptr, folder.path()};
    const ClickOutcome outcome = ConvertQuotesClick(row.window, u"\"", row.quotes, u"\u00A8", services);
    EXPECT_EQ(outcome.stopMessage.rfind(row.message, 0), 0u) << row.message.size();
    EXPECT_FALSE(outcome.run.has_value());
  }

  auto word = WordWithDocuments(1);
  connector = std::make_unique<FixedConnector>(word);
  prompter = ScriptedPrompter();
  const ClickServices services{connector.get(), binding, &prompter, nullptr, nullptr, folder.path()};
  const ClickOutcome outcome = ConvertQuotesClick(Window(0, 1), u"\"", legacyQuotes, u"\u00A8", services);
  ASSERT_TRUE(outcome.run.has_value());
  EXPECT_THAT(word->LinesStartingWith("call ActiveDocument.Content.Find.Execute("),
              ::testing::ElementsAre(::testing::HasSubstr("FindText=\",")));
  EXPECT_THAT(word->Log(), ::testing::Contains("put ActiveDocument.Content.Find.Replacement.Font.Name=Bamini"));
  EXPECT_THAT(word->Log(), ::testing::Contains(::testing::HasSubstr("ReplaceWith=\u00A8,")));
}

TEST(PlainTextClick, AsksOnlyWhenCheckedAndSavesUnlessIgnored) {
  struct Row {
    bool ignore;
    bool checkedNow;
    PromptAnswer answer;
    bool checked;
    bool save;
    bool asked;
  };
  for (const Row& row :
       {Row{false, true, PromptAnswer::Yes, true, true, true}, Row{false, true, PromptAnswer::No, false, true, true},
        Row{false, true, PromptAnswer::Other, false, true, true},
        Row{false, false, PromptAnswer::Yes, false, true, false},
        Row{true, true, PromptAnswer::No, true, false, false}}) {
    ScriptedPrompter prompter({row.answer});
    const PlainTextClick result = OnPlainTextClick(row.ignore, row.checkedNow, prompter);
    EXPECT_EQ(result.checked, row.checked);
    EXPECT_EQ(result.save, row.save);
    EXPECT_EQ(!prompter.shown.empty(), row.asked);
    if (row.asked) {
      EXPECT_EQ(prompter.shown[0], kPlainTextWarning);
      EXPECT_TRUE(prompter.defaultNoFlags[0]);  // No is the default button
    }
  }
}

}  // namespace
}  // namespace quilom::converter::window
