#include "writer_fixture.hpp"

#include <gtest/gtest.h>

#include <com/sun/star/awt/FontSlant.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumeration.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "converter/libreoffice/writer_document.hpp"

namespace quilom::testing::lo {
using namespace converter::libreoffice;

namespace {

std::unique_ptr<converter::libreoffice::OfficeConnection> theOffice;

class OfficeEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    std::string error;
    theOffice = converter::libreoffice::OfficeConnection::StartPrivate(std::chrono::seconds(90), error);
    ASSERT_TRUE(theOffice) << error;
    // The backend under test attaches to this office instead of starting one per document.
    setenv("QUILOM_LIBREOFFICE_PIPE", theOffice->PipeName().c_str(), 1);
  }
  void TearDown() override { theOffice.reset(); }
};

void SetRunFormat(const Reference<css::beans::XPropertySet>& range, const Run& run) {
  const Any font(ToOUString(run.font));
  range->setPropertyValue(ToOUString(u"CharFontName"), font);
  range->setPropertyValue(ToOUString(u"CharFontNameAsian"), font);
  range->setPropertyValue(ToOUString(u"CharFontNameComplex"), font);
  range->setPropertyValue(ToOUString(u"CharWeight"), Any(run.bold ? 150.0f : 100.0f));
  range->setPropertyValue(ToOUString(u"CharPosture"),
                          Any(run.italic ? css::awt::FontSlant_ITALIC : css::awt::FontSlant_NONE));
}

Run ReadRun(const Reference<css::text::XTextRange>& portion) {
  const Reference<css::beans::XPropertySet> properties(portion, UNO_QUERY_THROW);
  Run run;
  run.text = ToU16(portion->getString());
  // Writer shows each script with its own attributes: Tamil with the complex-script ones.
  const std::u16string fontProperty = FontPropertyFor(run.text);
  const bool complex = fontProperty == u"CharFontNameComplex";
  rtl::OUString font;
  properties->getPropertyValue(ToOUString(fontProperty)) >>= font;
  run.font = ToU16(font);
  float weight = 100.0f;
  properties->getPropertyValue(ToOUString(complex ? u"CharWeightComplex" : u"CharWeight")) >>= weight;
  run.bold = weight > 100.0f;
  css::awt::FontSlant slant = css::awt::FontSlant_NONE;
  properties->getPropertyValue(ToOUString(complex ? u"CharPostureComplex" : u"CharPosture")) >>= slant;
  run.italic = slant == css::awt::FontSlant_ITALIC;
  return run;
}

Paragraph ReadParagraph(const Reference<css::container::XEnumerationAccess>& paragraph) {
  Paragraph runs;
  const Reference<css::container::XEnumeration> portions = paragraph->createEnumeration();
  while (portions->hasMoreElements()) {
    const Reference<css::text::XTextRange> portion(portions->nextElement(), UNO_QUERY);
    if (!portion.is()) continue;
    Run run = ReadRun(portion);
    if (run.text.empty()) continue;
    if (!runs.empty() && runs.back().font == run.font && runs.back().bold == run.bold &&
        runs.back().italic == run.italic) {
      runs.back().text += run.text;
    } else {
      runs.push_back(run);
    }
  }
  return runs;
}

std::vector<Reference<css::text::XTextRange>> BodyParagraphs(const Reference<css::frame::XModel>& document) {
  std::vector<Reference<css::text::XTextRange>> paragraphs;
  const Reference<css::text::XTextDocument> textDocument(document, UNO_QUERY_THROW);
  const Reference<css::container::XEnumerationAccess> body(textDocument->getText(), UNO_QUERY_THROW);
  const Reference<css::container::XEnumeration> elements = body->createEnumeration();
  while (elements->hasMoreElements()) {
    const Reference<css::lang::XServiceInfo> element(elements->nextElement(), UNO_QUERY);
    if (element.is() && element->supportsService(ToOUString(u"com.sun.star.text.Paragraph"))) {
      paragraphs.emplace_back(element, UNO_QUERY);
    }
  }
  return paragraphs;
}

}  // namespace

converter::libreoffice::OfficeConnection* Office() { return theOffice.get(); }

Reference<css::frame::XModel> NewDocument(const std::vector<Paragraph>& paragraphs) {
  const css::beans::PropertyValue options[] = {Property(u"Hidden", Any(true))};
  const Reference<css::frame::XModel> document(
      Reference<css::frame::XComponentLoader>(theOffice->Desktop(), UNO_QUERY_THROW)
          ->loadComponentFromURL(ToOUString(u"private:factory/swriter"), ToOUString(u"_blank"), 0,
                                 MakeSequence(options)),
      UNO_QUERY_THROW);
  const Reference<css::text::XText> text = Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText();
  bool first = true;
  for (const Paragraph& paragraph : paragraphs) {
    if (!first) text->insertControlCharacter(text->getEnd(), 0 /* paragraph break */, false);
    first = false;
    for (const Run& run : paragraph) {
      const Reference<css::text::XTextCursor> cursor = text->createTextCursorByRange(text->getEnd());
      text->insertString(Reference<css::text::XTextRange>(cursor, UNO_QUERY_THROW), ToOUString(run.text), false);
      cursor->collapseToEnd();
      cursor->goLeft(static_cast<sal_Int16>(run.text.size()), true);
      SetRunFormat(Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW), run);
    }
  }
  return document;
}

void WriteDocument(const std::filesystem::path& file, const std::vector<Paragraph>& paragraphs) {
  const Reference<css::frame::XModel> document = NewDocument(paragraphs);
  std::string error;
  const bool stored = converter::libreoffice::StoreDocumentAs(document, file, error);
  converter::libreoffice::CloseDocument(document);
  ASSERT_TRUE(stored) << error;
}

std::vector<Paragraph> ReadParagraphs(const Reference<css::frame::XModel>& document) {
  std::vector<Paragraph> paragraphs;
  for (const auto& paragraph : BodyParagraphs(document)) {
    paragraphs.push_back(ReadParagraph(Reference<css::container::XEnumerationAccess>(paragraph, UNO_QUERY_THROW)));
  }
  return paragraphs;
}

std::vector<Paragraph> ReadDocument(const std::filesystem::path& file) {
  std::string error;
  const Reference<css::frame::XModel> document =
      converter::libreoffice::LoadDocument(theOffice->Desktop(), file, error);
  EXPECT_TRUE(document.is()) << error;
  if (!document.is()) return {};
  std::vector<Paragraph> paragraphs = ReadParagraphs(document);
  converter::libreoffice::CloseDocument(document);
  return paragraphs;
}

std::u16string TextOf(const Paragraph& paragraph) {
  std::u16string text;
  for (const Run& run : paragraph) text += run.text;
  return text;
}

void SelectParagraph(const Reference<css::frame::XModel>& document, int index) {
  const auto paragraphs = BodyParagraphs(document);
  ASSERT_LT(static_cast<size_t>(index), paragraphs.size());
  const Reference<css::view::XSelectionSupplier> view(document->getCurrentController(), UNO_QUERY_THROW);
  view->select(Any(paragraphs[static_cast<size_t>(index)]));
}

}  // namespace quilom::testing::lo

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::AddGlobalTestEnvironment(new quilom::testing::lo::OfficeEnvironment);
  return RUN_ALL_TESTS();
}
