// The conventions every command keeps, as people who use iconv and coreutils expect them.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "cli/command.hpp"
#include "support/temp_folder.hpp"

namespace quilom::cli {
namespace {

namespace fs = std::filesystem;

struct QuilomRun {
  int status;
  std::string out, err;
};

QuilomRun Quilom(std::vector<std::string> args, const std::string& input = "") {
  args.insert(args.begin(), {"--data", testing::SourceDataRoot().string()});
  std::istringstream in(input);
  std::ostringstream out, err;
  const int status = RunQuilom(args, in, out, err, testing::SourceDataRoot().parent_path(), false);
  return {status, out.str(), err.str()};
}

TEST(CommandConventions, HelpAnywhereJoinedValuesAndTheEndOfOptions) {
  for (const std::string& command : {"translit", "reverse", "convert", "urlnorm"}) {
    const QuilomRun help = Quilom({command, "-x", "-h"});
    EXPECT_EQ(help.status, 0) << command << help.err;
    EXPECT_NE(help.out.find("quilom " + command), std::string::npos) << command << ": " << help.out;
  }
  EXPECT_EQ(Quilom({"-h"}).status, 0);
  EXPECT_NE(Quilom({"--help"}).out.find("Exit status"), std::string::npos);

  EXPECT_EQ(Quilom({"translit", "--keymap=Tamil-Unicode-PhoneticTransliteration"}, "ka").out, "க");
  EXPECT_EQ(Quilom({"convert", "--from=Unicode", "--to=Tscii"}, "கா").out, "\xB8\xA1");
  // After "--" a word that looks like an option is a file name.
  const QuilomRun named = Quilom({"translit", "--", "--keymap"});
  EXPECT_EQ(named.status, 1);
  EXPECT_NE(named.err.find("cannot open '--keymap': No such file or directory"), std::string::npos) << named.err;
}

TEST(CommandConventions, NamesAreListedOneALineAndMatchedWithoutCase) {
  const QuilomRun encodings = Quilom({"convert", "--list"});
  EXPECT_EQ(encodings.status, 0);
  EXPECT_EQ(encodings.out.substr(0, 14), "Unicode\nAnjal\n");
  EXPECT_NE(encodings.out.find("\nTscii\n"), std::string::npos);
  const QuilomRun keymaps = Quilom({"translit", "--list"});
  EXPECT_NE(keymaps.out.find("\nTamil-Unicode-TamilNet99\n"), std::string::npos) << keymaps.out;
  EXPECT_EQ(std::count(keymaps.out.begin(), keymaps.out.end(), '\n'), 29);

  EXPECT_EQ(Quilom({"translit", "--keymap", "TAMIL-unicode-tamilnet99"}, ";q").out, "நா");
  EXPECT_EQ(Quilom({"convert", "--from", "UNICODE", "--to", "tscii"}, "கா").out, "\xB8\xA1");
}

TEST(CommandConventions, QuietKeepsWarningsAndNotesOffButNotErrors) {
  const QuilomRun warned = Quilom({"convert", "--from", "Unicode", "--to", "Tscii", "--unmappable", "skip"}, "₹");
  EXPECT_NE(warned.err.find("warning"), std::string::npos);
  const QuilomRun quiet = Quilom({"convert", "-q", "--from", "Unicode", "--to", "Tscii", "--unmappable", "skip"}, "₹");
  EXPECT_EQ(quiet.status, 3);
  EXPECT_EQ(quiet.err, "");
  const QuilomRun failed = Quilom({"convert", "-q", "--from", "Unicode", "--to", "Tscii"}, "₹");
  EXPECT_EQ(failed.status, 1);
  EXPECT_NE(failed.err.find("cannot be written in Tscii"), std::string::npos);
}

TEST(CommandConventions, EveryCommandThatWritesTakesDashO) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "in.txt", "ka");
  const std::string in = (folder / "in.txt").string();
  struct Case {
    std::vector<std::string> args;
    std::string expected;
  };
  const Case cases[] = {
      {{"translit", in, "-o"}, "க"},
      {{"convert", "--from", "Unicode", "--to", "Bamini", "-o"}, "f"},
      {{"reverse", "--no-word-list", "--output"}, "ka"},
      {{"urlnorm", "a%41", "-o"}, "aA\n"},
  };
  for (const Case& c : cases) {
    std::vector<std::string> args = c.args;
    args.push_back((folder / "out.txt").string());
    const QuilomRun run = Quilom(args, "க");
    EXPECT_EQ(run.status, 0) << c.args[0] << ": " << run.err;
    EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), c.expected) << c.args[0];
    fs::remove(folder / "out.txt");
  }
}

// Every command reads text the same way: invalid UTF-8 is refused with its offset, unless the
// run asks for it to be read as U+FFFD, which ends with a warning and status 3.
TEST(CommandConventions, InvalidTextIsRefusedOrReplacedOnRequestByEveryCommand) {
  const std::vector<std::vector<std::string>> commands = {
      {"translit"}, {"reverse", "--no-word-list"}, {"convert", "--from", "Unicode", "--to", "Tace"}, {"urlnorm"}};
  for (const std::vector<std::string>& command : commands) {
    const QuilomRun refused = Quilom(command, "ab\xE9");
    EXPECT_EQ(refused.status, 1) << command[0];
    EXPECT_NE(refused.err.find("not valid UTF-8: the byte at offset 2"), std::string::npos) << refused.err;
    if (command[0] == "urlnorm") continue;  // an address cannot hold U+FFFD
    std::vector<std::string> replacing = command;
    replacing.push_back("--replace-invalid");
    const QuilomRun replaced = Quilom(replacing, "ab\xE9");
    EXPECT_EQ(replaced.status, 3) << command[0] << replaced.err;
    EXPECT_NE(replaced.out.find("\xEF\xBF\xBD"), std::string::npos) << command[0] << ": " << replaced.out;
    EXPECT_NE(replaced.err.find("warning"), std::string::npos) << command[0];
  }
}

// Several inputs make one text, as with cat or iconv.
TEST(CommandConventions, SeveralInputsAreReadInTurn) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "a.txt", "ka\n");
  testing::WriteBytes(folder / "b.txt", "\xEF\xBB\xBFki\n");
  const std::string a = (folder / "a.txt").string(), b = (folder / "b.txt").string();
  EXPECT_EQ(Quilom({"translit", a, b}).out, "க\nகி\n");
  EXPECT_EQ(Quilom({"reverse", "--no-word-list", b, a}).out, Quilom({"reverse", "--no-word-list"}, "கி\nக\n").out);
  testing::WriteBytes(folder / "c.txt", "கி\n");
  EXPECT_EQ(Quilom({"convert", "--from", "Unicode", "--to", "Bamini", "-", (folder / "c.txt").string()}, "கா\n").out,
            "fh\nfp\n");
}

// The output is checked against every input before any work, whatever the format.
TEST(CommandConventions, AnOutputThatIsAnInputIsRefused) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "in.txt", "ka");
  fs::create_symlink("in.txt", folder / "alias.txt");
  const std::string in = (folder / "in.txt").string();
  const std::string alias = (folder / "alias.txt").string();
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"translit", in, "-o", in},
           {"reverse", in, "-o", alias},
           {"convert", "--from", "Bamini", "--to", "Unicode", in, "-o", alias},
           {"convert", "--from", "Bamini", "--to", "Unicode", "letter.odt", "-o", "letter.odt"},
       }) {
    const QuilomRun run = Quilom(args);
    EXPECT_EQ(run.status, 2) << args[0] << ": " << run.err;
    EXPECT_NE(run.err.find("is the input"), std::string::npos) << args[0] << ": " << run.err;
  }
  EXPECT_EQ(testing::ReadBytes(folder / "in.txt"), "ka");
}

TEST(CommandConventions, OutputFilesAreReplacedSafelyOrNotAtAll) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "locked.txt", "keep");
  fs::permissions(folder / "locked.txt", fs::perms::owner_read);
  const QuilomRun locked = Quilom({"translit", "-o", (folder / "locked.txt").string()}, "ka");
  EXPECT_EQ(locked.status, 1);
  EXPECT_NE(locked.err.find("cannot write '" + (folder / "locked.txt").string() + "': Permission denied"),
            std::string::npos)
      << locked.err;
  EXPECT_EQ(testing::ReadBytes(folder / "locked.txt"), "keep");

  // A failed run (an unmappable character) leaves the old output and no temporary.
  testing::WriteBytes(folder / "out.txt", "old");
  const QuilomRun failed =
      Quilom({"convert", "--from", "Unicode", "--to", "Tscii", "-o", (folder / "out.txt").string()}, "₹");
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(testing::ReadBytes(folder / "out.txt"), "old");
  int entries = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder.path())) ++entries;
  EXPECT_EQ(entries, 2);
}

}  // namespace
}  // namespace quilom::cli
