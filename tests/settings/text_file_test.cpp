#include "settings/text_file.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "settings/short_path.hpp"
#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"

namespace quilom::settings {
namespace {

using testing::ReadBytes;
using testing::ScopedRecordingReporter;
using testing::TempFolder;
using testing::WriteBytes;

// Tamil "vanakkam", a Latin-1 letter and a character outside the BMP, across a CR LF.
const std::u16string kSample = u"வணக்கம் é\r\n😀z";
// The UTF-8 of kSample.
const std::string kSampleUtf8 =
    "\xE0\xAE\xB5\xE0\xAE\xA3\xE0\xAE\x95\xE0\xAF\x8D\xE0\xAE\x95\xE0\xAE\xAE\xE0\xAF\x8D \xC3\xA9\r\n"
    "\xF0\x9F\x98\x80z";

std::u16string RfTag(const std::filesystem::path& path) { return u"RFF\r\n(" + path.u16string() + u")"; }

struct ReadResult {
  std::u16string text;
  TextEncoding encoding;
};

ReadResult Read(const std::filesystem::path& path, bool detectUtf8 = false, bool normalise = false) {
  std::u16string resultMode = u" ";
  auto encoding = static_cast<TextEncoding>(0);
  std::u16string text = ReadTextFile(path, resultMode, encoding, detectUtf8, normalise);
  return {text, encoding};
}

std::string Utf16LeBytes(std::u16string_view text) {
  std::string bytes;
  for (char16_t ch : text) {
    bytes += static_cast<char>(ch & 0xFF);
    bytes += static_cast<char>(ch >> 8);
  }
  return bytes;
}

std::string Utf16BeBytes(std::u16string_view text) {
  std::string bytes;
  for (char16_t ch : text) {
    bytes += static_cast<char>(ch >> 8);
    bytes += static_cast<char>(ch & 0xFF);
  }
  return bytes;
}

TEST(WriteTextFile, WritesTheExactBytesOfEachEncodingAndReadsThemBack) {
  struct Row {
    int code;
    std::u16string text;
    std::string bytes;
  };
  const Row rows[] = {
      {2, kSample, "\xEF\xBB\xBF" + kSampleUtf8},
      {3, kSample, "\xFF\xFE" + Utf16LeBytes(kSample)},
      {4, kSample, kSampleUtf8},
      {5, kSample, "\xFE\xFF" + Utf16BeBytes(kSample)},
      // The code page cannot show Tamil, so only Latin-1 text survives code 1.
      {1, u"café €\r\nœ", "caf\xE9 \x80\r\n\x9C"},
  };
  ScopedRecordingReporter reports;
  TempFolder folder;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.code);
    const auto file = folder / "out.txt";
    ASSERT_TRUE(WriteTextFile(file, row.text, row.code));
    EXPECT_EQ(ReadBytes(file), row.bytes);
    const ReadResult back = Read(file, /*detectUtf8=*/true);
    EXPECT_EQ(back.text, row.text);
    EXPECT_EQ(static_cast<int>(back.encoding), row.code);
  }
  EXPECT_TRUE(reports->messages.empty());
}

TEST(WriteTextFile, ACodeOutsideOneToFiveLeavesAnEmptyFile) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  for (int code : {0, 6, -1}) {
    WriteBytes(folder / "a.txt", "old contents");
    EXPECT_TRUE(WriteTextFile(folder / "a.txt", u"new", code));
    EXPECT_EQ(ReadBytes(folder / "a.txt"), "") << code;
  }
  EXPECT_TRUE(reports->messages.empty());
}

TEST(ReadTextFile, MarksAreTestedInOrderAndDecideTheEncoding) {
  struct Row {
    const char* name;
    std::string bytes;
    std::u16string text;
    TextEncoding encoding;
  };
  const Row rows[] = {
      {"FF FE wins",
       std::string("\xFF\xFE"
                   "A\0",
                   4),
       u"A", TextEncoding::Utf16LeBom},
      // FF FE FF FE: only the first mark is dropped; the second is text.
      {"second mark is text",
       std::string("\xFF\xFE\xFF\xFE"
                   "B\0",
                   6),
       u"\uFEFFB", TextEncoding::Utf16LeBom},
      {"FE FF", std::string("\xFE\xFF\0C", 4), u"C", TextEncoding::Utf16BeBom},
      {"EF BB BF",
       "\xEF\xBB\xBF"
       "D",
       u"D", TextEncoding::Utf8Bom},
      {"no mark", "E\xC3\xA9", u"Eé", TextEncoding::Utf8NoBom},
      {"EF BB alone is no mark", "\xEF\xBB", u"\uFFFD", TextEncoding::Utf8NoBom},
      {"a lone FF", "\xFF", u"\uFFFD", TextEncoding::Utf8NoBom},
  };
  TempFolder folder;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    WriteBytes(folder / "f.txt", row.bytes);
    const ReadResult result = Read(folder / "f.txt");
    EXPECT_EQ(result.text, row.text);
    EXPECT_EQ(result.encoding, row.encoding);
  }
}

TEST(ReadTextFile, Utf8DetectionChoosesBetweenUtf8AndTheCodePage) {
  TempFolder folder;
  const auto file = folder / "latin1.txt";
  WriteBytes(file, "caf\xE9 \x80\x81");

  const ReadResult plain = Read(file, /*detectUtf8=*/false);
  EXPECT_EQ(plain.encoding, TextEncoding::Utf8NoBom);
  EXPECT_EQ(plain.text, u"caf\uFFFD \uFFFD\uFFFD");

  const ReadResult detected = Read(file, /*detectUtf8=*/true);
  EXPECT_EQ(detected.encoding, TextEncoding::Ansi);
  EXPECT_EQ(detected.text, u"café €\uFFFD");

  WriteBytes(file, kSampleUtf8);
  const ReadResult valid = Read(file, /*detectUtf8=*/true);
  EXPECT_EQ(valid.encoding, TextEncoding::Utf8NoBom);
  EXPECT_EQ(valid.text, kSample);
}

TEST(ReadTextFile, NewlinesBecomeCrLfOnlyWhenTheTextHoldsNone) {
  struct Row {
    std::string bytes;
    std::u16string normalised;
  };
  const Row rows[] = {
      {"a\nb\n", u"a\r\nb\r\n"},
      {"a\rb\r", u"a\r\nb\r\n"},
      {"a\r\nb\nc", u"a\r\nb\nc"},  // already holds CR LF: left mixed
      {"a\n\rb", u"a\r\n\rb"},      // LF wins over CR; the CR stays bare
      {"abc", u"abc"},
  };
  TempFolder folder;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.bytes);
    WriteBytes(folder / "n.txt", row.bytes);
    EXPECT_EQ(Read(folder / "n.txt", false, /*normalise=*/true).text, row.normalised);
    EXPECT_EQ(Read(folder / "n.txt", false, /*normalise=*/false).text,
              std::u16string(row.bytes.begin(), row.bytes.end()));
  }
}

TEST(ReadTextFile, AnEmptyResultModeReceivesTheTextInstead) {
  TempFolder folder;
  WriteBytes(folder / "r.txt", "text");
  std::u16string resultMode;
  TextEncoding encoding{};
  EXPECT_EQ(ReadTextFile(folder / "r.txt", resultMode, encoding, false, false), u"");
  EXPECT_EQ(resultMode, u"text");

  std::u16string blank = u" ";
  EXPECT_EQ(ReadTextFile(folder / "r.txt", blank, encoding, false, false), u"text");
  EXPECT_EQ(blank, u" ");
}

TEST(ReadTextFile, AnEmptyFileReadsSilentlyAndLeavesTheEncodingAlone) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  WriteBytes(folder / "empty.txt", "");
  std::u16string resultMode = u" ";
  TextEncoding encoding = TextEncoding::Utf16BeBom;
  EXPECT_EQ(ReadTextFile(folder / "empty.txt", resultMode, encoding, true, true), u"");
  EXPECT_EQ(encoding, TextEncoding::Utf16BeBom);
  EXPECT_TRUE(reports->messages.empty());
}

TEST(ReadTextFile, AMissingFileOrAFolderIsReportedWithItsPath) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  EXPECT_EQ(ReadTextFile(folder / "missing.txt"), u"");
  EXPECT_TRUE(reports->HasTag(RfTag(folder / "missing.txt")));
  EXPECT_EQ(ReadTextFile(folder.path()), u"");
  EXPECT_TRUE(reports->HasTag(RfTag(folder.path())));
  EXPECT_EQ(reports->messages.size(), 2u);
  EXPECT_EQ(reports->titles[0], u"Quilom++");
}

TEST(ReadTextFile, AnOddBigEndianFileIsReportedButAnOddLittleEndianOneKeepsItsLastByteVisible) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  WriteBytes(folder / "be.txt", std::string("\xFE\xFF\0A\0", 5));
  const ReadResult be = Read(folder / "be.txt");
  EXPECT_EQ(be.text, u"");
  EXPECT_TRUE(reports->HasTag(RfTag(folder / "be.txt")));

  WriteBytes(folder / "le.txt", std::string("\xFF\xFE"
                                            "A\0B",
                                            5));
  EXPECT_EQ(Read(folder / "le.txt").text, u"A\uFFFD");
  EXPECT_EQ(reports->messages.size(), 1u);
}

TEST(ReadTextFile, OpensFilesThroughTheInstalledShortPathFunction) {
  ScopedRecordingReporter reports;
  TempFolder folder;
  WriteBytes(folder / "short.txt", "from the short path");
  const auto previous = SetShortPathFunction([&](const std::filesystem::path& path) {
    return path.filename() == "long name.txt" ? folder / "short.txt" : std::filesystem::path();
  });
  EXPECT_EQ(ReadTextFile(folder / "long name.txt"), u"from the short path");
  // No short form (the system refused) is a read failure like a missing file.
  WriteBytes(folder / "other.txt", "x");
  EXPECT_EQ(ReadTextFile(folder / "other.txt"), u"");
  EXPECT_TRUE(reports->HasTag(RfTag(folder / "other.txt")));
  SetShortPathFunction(previous);
  EXPECT_EQ(ReadTextFile(folder / "other.txt"), u"x");
}

TEST(IsValidUtf8, FollowsThePermissiveReaderRules) {
  struct Row {
    std::string bytes;
    bool valid;
  };
  const Row rows[] = {
      {"", true},
      {"\xC3\xA9", true},
      {"\xF0\x9F\x98\x80", true},
      {"\xF8\x88\x80\x80\x80", true},      // five-byte form passes on purpose
      {"\xFC\x84\x80\x80\x80\x80", true},  // six-byte form too
      {"\xC0\x80", true},                  // overlong forms are not looked for
      {"\xED\xA0\x80", true},              // nor surrogates
      {"\xFE", true},                      // 254 and 255 announce nothing
      {"\x80", false},                     // continuation where a character starts
      {"\xC3", false},                     // runs past the end
      {"\xC3\x41", false},                 // a follower outside 128-191
      {"\xF0\x9F\x98\xC0", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(IsValidUtf8(reinterpret_cast<const unsigned char*>(row.bytes.data()),
                          static_cast<std::int32_t>(row.bytes.size())),
              row.valid)
        << ::testing::PrintToString(row.bytes);
  }
  const unsigned char lead[] = {0xC3, 0xA9};
  EXPECT_TRUE(IsValidUtf8(lead, 0));  // the count bounds the walk, not the buffer
  EXPECT_FALSE(IsValidUtf8(lead, 1));
}

// Saves go through a temporary file, so a failure mid-way leaves the old file whole.
class SaveFailure : public ::testing::Test {
 protected:
  TempFolder folder;
  std::filesystem::path file = folder / "Settings.txt";
  const std::string old = "\xFF\xFE" + Utf16LeBytes(u"title\r\n`````key\r\nvalue");

  void SetUp() override { WriteBytes(file, old); }

  size_t FilesInFolder() const {
    return static_cast<size_t>(
        std::distance(std::filesystem::directory_iterator(folder.path()), std::filesystem::directory_iterator()));
  }
};

TEST_F(SaveFailure, ADiskThatFillsUpMidWayLeavesTheOldFileWhole) {
  ScopedRecordingReporter reports;
  // A file-size limit makes the write fail part-way, as a full disk would.
  rlimit previous{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
  const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit small = previous;
  small.rlim_cur = 64;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool written = WriteTextFile(file, std::u16string(500, u'x'), 3);
  setrlimit(RLIMIT_FSIZE, &previous);
  std::signal(SIGXFSZ, previousHandler);

  EXPECT_FALSE(written);
  EXPECT_EQ(ReadBytes(file), old);
  EXPECT_EQ(FilesInFolder(), 1u) << "the temporary file was left behind";
  EXPECT_TRUE(reports->HasTag(u"WT-File"));
}

TEST_F(SaveFailure, AReadOnlyFileIsNotReplaced) {
  ScopedRecordingReporter reports;
  std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::group_read);
  EXPECT_FALSE(WriteTextFile(file, u"new", 3));
  EXPECT_EQ(ReadBytes(file), old);
  EXPECT_TRUE(reports->HasTag(u"WT-File"));
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

TEST_F(SaveFailure, ASuccessfulSaveKeepsTheFilesPermissionsAndLeavesNoTemporaryFile) {
  using std::filesystem::perms;
  std::filesystem::permissions(file, perms::owner_read | perms::owner_write);
  ASSERT_TRUE(WriteTextFile(file, u"new", 4));
  EXPECT_EQ(ReadBytes(file), "new");
  EXPECT_EQ(std::filesystem::status(file).permissions() & perms::all, perms::owner_read | perms::owner_write);
  EXPECT_EQ(FilesInFolder(), 1u);
}

}  // namespace
}  // namespace quilom::settings
