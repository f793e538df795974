// What a person sees of a converted document: LibreOffice's own PDF export of the result, read
// back with poppler. Bold Tamil must be drawn with the bold face of the Unicode font, and the
// text must be the Tamil words.

#include <gtest/gtest.h>

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

class RenderedDocument : public ::testing::TestWithParam<const char*> {};

TEST_P(RenderedDocument, BoldTamilIsDrawnWithTheBoldFace) {
  ASSERT_NE(Office(), nullptr);
  if (Output("command -v pdffonts pdftotext").empty()) GTEST_SKIP() << "poppler-utils is not installed";
  TempFolder folder;
  const std::string input = (folder / (std::string("letter") + GetParam())).string();
  // தமிழ் in bold, then கொடி plain, in a TSCII font; an English word in another font.
  WriteDocument(input, {{{u"\u00BE\u00C1\u00A2\u00FA", u"TSCu_Paranar", true},
                         {u" \u00A6\u00B8\u00A1\u00CA ", u"TSCu_Paranar"},
                         {u"English", u"Liberation Serif"}}});
  const std::string output = (folder / (std::string("unicode") + GetParam())).string();
  std::istringstream in;
  std::ostringstream out, err;
  ASSERT_EQ(cli::RunQuilom({"--data", SourceDataRoot().string(), "convert", "--from", "Tscii", "--to", "Unicode", input,
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
  EXPECT_NE(text.find("English"), std::string::npos) << text;
  EXPECT_EQ(text.find("\xC2\xBE"), std::string::npos) << "a legacy glyph code is still shown: " << text;
}

INSTANTIATE_TEST_SUITE_P(LibreOffice, RenderedDocument, ::testing::Values(".odt", ".docx", ".doc", ".rtf"),
                         [](const auto& info) { return std::string(info.param + 1); });

}  // namespace
}  // namespace quilom::testing::lo
