#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "cli/command.hpp"
#include "converter/libreoffice/office_connection.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "writer_fixture.hpp"

namespace quilom::testing::lo {
namespace {

// `quilom convert` on a .docx goes through the registered LibreOffice backend.
TEST(QuilomConvert, ConvertsADocxIntoANewDocument) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  WriteDocument(folder / "report.docx",
                {{{u"\u00BE\u00C1\u00A2\u00FA \u00A6\u00B8\u00A1\u00CA", u"TSCu_Paranar", true}}});
  std::istringstream in;
  std::ostringstream out, err;
  const int status =
      cli::RunQuilom({"--data", SourceDataRoot().string(), "convert", "--from", "Tscii", "--to", "Unicode",
                      (folder / "report.docx").string(), "-o", (folder / "report.odt").string()},
                     in, out, err, folder.path(), false);
  ASSERT_EQ(status, 0) << err.str();
  const auto paragraphs = ReadDocument(folder / "report.odt");
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_EQ(TextOf(paragraphs[0]), u"தமிழ் கொடி");
  EXPECT_TRUE(paragraphs[0][0].bold);
  // No partial file is left beside the output.
  EXPECT_FALSE(std::filesystem::exists(folder / "report.odt.quilom-partial.odt"));
}

// A document saved from Writer's web view (mimetype text-web) loads as a web document; it is
// converted and saved like any other.
TEST(QuilomConvert, ConvertsADocumentOfTheWebView) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  WriteDocument(folder / "page.odt", {{{u"\u00BE\u00C1\u00A2\u00FA", u"TSCu_Paranar", false}}});
  const std::string web = "cd '" + folder.path().string() +
                          "' && mkdir unpacked && cd unpacked && unzip -q ../page.odt && "
                          "printf application/vnd.oasis.opendocument.text-web > mimetype && "
                          "sed -i 's#opendocument.text\"#opendocument.text-web\"#' META-INF/manifest.xml && "
                          "zip -q -X -0 ../web.odt mimetype && zip -q -X -r ../web.odt . -x mimetype";
  ASSERT_EQ(std::system(web.c_str()), 0);
  std::istringstream in;
  std::ostringstream out, err;
  const int status = cli::RunQuilom(
      {"--data", SourceDataRoot().string(), "convert", "--from", "Tscii", "--to", "Unicode",
       (folder / "web.odt").string(), "-o", (folder / "web-out.odt").string(), "--legacy-font", "TSCu_Paranar"},
      in, out, err, folder.path(), false);
  ASSERT_EQ(status, 0) << err.str();
  const auto paragraphs = ReadDocument(folder / "web-out.odt");
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_EQ(TextOf(paragraphs[0]), u"தமிழ்");
}

// --from auto: a document in TSCII and TAM fonts converts in one go, each font by its own
// encoding, and English in another font stays.
TEST(QuilomConvert, EachFontIsConvertedByTheEncodingItsNameTells) {
  ASSERT_NE(Office(), nullptr);
  TempFolder folder;
  const auto legacy = [](const char* encoding, const std::string& unicode) {
    std::istringstream in(unicode);
    std::ostringstream out, err;
    cli::RunQuilom(
        {"--data", SourceDataRoot().string(), "convert", "--from", "Unicode", "--to", encoding, "--legacy-text"}, in,
        out, err, ".", false);
    return text::Utf8ToUtf16(out.str());
  };
  WriteDocument(folder / "mixed.docx",
                {{{legacy("Tscii", "தமிழ்"), u"TSCu_Paranar", true}, {u" English", u"Liberation Serif"}},
                 {{legacy("Tam", "பொங்கல்"), u"TAMu_Kalyani"}}});
  std::istringstream in;
  std::ostringstream out, err;
  const int status =
      cli::RunQuilom({"--data", SourceDataRoot().string(), "convert", "--from", "auto", "--to", "Unicode",
                      (folder / "mixed.docx").string(), "-o", (folder / "mixed.odt").string()},
                     in, out, err, folder.path(), false);
  ASSERT_EQ(status, 0) << err.str();
  EXPECT_NE(err.str().find("font 'TSCu_Paranar': Tscii, by its name"), std::string::npos) << err.str();
  EXPECT_NE(err.str().find("font 'TAMu_Kalyani': Tam, by its name"), std::string::npos) << err.str();
  const auto paragraphs = ReadDocument(folder / "mixed.odt");
  ASSERT_EQ(paragraphs.size(), 2u);
  EXPECT_EQ(TextOf(paragraphs[0]), u"தமிழ் English");
  EXPECT_TRUE(paragraphs[0][0].bold);
  EXPECT_EQ(TextOf(paragraphs[1]), u"பொங்கல்");
}

// A program that never accepts a connection is given up on after the time-out, and stopped.
TEST(OfficeConnection, GivesUpOnAnOfficeThatDoesNotStartInTime) {
  TempFolder folder;
  const auto fake = folder / "soffice";
  WriteBytes(fake, "#!/bin/sh\nexec sleep 60\n");
  std::filesystem::permissions(fake, std::filesystem::perms::owner_all);
  setenv("QUILOM_SOFFICE", fake.c_str(), 1);
  std::string error;
  const auto started = std::chrono::steady_clock::now();
  const auto office = converter::libreoffice::OfficeConnection::StartPrivate(std::chrono::seconds(1), error);
  unsetenv("QUILOM_SOFFICE");
  EXPECT_EQ(office, nullptr);
  EXPECT_NE(error.find("did not start within 1 seconds"), std::string::npos) << error;
  // The sleeping stand-in was killed rather than waited for.
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(30));
}

}  // namespace
}  // namespace quilom::testing::lo
