// What a person sees of a converted document: LibreOffice's own PDF export of the result, read
// back with poppler. Bold Tamil must be drawn with the bold face of the Unicode font, and the
// text must be the Tamil words.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <cstdio>
#include <sstream>

#include "cli/command.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"
#include "converter/libreoffice/writer_document.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "writer_fixture.hpp"

namespace quilom::testing::lo {
namespace {

using namespace converter::libreoffice;

std::string Output(const std::string& command) {
  std::string output;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    std::array<char, 4096> buffer{};
    while (std::size_t read = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), read);
    pclose(pipe);
  }
  return output;
}

void ExportPdf(const std::filesystem::path& document, const std::filesystem::path& pdf) {
  std::string error;
  const auto model = LoadDocument(Office()->Desktop(), document, error);
  ASSERT_TRUE(model.is()) << error;
  const css::beans::PropertyValue options[] = {Property(u"FilterName", Any(ToOUString(u"writer_pdf_Export")))};
  Reference<css::frame::XStorable>(model, UNO_QUERY_THROW)
      ->storeToURL(ToOUString(u"file://" + pdf.u16string()), css::uno::Sequence<css::beans::PropertyValue>(options, 1));
  CloseDocument(model);
}

// A letter in a TSCII font with the parts people's documents have: a header and a footer, a
// footnote, a list, a table and a text frame, English beside Tamil, bold, italic, colour and size.
// தமிழ், கொடி and வணக்கம் are written in TSCII glyph codes.
std::string LegacyLetter() {
  const std::string tamil = "\xC2\xBE\xC3\x81\xC2\xA2\xC3\xBA", flag = "\xC2\xA6\xC2\xB8\xC2\xA1\xC3\x8A",
                    greeting = "\xC3\x85\xC2\xBD\xC3\xAC\xC2\xB8\xC3\xB5";
  const auto span = [](const char* style, const std::string& text) {
    return std::string("<text:span text:style-name=\"") + style + "\">" + text + "</text:span>";
  };
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0" xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.text">
<office:font-face-decls><style:font-face style:name="TSCu_Paranar" svg:font-family="TSCu_Paranar"/></office:font-face-decls>
<office:automatic-styles>
<style:style style:name="B" style:family="text"><style:text-properties style:font-name="TSCu_Paranar" fo:font-size="16pt" fo:font-weight="bold"/></style:style>
<style:style style:name="P" style:family="text"><style:text-properties style:font-name="TSCu_Paranar" fo:font-size="16pt"/></style:style>
<style:style style:name="I" style:family="text"><style:text-properties style:font-name="TSCu_Paranar" fo:font-size="16pt" fo:font-style="italic" fo:color="#c00000"/></style:style>
<style:page-layout style:name="pm1"><style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm"/><style:header-style/><style:footer-style/></style:page-layout>
</office:automatic-styles>
<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="pm1">
<style:header><text:p>Header: )" +
         span("B", tamil) + R"(</text:p></style:header>
<style:footer><text:p>Footer: )" +
         span("I", flag) + R"(</text:p></style:footer>
</style:master-page></office:master-styles>
<office:body><office:text>
<text:p>Body: )" +
         span("B", tamil) + span("P", " " + flag + " ") + span("I", greeting) +
         R"( English<text:note text:id="n1" text:note-class="footnote"><text:note-citation>1</text:note-citation><text:note-body><text:p>Note: )" +
         span("B", greeting) + R"(</text:p></text:note-body></text:note></text:p>
<text:list><text:list-item><text:p>List: )" +
         span("P", flag) + R"(</text:p></text:list-item></text:list>
<table:table table:name="T1"><table:table-column/><table:table-row><table:table-cell><text:p>Cell: )" +
         span("B", flag) + R"(</text:p></table:table-cell></table:table-row></table:table>
<text:p><draw:frame draw:name="F1" svg:width="8cm" svg:height="2cm" text:anchor-type="paragraph"><draw:text-box><text:p>Frame: )" +
         span("I", tamil) + R"(</text:p></draw:text-box></draw:frame></text:p>
</office:text></office:body></office:document>)";
}

class RenderedDocument : public ::testing::TestWithParam<const char*> {};

TEST_P(RenderedDocument, EveryPartIsConvertedAndBoldTamilIsDrawnWithTheBoldFace) {
  ASSERT_NE(Office(), nullptr);
  if (Output("command -v pdffonts pdftotext").empty()) GTEST_SKIP() << "poppler-utils is not installed";
  TempFolder folder;
  WriteBytes(folder / "letter.fodt", LegacyLetter());
  const std::filesystem::path input = folder / (std::string("letter") + GetParam());
  std::string error;
  const auto letter = LoadDocument(Office()->Desktop(), folder / "letter.fodt", error);
  ASSERT_TRUE(letter.is()) << error;
  ASSERT_TRUE(StoreDocumentAs(letter, input, error)) << error;
  CloseDocument(letter);

  const std::string output = (folder / (std::string("unicode") + GetParam())).string();
  std::istringstream in;
  std::ostringstream out, err;
  ASSERT_EQ(cli::RunQuilom(
                {"--data", SourceDataRoot().string(), "convert", "--from", "Tscii", "--to", "Unicode", input.string(),
                 "-o", output, "--legacy-font", "TSCu_Paranar", "--unicode-font", "Noto Sans Tamil"},
                in, out, err, folder.path(), false),
            0)
      << err.str();
  ExportPdf(output, folder / "shown.pdf");
  const std::string pdf = (folder / "shown.pdf").string();
  const std::string fonts = Output("pdffonts '" + pdf + "'");
  EXPECT_NE(fonts.find("NotoSansTamil-Bold"), std::string::npos) << fonts;
  EXPECT_NE(fonts.find("NotoSansTamil-Regular"), std::string::npos) << fonts;
  const std::string text = Output("pdftotext -enc UTF-8 '" + pdf + "' -");
  // A legacy glyph code left unconverted reads back as a Latin-1 letter (the font's own digits,
  // blanks and note numbers may stay in it: they are the same in both).
  const std::u16string shown = text::Utf8ToUtf16(text);
  EXPECT_EQ(std::count_if(shown.begin(), shown.end(), [](char16_t c) { return c >= 0x80 && c <= 0xFF; }), 0)
      << "legacy glyph codes are still shown: " << text;
  for (const char* part : {"Header:", "Footer:", "Body:", "English", "Note:", "List:", "Cell:", "Frame:"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " missing from: " << text;
  }
}

INSTANTIATE_TEST_SUITE_P(LibreOffice, RenderedDocument, ::testing::Values(".odt", ".docx", ".doc", ".rtf"),
                         [](const auto& info) { return std::string(info.param + 1); });

}  // namespace
}  // namespace quilom::testing::lo
