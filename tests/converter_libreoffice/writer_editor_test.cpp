#include <gtest/gtest.h>

#include <cstdlib>

#include "converter/document_backends.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "converter/libreoffice/writer_editor.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "writer_fixture.hpp"

namespace quilom::testing::lo {
namespace {

// Find texts with the characters that are special to Word's find or to regular expressions
// are found and inserted literally, case-sensitively, and only in the find font.
TEST(WriterEditor, FindTextsAreLiteralCaseSensitiveAndFontBound) {
  ASSERT_NE(Office(), nullptr);
  const std::u16string line = u"a^b \\c .*d $1& Ab";
  const auto document = NewDocument({{{line, u"TSCu_Paranar"}}, {{line, u"Arial"}}});
  converter::libreoffice::WriterEditor editor(document, true);
  editor.SetScope(converter::EditScope::WholeDocument);
  editor.SetFindFont(u"TSCu_Paranar");
  editor.SetReplacementFont(u"TSCu_Times");
  const struct {
    const char16_t* find;
    const char16_t* replacement;
  } pairs[] = {{u"^b", u"[1]"}, {u"\\c", u"$0"}, {u".*", u"&"}, {u"$1&", u"\\n"}, {u"ab", u"X"}, {u"", u"never"}};
  ScopedRecordingReporter reports;
  for (const auto& pair : pairs) EXPECT_TRUE(editor.ReplaceAll(pair.find, pair.replacement)) << text::Utf16ToUtf8(pair.find);
  ASSERT_TRUE(editor.FinishRun());
  // The "a" of "Ab" in the find font holds a letter that a pair looked for: it is reported.
  EXPECT_TRUE(reports->HasTag(u"LO - Left"));
  const auto paragraphs = ReadParagraphs(document);
  ASSERT_EQ(paragraphs.size(), 2u);
  EXPECT_EQ(TextOf(paragraphs[0]), u"a[1] $0 &d \\n Ab");
  EXPECT_EQ(TextOf(paragraphs[1]), line);
  converter::libreoffice::CloseDocument(document);
}

// U+00AD is a letter in TSCII: it is found inside longer find texts, and a find text without
// it never matches across it (Writer's own search skips it).
TEST(WriterEditor, SoftHyphensAreOrdinaryCharacters) {
  ASSERT_NE(Office(), nullptr);
  const auto document = NewDocument({{{u"p\u00ADq r\u00ADs", u"TSCu_Paranar"}}});
  converter::libreoffice::WriterEditor editor(document, true);
  editor.SetFindFont(u"TSCu_Paranar");
  editor.SetReplacementFont(u"Noto Sans Tamil");
  ASSERT_TRUE(editor.ReplaceAll(u"\u00ADq", u"Q"));
  ASSERT_TRUE(editor.ReplaceAll(u"rs", u"W"));
  ASSERT_TRUE(editor.FinishRun());
  EXPECT_EQ(TextOf(ReadParagraphs(document)[0]), u"pQ r\u00ADs");
  converter::libreoffice::CloseDocument(document);
}

// A paragraph whose one font is stored at paragraph level in .odt is converted whole.
TEST(WriterEditor, EveryPairReachesTextWhoseFontIsAParagraphAttribute) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  WriteDocument(folder / "uniform.odt", {{{u"\u00BE\u00C1\u00A2\u00FA \u00A6\u00B8\u00A1\u00CA", u"TSCu_Paranar"}}});
  std::string error;
  const auto document = converter::libreoffice::LoadDocument(Office()->Desktop(), folder / "uniform.odt", error);
  ASSERT_TRUE(document.is()) << error;
  converter::libreoffice::WriterEditor editor(document, true);
  editor.SetFindFont(u"TSCu_Paranar");
  editor.SetReplacementFont(u"Noto Sans Tamil");
  const std::pair<std::u16string, std::u16string> pairs[] = {
      {u"\u00A6\u00B8\u00A1", u"கொ"}, {u"\u00A2", u"ி"}, {u"\u00FA", u"ழ்"}, {u"\u00BE", u"த"},
      {u"\u00C1", u"ம"}, {u"\u00CA", u"டி"}};
  for (const auto& [find, replacement] : pairs) ASSERT_TRUE(editor.ReplaceAll(find, replacement));
  ASSERT_TRUE(editor.FinishRun());
  EXPECT_EQ(TextOf(ReadParagraphs(document)[0]), u"தமிழ் கொடி");
  converter::libreoffice::CloseDocument(document);
}

TEST(LibreOfficeBackend, RefusesToWriteOverItsInputAndRejectsUnknownOutputFormats) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  WriteDocument(folder / "in.docx", {{{u"text", u"Arial"}}});
  const auto backend = converter::FindDocumentBackend(".docx");
  ASSERT_NE(backend, nullptr);
  std::string error;
  auto session = backend->Open(folder / "in.docx", error);
  ASSERT_NE(session, nullptr) << error;
  EXPECT_FALSE(session->SaveAs(folder / "in.docx", error));
  EXPECT_NE(error.find("will not write over"), std::string::npos) << error;
  EXPECT_FALSE(session->SaveAs(folder / "out.pdf", error));
  EXPECT_NE(error.find(".odt, .docx"), std::string::npos) << error;
  EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
  EXPECT_FALSE(backend->Open(folder / "missing.docx", error));
  EXPECT_NE(error.find("missing.docx"), std::string::npos) << error;
}

TEST(LibreOfficeBackend, SaysWhatToInstallWhenLibreOfficeIsMissing) {
  const auto backend = converter::FindDocumentBackend(".odt");
  ASSERT_NE(backend, nullptr);
  const std::string pipe = std::getenv("QUILOM_LIBREOFFICE_PIPE") ? std::getenv("QUILOM_LIBREOFFICE_PIPE") : "";
  unsetenv("QUILOM_LIBREOFFICE_PIPE");
  setenv("QUILOM_SOFFICE", "/nonexistent/soffice", 1);
  const std::string problem = converter::DocumentBackendProblem(".odt");
  unsetenv("QUILOM_SOFFICE");
  if (!pipe.empty()) setenv("QUILOM_LIBREOFFICE_PIPE", pipe.c_str(), 1);
  EXPECT_NE(problem.find("LibreOffice is not installed"), std::string::npos) << problem;
}

}  // namespace
}  // namespace quilom::testing::lo

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::testing::lo {
namespace {
using namespace converter::libreoffice;

// Text that shows in the legacy font only because its paragraph style says so is converted.
TEST(WriterEditor, TextInheritingTheFindFontFromItsParagraphStyleIsConverted) {
  ASSERT_NE(Office(), nullptr);
  const auto document = NewDocument({{{u"\u00BE\u00C1\u00A2\u00FA", u"Arial"}}, {{u"English", u"Arial"}}});
  const Reference<css::container::XNameAccess> paragraphStyles(
      Reference<css::style::XStyleFamiliesSupplier>(document, UNO_QUERY_THROW)
          ->getStyleFamilies()
          ->getByName(ToOUString(u"ParagraphStyles")),
      UNO_QUERY_THROW);
  Reference<css::beans::XPropertySet>(paragraphStyles->getByName(ToOUString(u"Standard")), UNO_QUERY_THROW)
      ->setPropertyValue(ToOUString(u"CharFontName"), css::uno::Any(ToOUString(u"TSCu_Paranar")));
  // The first paragraph loses its direct font and shows in the style's.
  const Reference<css::text::XText> body = Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText();
  const Reference<css::text::XTextCursor> first = body->createTextCursor();
  first->gotoStart(false);
  first->goRight(4, true);
  Reference<css::beans::XPropertyState>(first, UNO_QUERY_THROW)->setPropertyToDefault(ToOUString(u"CharFontName"));
  ASSERT_EQ(ReadParagraphs(document)[0][0].font, u"TSCu_Paranar");

  converter::libreoffice::WriterEditor editor(document, true);
  editor.SetFindFont(u"TSCu_Paranar");
  editor.SetReplacementFont(u"Noto Sans Tamil");
  for (const auto& [find, replacement] : {std::pair{u"\u00A2", u"ி"}, std::pair{u"\u00FA", u"ழ்"},
                                          std::pair{u"\u00BE", u"த"}, std::pair{u"\u00C1", u"ம"}}) {
    ASSERT_TRUE(editor.ReplaceAll(find, replacement));
  }
  ASSERT_TRUE(editor.FinishRun());
  const auto paragraphs = ReadParagraphs(document);
  EXPECT_EQ(TextOf(paragraphs[0]), u"தமிழ்");
  EXPECT_EQ(paragraphs[0][0].font, u"Noto Sans Tamil");
  EXPECT_EQ(TextOf(paragraphs[1]), u"English");
  converter::libreoffice::CloseDocument(document);
}

}  // namespace
}  // namespace quilom::testing::lo
