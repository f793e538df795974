// The same TSCII document converted through LibreOffice Writer and through the plain-text
// core path, in one run; prints both times and their ratio. Usage:
//   libreoffice_bench [paragraphs (default 100)] [--mixed]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include "converter/conversion_run.hpp"
#include "converter/convert_checks.hpp"
#include "converter/libreoffice/font_census.hpp"
#include "converter/libreoffice/office_connection.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "converter/libreoffice/writer_editor.hpp"
#include "converter/plain_text_editor.hpp"

namespace {
using namespace quilom::converter;
using namespace quilom::converter::libreoffice;

constexpr char16_t kLegacyFont[] = u"TSCu_Paranar";
constexpr char16_t kUnicodeFont[] = u"Noto Sans Tamil";
// வணக்கம் இது ஒரு சோதனை தமிழ் கொடி, in TSCII (இ as 0xAD)
constexpr char16_t kSentence[] =
    u"\u00C5\u00BD\u00EC\u00B8\u00F5 \u00AD\u00D0 \u00B4\u00D5 \u00A7\u00BA\u00A1\u00BE\u00A8\u00C9 "
    u"\u00BE\u00C1\u00A2\u00FA \u00A6\u00B8\u00A1\u00CA. ";

struct AlwaysNo final : Prompter {
  PromptAnswer AskYesNoCancel(std::u16string_view) override { return PromptAnswer::No; }
  PromptAnswer AskYesNo(std::u16string_view, bool) override { return PromptAnswer::No; }
  void Inform(std::u16string_view) override {}
};

ConversionRequest Request() {
  ConversionRequest request;
  request.tableText = LoadTableText(std::string(QUILOM_SOURCE_DATA_DIR) + "/Tamil Fonts Converter", 123);
  request.legacyFonts = {{u"Any Font", u"Default Font", kLegacyFont}, 2, kLegacyFont};
  request.unicodeFonts = {{u"Any Font", u"Default Font", kUnicodeFont}, 2, kUnicodeFont};
  return request;
}

double Seconds(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Run {
  std::u16string text;
  const char16_t* font;
  bool bold;
};
using Paragraph = std::vector<Run>;

// `paragraphs` plain TSCII paragraphs of five sentences; with `mixed`, every second sentence
// is bold and every tenth paragraph is in Arial (left alone by the run, and a reason for the
// editor to restrict its searches to the legacy font).
std::vector<Paragraph> MakeParagraphs(int paragraphs, bool mixed) {
  std::vector<Paragraph> document;
  for (int i = 0; i < paragraphs; ++i) {
    Paragraph paragraph;
    const bool arial = mixed && i % 10 == 9;
    for (int s = 0; s < 5; ++s) {
      paragraph.push_back({kSentence, arial ? u"Arial" : kLegacyFont, mixed && !arial && s % 2 == 1});
    }
    document.push_back(paragraph);
  }
  return document;
}

std::u16string PlainText(const std::vector<Paragraph>& paragraphs, bool legacyOnly) {
  std::u16string text;
  for (const Paragraph& paragraph : paragraphs) {
    for (const Run& run : paragraph) {
      if (!legacyOnly || run.font == std::u16string_view(kLegacyFont)) text += run.text;
    }
    text += u"\n";
  }
  return text;
}

Reference<css::frame::XModel> MakeDocument(const OfficeConnection& office, const std::vector<Paragraph>& paragraphs) {
  const css::beans::PropertyValue options[] = {Property(u"Hidden", Any(true))};
  const Reference<css::frame::XModel> document(
      Reference<css::frame::XComponentLoader>(office.Desktop(), UNO_QUERY_THROW)
          ->loadComponentFromURL(ToOUString(u"private:factory/swriter"), ToOUString(u"_blank"), 0,
                                 MakeSequence(options)),
      UNO_QUERY_THROW);
  const Reference<css::text::XText> body = Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText();
  bool first = true;
  for (const Paragraph& paragraph : paragraphs) {
    if (!first) body->insertControlCharacter(body->getEnd(), 0 /* paragraph break */, false);
    first = false;
    for (const Run& run : paragraph) {
      const Reference<css::text::XTextCursor> cursor = body->createTextCursorByRange(body->getEnd());
      body->insertString(Reference<css::text::XTextRange>(cursor, UNO_QUERY_THROW), ToOUString(run.text), false);
      cursor->collapseToEnd();
      cursor->goLeft(static_cast<sal_Int16>(run.text.size()), true);
      const Reference<css::beans::XPropertySet> properties(cursor, UNO_QUERY_THROW);
      for (const char16_t* name : {u"CharFontName", u"CharFontNameAsian", u"CharFontNameComplex"}) {
        properties->setPropertyValue(ToOUString(name), Any(ToOUString(run.font)));
      }
      properties->setPropertyValue(ToOUString(u"CharWeight"), Any(run.bold ? 150.0f : 100.0f));
    }
  }
  return document;
}

}  // namespace

int main(int argc, char** argv) {
  const int paragraphs = argc > 1 ? std::atoi(argv[1]) : 100;
  const bool mixed = argc > 2 && std::string(argv[2]) == "--mixed";
  const std::vector<Paragraph> content = MakeParagraphs(paragraphs, mixed);
  const std::u16string text = PlainText(content, false);
  const ConversionRequest request = Request();
  AlwaysNo prompter;
  const auto noProgress = [](std::u16string_view) {};
  const auto clock = [] { return std::int64_t{0}; };

  auto start = std::chrono::steady_clock::now();
  PlainTextEditor plain(text);
  RunConversion(request, plain, prompter, noProgress, clock);
  const std::size_t plainLength = plain.Text().size();  // the plain editor applies its pairs when read
  const double plainSeconds = Seconds(start);
  // What Writer should give: the legacy-font text converted, the Arial text as it was.
  std::u16string expected;
  for (const Paragraph& paragraph : content) {
    for (const Run& run : paragraph) {
      if (run.font != std::u16string_view(kLegacyFont)) {
        expected += run.text;
        continue;
      }
      PlainTextEditor one(run.text);
      RunConversion(request, one, prompter, noProgress, clock);
      expected += one.Text();
    }
    expected += u"\n";
  }

  std::string error;
  start = std::chrono::steady_clock::now();
  const auto office = OfficeConnection::StartPrivate(OfficeStartTimeout(), error);
  if (!office) {
    std::fprintf(stderr, "libreoffice_bench: %s\n", error.c_str());
    return 1;
  }
  const double startSeconds = Seconds(start);
  const Reference<css::frame::XModel> document = MakeDocument(*office, content);
  double officeSeconds = 0;
  bool same = false;
  size_t tamilOutsideUnicodeFont = 0;
  {
    WriterEditor editor(document, true);
    start = std::chrono::steady_clock::now();
    RunConversion(request, editor, prompter, noProgress, clock);
    editor.FinishRun();
    officeSeconds = Seconds(start);
    std::u16string converted = ToU16(Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText()->getString());
    std::u16string want = expected;
    std::erase(converted, u'\r');
    std::erase(converted, u'\n');
    std::erase(want, u'\n');
    same = converted == want;
    // Converted letters must show in the Unicode font, not stay in the legacy one.
    for (const char16_t c : TakeFontCensus(document, u"CharFontNameComplex", kUnicodeFont).outside) {
      if (c >= 0x0B80 && c <= 0x0BFF) ++tamilOutsideUnicodeFont;
    }
  }
  CloseDocument(document);
  const size_t words = static_cast<size_t>(paragraphs) * 5 * 6;
  std::printf("document: %d paragraphs%s, %zu words, %zu table pairs\n", paragraphs,
              mixed ? " (bold runs, every tenth paragraph Arial)" : "", words,
              ParseConversionTable(request.tableText).pairs.size());
  std::printf("office start:            %8.3f s (not counted below)\n", startSeconds);
  std::printf("plain-text core path:    %11.6f s\n", plainSeconds);
  std::printf("LibreOffice Writer path: %11.6f s\n", officeSeconds);
  std::printf("ratio (Writer / plain):  %8.1f\n", plainSeconds > 0 ? officeSeconds / plainSeconds : 0.0);
  std::printf("same text both ways:     %s (plain result %zu code units)\n", same ? "yes" : "NO", plainLength);
  std::printf("Tamil letters outside the Unicode font: %zu\n", tamilOutsideUnicodeFont);
  return same && tamilOutsideUnicodeFont == 0 ? 0 : 2;
}
