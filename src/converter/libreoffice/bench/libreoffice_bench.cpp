// The same TSCII document converted through LibreOffice Writer and through the plain-text
// core path, in one run; prints both times and their ratio. Usage:
//   libreoffice_bench [paragraphs (default 100)]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include "converter/conversion_run.hpp"
#include "converter/convert_checks.hpp"
#include "converter/libreoffice/office_connection.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "converter/libreoffice/writer_editor.hpp"
#include "converter/plain_text_editor.hpp"

namespace {
namespace css = com::sun::star;
using namespace quilom::converter;
using namespace quilom::converter::libreoffice;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

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

Reference<css::frame::XModel> MakeDocument(const OfficeConnection& office, const std::u16string& text) {
  const css::beans::PropertyValue options[] = {Property(u"Hidden", Any(true))};
  const Reference<css::frame::XModel> document(
      Reference<css::frame::XComponentLoader>(office.Desktop(), UNO_QUERY_THROW)
          ->loadComponentFromURL(ToOUString(u"private:factory/swriter"), ToOUString(u"_blank"), 0,
                                 MakeSequence(options)),
      UNO_QUERY_THROW);
  const Reference<css::text::XText> body = Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText();
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find(u'\n', start);
    if (end == std::u16string::npos) end = text.size();
    body->insertString(body->getEnd(), ToOUString(std::u16string_view(text).substr(start, end - start)), false);
    if (end + 1 < text.size()) body->insertControlCharacter(body->getEnd(), 0 /* paragraph break */, false);
    start = end + 1;
  }
  const Reference<css::text::XTextCursor> all = body->createTextCursor();
  all->gotoStart(false);
  all->gotoEnd(true);
  const Reference<css::beans::XPropertySet> properties(all, UNO_QUERY_THROW);
  for (const char16_t* name : {u"CharFontName", u"CharFontNameAsian", u"CharFontNameComplex"}) {
    properties->setPropertyValue(ToOUString(name), Any(ToOUString(kLegacyFont)));
  }
  return document;
}

}  // namespace

int main(int argc, char** argv) {
  const int paragraphs = argc > 1 ? std::atoi(argv[1]) : 100;
  std::u16string text;
  for (int i = 0; i < paragraphs; ++i) {
    for (int s = 0; s < 5; ++s) text += kSentence;
    text += u"\n";
  }
  const ConversionRequest request = Request();
  AlwaysNo prompter;
  const auto noProgress = [](std::u16string_view) {};
  const auto clock = [] { return std::int64_t{0}; };

  auto start = std::chrono::steady_clock::now();
  PlainTextEditor plain(text);
  RunConversion(request, plain, prompter, noProgress, clock);
  const std::u16string expected = plain.Text();
  const double plainSeconds = Seconds(start);

  std::string error;
  start = std::chrono::steady_clock::now();
  const auto office = OfficeConnection::StartPrivate(OfficeStartTimeout(), error);
  if (!office) {
    std::fprintf(stderr, "libreoffice_bench: %s\n", error.c_str());
    return 1;
  }
  const double startSeconds = Seconds(start);
  const Reference<css::frame::XModel> document = MakeDocument(*office, text);
  double officeSeconds = 0;
  bool same = false;
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
  }
  CloseDocument(document);
  const size_t words = static_cast<size_t>(paragraphs) * 5 * 6;
  std::printf("document: %d paragraphs, %zu words, %zu table pairs\n", paragraphs, words,
              ParseConversionTable(request.tableText).pairs.size());
  std::printf("office start:            %8.3f s (not counted below)\n", startSeconds);
  std::printf("plain-text core path:    %11.6f s\n", plainSeconds);
  std::printf("LibreOffice Writer path: %11.6f s\n", officeSeconds);
  std::printf("ratio (Writer / plain):  %8.1f\n", plainSeconds > 0 ? officeSeconds / plainSeconds : 0.0);
  std::printf("same text both ways:     %s\n", same ? "yes" : "NO");
  return same ? 0 : 2;
}
