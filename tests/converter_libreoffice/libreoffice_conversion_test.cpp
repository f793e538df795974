#include <gtest/gtest.h>

#include <algorithm>

#include "converter/conversion_run.hpp"
#include "converter/convert_checks.hpp"
#include "converter/document_backends.hpp"
#include "converter/libreoffice/libreoffice_backend.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "converter/libreoffice/writer_editor.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "writer_fixture.hpp"

namespace quilom::testing::lo {
namespace {

using converter::ConversionDirection;
using converter::ConversionRequest;
using converter::PromptAnswer;
using converter::RunStatus;

constexpr char16_t kLegacyFont[] = u"TSCu_Paranar";
constexpr char16_t kUnicodeFont[] = u"Noto Sans Tamil";
constexpr int kTsciiToUnicode = 123;
constexpr int kUnicodeToTscii = 225;

// TSCII text as glibc's iconv encodes it, except that இ is 0xAD (the soft hyphen code point
// that Writer's search skips), which TSCII also uses for it.
constexpr char16_t kVanakkam[] = u"\u00C5\u00BD\u00EC\u00B8\u00F5";            // வணக்கம்
constexpr char16_t kIthu[] = u"\u00AD\u00D0";                                 // இது
constexpr char16_t kSothanai[] = u"\u00A7\u00BA\u00A1\u00BE\u00A8\u00C9";     // சோதனை
constexpr char16_t kThamizhKodi[] = u"\u00BE\u00C1\u00A2\u00FA \u00A6\u00B8\u00A1\u00CA";  // தமிழ் கொடி

class FixedPrompter final : public converter::Prompter {
 public:
  explicit FixedPrompter(PromptAnswer answer) : answer_(answer) {}
  PromptAnswer AskYesNoCancel(std::u16string_view) override { return answer_; }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return answer_; }
  void Inform(std::u16string_view) override {}

 private:
  PromptAnswer answer_;
};

std::u16string Table(int id) {
  return converter::LoadTableText(SourceDataRoot() / "Tamil Fonts Converter", id);
}

ConversionRequest Request(ConversionDirection direction, int tableId) {
  ConversionRequest request;
  request.direction = direction;
  request.tableText = Table(tableId);
  request.legacyFonts = {{u"Any Font", u"Default Font", kLegacyFont}, 2, kLegacyFont};
  request.unicodeFonts = {{u"Any Font", u"Default Font", kUnicodeFont}, 2, kUnicodeFont};
  return request;
}

RunStatus Convert(converter::DocumentEditor& editor, ConversionDirection direction, int tableId,
                  PromptAnswer answer = PromptAnswer::No) {
  FixedPrompter prompter(answer);
  return converter::RunConversion(Request(direction, tableId), editor, prompter, [](std::u16string_view) {},
                                  [] { return std::int64_t{0}; })
      .status;
}

bool HasTamil(const std::u16string& text) {
  return std::any_of(text.begin(), text.end(), [](char16_t c) { return c >= 0x0B80 && c <= 0x0BFF; });
}

// Every run showing Tamil letters is in `font`; every run in the legacy font holds none.
void ExpectTamilOnlyIn(const Paragraph& paragraph, const std::u16string& font) {
  for (const Run& run : paragraph) {
    if (HasTamil(run.text)) {
      EXPECT_EQ(run.font, font) << text::Utf16ToUtf8(run.text);
    }
    if (run.font == kLegacyFont) {
      EXPECT_FALSE(HasTamil(run.text));
    }
  }
}

const Run* FindRun(const Paragraph& paragraph, bool bold, bool italic) {
  for (const Run& run : paragraph) {
    if (run.bold == bold && run.italic == italic && HasTamil(run.text)) return &run;
  }
  return nullptr;
}

std::vector<Paragraph> MixedDocument() {
  return {{{std::u16string(kVanakkam) + u" ", kLegacyFont},
           {kIthu, kLegacyFont, true, false},
           {u" ", kLegacyFont},
           {kSothanai, kLegacyFont, false, true}},
          {{u"Arial text: \u00C5\u00BD stays, and so do ^p \\ .* $1 &.", u"Arial"}}};
}

class DocumentFormats : public ::testing::TestWithParam<std::string> {};

// Through the registry, as `quilom convert` does: each input format in, .docx out.
TEST_P(DocumentFormats, LegacyTextBecomesUnicodeInTheUnicodeFontKeepingBoldItalicAndOtherFonts) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  const auto input = folder / ("report" + GetParam());
  WriteDocument(input, MixedDocument());
  const auto backend = converter::FindDocumentBackend(GetParam());
  ASSERT_NE(backend, nullptr);
  std::string error;
  ScopedRecordingReporter reports;
  {
    auto session = backend->Open(input, error);
    ASSERT_NE(session, nullptr) << error;
    ASSERT_EQ(Convert(session->Editor(), ConversionDirection::LegacyToUnicode, kTsciiToUnicode), RunStatus::Completed);
    ASSERT_TRUE(session->SaveAs(folder / "converted.docx", error)) << error;
  }
  EXPECT_TRUE(reports->messages.empty()) << text::Utf16ToUtf8(reports->messages.front());
  const auto paragraphs = ReadDocument(folder / "converted.docx");
  ASSERT_EQ(paragraphs.size(), 2u);
  EXPECT_EQ(TextOf(paragraphs[0]), u"வணக்கம் இது சோதனை");
  ExpectTamilOnlyIn(paragraphs[0], kUnicodeFont);
  const lo::Run* bold = FindRun(paragraphs[0], true, false);
  const lo::Run* italic = FindRun(paragraphs[0], false, true);
  ASSERT_TRUE(bold && italic);
  EXPECT_EQ(bold->text, u"இது");
  EXPECT_EQ(italic->text, u"சோதனை");
  ASSERT_EQ(paragraphs[1].size(), 1u);
  EXPECT_EQ(paragraphs[1][0].text, MixedDocument()[1][0].text);
  EXPECT_EQ(paragraphs[1][0].font, u"Arial");
  // The input was loaded read-only and is left as it was.
  EXPECT_EQ(TextOf(ReadDocument(input)[0]), TextOf(MixedDocument()[0]));
}

INSTANTIATE_TEST_SUITE_P(LibreOffice, DocumentFormats, ::testing::Values(".odt", ".docx", ".doc", ".rtf"),
                         [](const auto& info) { return info.param.substr(1); });

TEST(LibreOfficeConversion, UnicodeToTsciiAndBackGivesTheSameText) {
  ASSERT_NE(Office(), nullptr);
  const std::u16string original = u"வணக்கம் இது ஒரு சோதனை, தமிழ் கொடி கௌ!";
  const auto document = NewDocument({{{original, kUnicodeFont}}, {{u"English", u"Arial"}}});
  converter::libreoffice::WriterEditor editor(document, true);
  ASSERT_EQ(Convert(editor, ConversionDirection::UnicodeToLegacy, kUnicodeToTscii), RunStatus::Completed);
  const auto legacy = ReadParagraphs(document);
  ASSERT_EQ(legacy.size(), 2u);
  EXPECT_NE(TextOf(legacy[0]), original);
  ExpectTamilOnlyIn(legacy[0], u"none");  // no Tamil letter is left anywhere
  ASSERT_EQ(Convert(editor, ConversionDirection::LegacyToUnicode, kTsciiToUnicode), RunStatus::Completed);
  const auto back = ReadParagraphs(document);
  EXPECT_EQ(TextOf(back[0]), original);
  ExpectTamilOnlyIn(back[0], kUnicodeFont);
  EXPECT_EQ(TextOf(back[1]), u"English");
  converter::libreoffice::CloseDocument(document);
}

TEST(LibreOfficeConversion, ASelectionOnlyRunConvertsOnlyTheSelectedParagraph) {
  ASSERT_NE(Office(), nullptr);
  const auto document = NewDocument({{{kVanakkam, kLegacyFont}}, {{kThamizhKodi, kLegacyFont, true}},
                                     {{kSothanai, kLegacyFont}}});
  SelectParagraph(document, 1);
  converter::libreoffice::WriterEditor editor(document, false);
  EXPECT_TRUE(editor.HasSelection());
  ASSERT_EQ(Convert(editor, ConversionDirection::LegacyToUnicode, kTsciiToUnicode, PromptAnswer::Yes),
            RunStatus::Completed);
  const auto paragraphs = ReadParagraphs(document);
  ASSERT_EQ(paragraphs.size(), 3u);
  EXPECT_EQ(TextOf(paragraphs[0]), kVanakkam);
  EXPECT_EQ(paragraphs[0][0].font, kLegacyFont);
  EXPECT_EQ(TextOf(paragraphs[1]), u"தமிழ் கொடி");
  ExpectTamilOnlyIn(paragraphs[1], kUnicodeFont);
  EXPECT_TRUE(paragraphs[1][0].bold);
  EXPECT_EQ(TextOf(paragraphs[2]), kSothanai);
  EXPECT_EQ(paragraphs[2][0].font, kLegacyFont);
  converter::libreoffice::CloseDocument(document);
}

}  // namespace
}  // namespace quilom::testing::lo
