#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "converter/document_backends.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun Convert(const std::vector<std::string>& words, const std::string& input = "", bool errIsTerminal = false) {
  std::vector<std::string> args = {"--data", testing::SourceDataRoot().string(), "convert"};
  args.insert(args.end(), words.begin(), words.end());
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), errIsTerminal,
                               std::chrono::milliseconds{0});
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

// Legacy text is bytes: the Webulagam bytes of கோயில் happen to form valid UTF-8, and are
// glyph codes all the same.
TEST(ConvertCommand, LegacyInputIsReadAsBytesEvenWhenTheyFormValidUtf8) {
  const CommandRun legacy = Convert({"--from", "Unicode", "--to", "Webulagam"}, "கோயில்");
  ASSERT_EQ(legacy.status, 0) << legacy.err;
  ASSERT_FALSE(text::FirstInvalidUtf8(legacy.out)) << "the case needs bytes that look like UTF-8";
  const CommandRun back = Convert({"--from", "Webulagam", "--to", "Unicode"}, legacy.out);
  EXPECT_EQ(back.status, 0) << back.err;
  EXPECT_EQ(back.out, "கோயில்");
}

// What glibc writes for TSCII, read back by the command. glibc keeps Unicode's order for the
// prefix signs of grantha letters (ஜெ as ஜ then ெ); where the next glyph cannot take the sign (a
// dead consonant, ா, a blank) it can only belong to the letter before. Before a live consonant
// the sign is that consonant's, as in every TSCII font: glibc's அபிஷேகம் shows as அபிஷகேம்.
TEST(ConvertCommand, ReadsGlibcTsciiOfGranthaWords) {
  const iconv_t toTscii = iconv_open("TSCII", "UTF-8");
  if (toTscii == reinterpret_cast<iconv_t>(-1)) GTEST_SKIP() << "this C library has no TSCII converter";
  std::string words = "ஹோட்டல் ஜெர்மனி க்ஷேத்திரம் ஜௌளி ஷோ ஜை";
  std::string bytes(words.size() * 2, '\0');
  char* in = words.data();
  char* out = bytes.data();
  std::size_t inLeft = words.size(), outLeft = bytes.size();
  const std::size_t converted = iconv(toTscii, &in, &inLeft, &out, &outLeft);
  iconv_close(toTscii);
  ASSERT_NE(converted, static_cast<std::size_t>(-1));
  bytes.resize(bytes.size() - outLeft);
  const CommandRun run = Convert({"--from", "Tscii", "--to", "Unicode"}, bytes);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, words);
}

TEST(ConvertCommand, UnmappableCharactersStopTheRunAndNothingIsWritten) {
  testing::TempFolder folder;
  const std::string output = (folder / "out.txt").string();
  const CommandRun run = Convert({"--from", "Unicode", "--to", "Tscii", "-o", output}, "விலை\nரூ ₹250 ₹5\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_FALSE(std::filesystem::exists(output));
  EXPECT_NE(run.err.find("2 characters cannot be written in Tscii"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("\"₹\" (U+20B9) at line 2, column 4"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("--unmappable"), std::string::npos) << run.err;
}

TEST(ConvertCommand, UnmappablePoliciesSkipReplaceOrKeepKnowingly) {
  const std::string input = "கா ₹5";
  const CommandRun skipped = Convert({"--from", "Unicode", "--to", "Tscii", "--unmappable", "skip"}, input);
  EXPECT_EQ(skipped.status, 3);
  EXPECT_EQ(skipped.out, "\xB8\xA1 5");
  EXPECT_NE(skipped.err.find("warning: 1 character cannot be written in Tscii"), std::string::npos);

  const CommandRun replaced = Convert({"--from", "Unicode", "--to", "Tscii", "--replacement", "#"}, input);
  EXPECT_EQ(replaced.status, 3);
  EXPECT_EQ(replaced.out, "\xB8\xA1 #5");

  // Kept, the output cannot be bytes: it is the characters of the TSCII view, in UTF-8.
  const CommandRun kept = Convert({"--from", "Unicode", "--to", "Tscii", "--unmappable", "keep"}, input);
  EXPECT_EQ(kept.status, 3);
  EXPECT_EQ(kept.out, "¸¡ ₹5");
  EXPECT_NE(kept.err.find("kept as they are in the UTF-8 text of the Tscii view"), std::string::npos) << kept.err;

  // Punctuation that the font draws a letter on is no less unmappable than a rupee sign.
  const CommandRun pulli = Convert({"--from", "Unicode", "--to", "Bamini"}, "சரி;");
  EXPECT_EQ(pulli.status, 1);
  EXPECT_NE(pulli.err.find("\";\" (U+003B) at line 1, column 4"), std::string::npos) << pulli.err;
}

// A long text is converted a block of lines at a time; what it holds is placed in the whole
// text, and several inputs are converted into one output, as iconv does.
TEST(ConvertCommand, LongTextsAndSeveralInputsConvertAsOneText) {
  testing::TempFolder folder;
  std::string text;
  for (int line = 1; line <= 400000; ++line) text += line == 399999 ? "கா ₹\n" : "கா\n";
  testing::WriteBytes(folder / "long.txt", text);
  testing::WriteBytes(folder / "short.txt", "கா\n");
  const std::string longFile = (folder / "long.txt").string(), shortFile = (folder / "short.txt").string();

  const CommandRun stopped = Convert({"--from", "Unicode", "--to", "Tscii", shortFile, longFile});
  EXPECT_EQ(stopped.status, 1);
  EXPECT_NE(stopped.err.find("at line 399999, column 4 in " + longFile), std::string::npos) << stopped.err;

  const CommandRun skipped = Convert({"--from", "Unicode", "--to", "Tscii", "--unmappable=skip", shortFile, longFile});
  EXPECT_EQ(skipped.status, 3);
  std::string expected;
  for (int line = 0; line <= 400000; ++line) expected += line == 399999 ? "\xB8\xA1 \n" : "\xB8\xA1\n";
  EXPECT_TRUE(skipped.out == expected) << "sizes " << skipped.out.size() << " and " << expected.size();
}

TEST(ConvertCommand, LegacyTextOptionReadsAndWritesTheFontView) {
  const CommandRun view = Convert({"--from", "Unicode", "--to", "Tscii", "--legacy-text"}, "கா");
  EXPECT_EQ(view.status, 0) << view.err;
  EXPECT_EQ(view.out, "¸¡");
  const CommandRun back = Convert({"--from", "Tscii", "--to", "Unicode", "--legacy-text"}, "\xEF\xBB\xBF" + view.out);
  EXPECT_EQ(back.status, 0) << back.err;
  EXPECT_EQ(back.out, "கா");
}

TEST(ConvertCommand, TextInputIsCheckedNeverGuessed) {
  const CommandRun legacyAsUnicode = Convert({"--from", "Unicode", "--to", "Bamini"}, "ok\xC5\xBD\xEC");
  EXPECT_EQ(legacyAsUnicode.status, 1);
  EXPECT_NE(legacyAsUnicode.err.find("not valid UTF-8: the byte at offset 4"), std::string::npos)
      << legacyAsUnicode.err;

  const CommandRun markedLegacy = Convert({"--from", "Tscii", "--to", "Unicode"}, "\xFF\xFE\xB8\x00");
  EXPECT_EQ(markedLegacy.status, 1);
  EXPECT_NE(markedLegacy.err.find("--legacy-text"), std::string::npos) << markedLegacy.err;
}

TEST(ConvertCommand, PolicyWordsAreCheckedBeforeAnyWork) {
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"--unmappable", "ignore"},
           {"--replacement", "ab"},
           {"--unmappable", "skip", "--replacement", "#"},
           {"--to", "Bamini", "--replacement", ";"},  // the replacement itself is a glyph code
       }) {
    std::vector<std::string> args = {"--from", "Unicode"};
    if (words[0] != "--to") args.insert(args.end(), {"--to", "Tscii"});
    args.insert(args.end(), words.begin(), words.end());
    const CommandRun run = Convert(args, "₹");
    EXPECT_EQ(run.status, 2) << words[1] << ": " << run.err;
    EXPECT_EQ(run.out, "");
  }
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

// The fonts each replace-all was given, in the order they were first used. The placeholder pairs
// are searched in any font whatever the run's font, so an empty find font is left out.
struct FontLog {
  std::vector<std::u16string> findFonts;
  std::vector<std::u16string> replacementFonts;
  std::size_t replaceAlls = 0;
};

FontLog& Log() {
  static FontLog log;
  return log;
}

void NoteOnce(std::vector<std::u16string>& seen, const std::u16string& font) {
  if (!font.empty() && std::find(seen.begin(), seen.end(), font) == seen.end()) {
    seen.push_back(font);
  }
}

class RecordingEditor final : public converter::DocumentEditor {
 public:
  bool HasSelection() override { return false; }
  void SetScope(converter::EditScope) override {}
  void SetFindFont(std::u16string_view font) override { findFont_ = font; }
  void SetReplacementFont(std::u16string_view font) override { replacementFont_ = font; }
  bool ReplaceAll(std::u16string_view, std::u16string_view) override {
    NoteOnce(Log().findFonts, findFont_);
    NoteOnce(Log().replacementFonts, replacementFont_);
    ++Log().replaceAlls;
    return true;
  }
  void SetScreenUpdating(bool) override {}
  void ClearUndo() override {}
  ErrorDetails LastError() const override { return {}; }

 private:
  std::u16string findFont_;
  std::u16string replacementFont_;
};

class RecordingSession final : public converter::DocumentSession {
 public:
  converter::DocumentEditor& Editor() override { return editor_; }
  bool SaveAs(const std::filesystem::path& output, std::string&) override {
    testing::WriteBytes(output, "saved");
    return true;
  }

 private:
  RecordingEditor editor_;
};

class RecordingBackend final : public converter::DocumentBackend {
 public:
  std::string Name() const override { return "RecordingOffice"; }
  std::vector<std::string> Extensions() const override { return {".qrec"}; }
  bool IsAvailable(std::string&) override { return true; }
  std::unique_ptr<converter::DocumentSession> Open(const std::filesystem::path&, std::string&) override {
    return std::make_unique<RecordingSession>();
  }
};

class ConvertDocumentFonts : public ::testing::Test {
 protected:
  void SetUp() override {
    converter::RegisterDocumentBackend(std::make_shared<RecordingBackend>());
    Log() = {};
  }
  CommandRun ConvertDocument(std::vector<std::string> words, bool errIsTerminal = false) {
    testing::WriteBytes(folder_ / "letter.qrec", "{\\rtf1 }");
    words.insert(words.end(), {(folder_ / "letter.qrec").string(), "-o", (folder_ / "out.qrec").string()});
    return Convert(words, "", errIsTerminal);
  }
  testing::TempFolder folder_;
};

// A file that is no document is refused before the word processor is asked to open it, and
// an output folder that does not exist is made only on request.
TEST_F(ConvertDocumentFonts, RefusesNonDocumentsAndMissingFoldersBeforeAnyWork) {
  testing::WriteBytes(folder_ / "garbage.qrec", "\x89PNG\r\n\x1A\n....");
  const CommandRun garbage =
      Convert({"--from", "Bamini", "--to", "Unicode", (folder_ / "garbage.qrec").string(), "-o", "out.qrec"});
  EXPECT_EQ(garbage.status, 1);
  EXPECT_NE(garbage.err.find("it is not a word-processor document"), std::string::npos) << garbage.err;
  EXPECT_EQ(Log().replaceAlls, 0u);

  const std::string missing = (folder_ / "no" / "such" / "out.qrec").string();
  ASSERT_EQ(ConvertDocument({"--from", "Bamini", "--to", "Unicode"}).status, 0);  // writes letter.qrec
  const CommandRun noFolder =
      Convert({"--from", "Bamini", "--to", "Unicode", (folder_ / "letter.qrec").string(), "-o", missing});
  EXPECT_EQ(noFolder.status, 2);
  EXPECT_NE(noFolder.err.find("does not exist (--parents makes it)"), std::string::npos) << noFolder.err;
  EXPECT_FALSE(std::filesystem::exists(folder_ / "no"));
  const CommandRun made =
      Convert({"--from", "Bamini", "--to", "Unicode", (folder_ / "letter.qrec").string(), "-o", missing, "--parents"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_TRUE(std::filesystem::is_directory(folder_ / "no" / "such"));
}

// A folder of documents (and text) converts in one run into a folder that mirrors it; a file
// that fails is named and the rest go on; the run ends with a summary and says if any failed.
TEST_F(ConvertDocumentFonts, FoldersConvertIntoAMirroredFolderWithOneLinePerFailure) {
  const auto in = folder_ / "in";
  std::filesystem::create_directories(in / "old" / "letters");
  testing::WriteBytes(in / "a.qrec", "{\\rtf1 }");
  testing::WriteBytes(in / "old" / "letters" / "b.qrec", "{\\rtf1 }");
  testing::WriteBytes(in / "old" / "broken.qrec", "\x89PNG");
  testing::WriteBytes(in / "old" / "notes.txt", "fh");
  testing::WriteBytes(in / "old" / "photo.jpg", "\xFF\xD8");
  const auto out = folder_ / "out";
  const CommandRun missing =
      Convert({"--from", "Bamini", "--to", "Unicode", in.string(), "-o", out.string(), "--pattern", "*.qrec,*.txt"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("does not exist (--parents makes it)"), std::string::npos) << missing.err;

  const CommandRun run = Convert({"--from", "Bamini", "--to", "Unicode", in.string(), "-o", out.string(), "--parents",
                                  "--pattern", "*.qrec,*.txt"});
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_TRUE(std::filesystem::exists(out / "a.qrec"));
  EXPECT_TRUE(std::filesystem::exists(out / "old" / "letters" / "b.qrec"));
  EXPECT_FALSE(std::filesystem::exists(out / "old" / "broken.qrec"));
  EXPECT_FALSE(std::filesystem::exists(out / "old" / "photo.jpg"));
  EXPECT_EQ(testing::ReadBytes(out / "old" / "notes.txt"), "கா");
  EXPECT_EQ(testing::ReadBytes(in / "old" / "notes.txt"), "fh");
  EXPECT_NE(run.err.find("FAILED " + (in / "old" / "broken.qrec").string() + ": cannot open"), std::string::npos)
      << run.err;
  EXPECT_NE(run.err.find("3 of 4 files converted into " + out.string()), std::string::npos) << run.err;
  EXPECT_NE(run.err.find(", 1 failed"), std::string::npos) << run.err;
}

TEST_F(ConvertDocumentFonts, FindsOnlyTheLegacyFontsAndGivesTheChosenUnicodeFont) {
  using Fonts = std::vector<std::u16string>;
  struct Case {
    std::vector<std::string> words;
    Fonts find;
    Fonts replacement;
  };
  const Case cases[] = {
      // Without a named font only the encoding's default font is searched, so English stays.
      {{"--from", "Bamini", "--to", "Unicode"}, {u"Bamini"}, {u"Latha"}},
      {{"--from", "Bamini", "--to", "Unicode", "--legacy-font", "Bamini Bold", "--unicode-font", "Noto Sans Tamil"},
       {u"Bamini Bold"},
       {u"Noto Sans Tamil"}},
      {{"--from", "Bamini", "--to", "Unicode", "--font", "Noto Sans Tamil"}, {u"Bamini"}, {u"Noto Sans Tamil"}},
      // Each named font in turn, in the order given.
      {{"--from", "Bamini", "--to", "Unicode", "--legacy-font", "Baamini", "--legacy-font", "Bamini"},
       {u"Baamini", u"Bamini"},
       {u"Latha"}},
      {{"--from", "Bamini", "--to", "Unicode", "--legacy-font", "any font"}, {}, {u"Latha"}},
      // Unicode text is found in any font unless one is named; it gets one legacy font.
      {{"--from", "Unicode", "--to", "Bamini"}, {}, {u"Bamini"}},
      {{"--from", "Unicode", "--to", "Bamini", "--unicode-font", "Latha", "--legacy-font", "Bamini Bold"},
       {u"Latha"},
       {u"Bamini Bold"}},
      // Through Unicode: the second step finds only what the first step wrote.
      {{"--from", "Tscii", "--to", "Bamini"}, {u"TSCu_Paranar", u"Latha"}, {u"Latha", u"Bamini"}},
  };
  for (const Case& c : cases) {
    Log() = {};
    const CommandRun run = ConvertDocument(c.words);
    const std::string label = ::testing::PrintToString(c.words);
    EXPECT_EQ(run.status, 0) << label << run.err;
    EXPECT_GT(Log().replaceAlls, 100u) << label;
    EXPECT_EQ(Log().findFonts, c.find) << label;
    EXPECT_EQ(Log().replacementFonts, c.replacement) << label;
    EXPECT_EQ(testing::ReadBytes(folder_ / "out.qrec"), "saved") << label;
  }
}

TEST_F(ConvertDocumentFonts, RefusesFontChoicesThatCannotHoldBeforeTouchingTheDocument) {
  struct Case {
    std::vector<std::string> words;
    std::string message;
  };
  const Case cases[] = {
      {{"--from", "Unicode", "--to", "Bamini", "--legacy-font", "A", "--legacy-font", "B"}, "give --legacy-font once"},
      {{"--from", "Unicode", "--to", "Bamini", "--legacy-font", "Any Font"}, "not \"Any Font\""},
      {{"--from", "Bamini", "--to", "Unicode", "--font", "Latha", "--unicode-font", "Noto"}, "give one font"},
  };
  for (const Case& c : cases) {
    Log() = {};
    const CommandRun run = ConvertDocument(c.words);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_EQ(Log().replaceAlls, 0u);
  }
  const CommandRun noName =
      Convert({"--from", "Bamini", "--to", "Unicode", "letter.qrec", "-o", "x.qrec", "--legacy-font"});
  EXPECT_EQ(noName.status, 2);
  EXPECT_NE(noName.err.find("--legacy-font needs a font name"), std::string::npos) << noName.err;
}

TEST_F(ConvertDocumentFonts, PlainTextSaysFontsDoNotApplyAndStillConverts) {
  const CommandRun run =
      Convert({"--from", "Tscii", "--to", "Unicode", "--legacy-font", "TSCu_Paranar"}, kTsciiGreeting);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, kUnicodeGreeting);
  EXPECT_NE(run.err.find("plain text has no fonts"), std::string::npos) << run.err;
  EXPECT_EQ(Log().replaceAlls, 0u);
}

// The bar covers every font pass and both steps through Unicode, so it never runs backwards.
TEST_F(ConvertDocumentFonts, ProgressBarRisesOnceOverAllPassesToTheEnd) {
  const std::vector<std::string> requests[] = {
      {"--from", "Bamini", "--to", "Unicode", "--legacy-font", "Baamini", "--legacy-font", "Bamini"},
      {"--from", "Tscii", "--to", "Bamini"},
  };
  for (const auto& words : requests) {
    const CommandRun run = ConvertDocument(words, true);
    ASSERT_EQ(run.status, 0) << run.err;
    std::vector<int> shown;
    const std::regex percent(R"(\] (\d+)%)");
    for (auto it = std::sregex_iterator(run.err.begin(), run.err.end(), percent); it != std::sregex_iterator(); ++it) {
      shown.push_back(std::stoi((*it)[1]));
    }
    ASSERT_FALSE(shown.empty()) << run.err;
    EXPECT_TRUE(std::is_sorted(shown.begin(), shown.end())) << run.err;
    EXPECT_EQ(shown.back(), 100);
    EXPECT_TRUE(std::any_of(shown.begin(), shown.end(), [](int p) { return p >= 40 && p <= 60; })) << run.err;
    EXPECT_EQ(run.err.back(), '\n');
  }
}

}  // namespace
}  // namespace quilom::cli
