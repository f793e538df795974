#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "converter/document_backends.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun Convert(const std::vector<std::string>& words, const std::string& input = "") {
  std::vector<std::string> args = {"--data", testing::SourceDataRoot().string(), "convert"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

// வணக்கம் தமிழ் in TSCII 1.7 bytes, as glibc's converter also writes them.
const std::string kTsciiGreeting = "\xC5\xBD\xEC\xB8\xF5 \xBE\xC1\xA2\xFA";
const std::string kUnicodeGreeting = "வணக்கம் தமிழ்";

TEST(ConvertCommand, LegacyBytesToUtf8AndBackThroughStandardStreams) {
  const CommandRun toUnicode = Convert({"--from", "tscii", "--to", "UNICODE"}, kTsciiGreeting);
  EXPECT_EQ(toUnicode.status, 0) << toUnicode.err;
  EXPECT_EQ(toUnicode.out, kUnicodeGreeting);
  const CommandRun toLegacy = Convert({"--from", "Unicode", "--to", "Tscii", "-"}, kUnicodeGreeting);
  EXPECT_EQ(toLegacy.status, 0) << toLegacy.err;
  EXPECT_EQ(toLegacy.out, kTsciiGreeting);
}

TEST(ConvertCommand, ReadsEveryTextFileFormAndWritesTheOutputFile) {
  testing::TempFolder folder;
  const std::string utf16 = std::string("\xFF\xFE") + std::string("\x95\x0B\xBE\x0B", 4);  // கா
  testing::WriteBytes(folder / "in.txt", utf16);
  const CommandRun run = Convert(
      {"--from", "Unicode", "--to", "Bamini", (folder / "in.txt").string(), "-o", (folder / "out.txt").string()});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), "fh");
}

TEST(ConvertCommand, LegacyToLegacyGoesThroughUnicode) {
  const CommandRun run = Convert({"--from", "Tscii", "--to", "Bamini"}, kTsciiGreeting);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "tzf;fk; jkpo;");
}

TEST(ConvertCommand, PrivateUseGlyphsAreWrittenAsUtf8) {
  const CommandRun run = Convert({"--from", "Unicode", "--to", "Tace"}, "தமிழ்");
  EXPECT_EQ(run.status, 0) << run.err;
  const CommandRun back = Convert({"--from", "Tace", "--to", "Unicode"}, run.out);
  EXPECT_EQ(back.out, "தமிழ்");
  EXPECT_NE(run.out, "தமிழ்");
}

TEST(ConvertCommand, RefusesWhatItCannotDoWithAClearMessage) {
  const CommandRun unknown = Convert({"--from", "Klingon", "--to", "Unicode"}, "x");
  EXPECT_NE(unknown.status, 0);
  EXPECT_NE(unknown.err.find("unknown encoding 'Klingon'"), std::string::npos) << unknown.err;
  EXPECT_NE(unknown.err.find("Unicode, Anjal"), std::string::npos) << unknown.err;
  EXPECT_NE(unknown.err.find("Tscii"), std::string::npos);

  const CommandRun same = Convert({"--from", "unicode", "--to", "Unicode"}, "x");
  EXPECT_NE(same.status, 0);
  EXPECT_NE(same.err.find("same encoding"), std::string::npos) << same.err;

  const CommandRun missing = Convert({"--to", "Unicode"}, "x");
  EXPECT_NE(missing.status, 0);
  EXPECT_NE(missing.err.find("--from ENCODING is required"), std::string::npos) << missing.err;

  const CommandRun noFile = Convert({"--from", "Tscii", "--to", "Unicode", "/nonexistent/in.txt"});
  EXPECT_NE(noFile.status, 0);
  EXPECT_NE(noFile.err.find("cannot open"), std::string::npos);
}

class FakeBackend final : public converter::DocumentBackend {
 public:
  std::string Name() const override { return "FakeOffice"; }
  std::vector<std::string> Extensions() const override { return {".fakedoc"}; }
  bool IsAvailable(std::string& why) override {
    why = "FakeOffice is not installed";
    return false;
  }
  std::unique_ptr<converter::DocumentSession> Open(const std::filesystem::path&, std::string&) override {
    return nullptr;
  }
};

TEST(ConvertCommand, DocumentsNeedTheirBackend) {
  const CommandRun docx = Convert({"--from", "Tscii", "--to", "Unicode", "letter.DOCX", "-o", "out.docx"});
  EXPECT_NE(docx.status, 0);
  if (!converter::FindDocumentBackend(".docx")) {
    EXPECT_NE(docx.err.find("converting .docx needs LibreOffice"), std::string::npos) << docx.err;
  }
  converter::RegisterDocumentBackend(std::make_shared<FakeBackend>());
  EXPECT_TRUE(converter::IsDocumentExtension(".odt"));
  EXPECT_FALSE(converter::IsDocumentExtension(".fakedoc"));
  EXPECT_EQ(converter::DocumentBackendProblem(".FAKEDOC"),
            "converting .fakedoc needs FakeOffice: FakeOffice is not installed");
}

}  // namespace
}  // namespace quilom::cli
