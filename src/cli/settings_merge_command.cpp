// `quilom settings-merge`: brings a user's settings files up to a newer release's shipped
// defaults without losing a single choice. The installer runs it after an upgrade, with the new
// defaults in one folder and the user's data tree in another.
//
// What is merged, and how (decisions of this command):
// - Key files ("Settings.txt" and "Settings - <name>.txt"): the result follows the shipped file
//   line for line (its title and its key order), with every value the user has for a shipped key
//   taken over as the user stored it. A key the user's file lacks gets the shipped default. A
//   key only the user's file holds (one a newer release dropped) is kept after the shipped keys,
//   so that nothing the user chose is ever lost.
// - Ini files ("*.ini", "*.replica"): the user's text stays as it is, lines, comments and order
//   included; each shipped key the user's file lacks is added with the shipped value, in its
//   section (a missing section is added at the end).
// - A user file that does not exist yet is a copy of the shipped one.
// - A user file that exists but cannot be read is left alone and the run fails, so a damaged
//   file is never replaced by defaults behind the user's back.
// - Choice lists, prompts, headers and keymaps are not settings: they are not merged.

#include <filesystem>
#include <ostream>
#include <set>
#include <system_error>
#include <vector>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "settings/ini_file.hpp"
#include "settings/settings_lines.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::cli {
namespace {

namespace fs = std::filesystem;
using settings::kKeyPrefix;

constexpr const char* kName = "settings-merge";
constexpr int kUtf16LeWithMark = 3;

struct MergeCounts {
  int kept = 0;   // user values carried over
  int added = 0;  // shipped keys the user's file lacked
};

bool IsKeyLine(const std::u16string& line) { return line.starts_with(kKeyPrefix) && line.size() > kKeyPrefix.size(); }

std::u16string KeyOf(const std::u16string& keyLine) { return keyLine.substr(kKeyPrefix.size()); }

// The key lines of a settings file that have a value line, in file order, first occurrences only.
std::vector<size_t> KeyLineIndexes(const std::vector<std::u16string>& lines) {
  std::vector<size_t> indexes;
  std::set<std::u16string> seen;
  for (size_t i = 1; i + 1 < lines.size(); ++i) {
    if (!IsKeyLine(lines[i]) || !seen.insert(lines[i]).second) continue;
    indexes.push_back(i);
    ++i;  // the value line is never a key line
  }
  return indexes;
}

std::vector<std::u16string> MergeKeyLines(const std::vector<std::u16string>& shipped,
                                          const std::vector<std::u16string>& user, MergeCounts& counts) {
  std::vector<std::u16string> merged = shipped;
  std::set<std::u16string> shippedKeys;
  for (size_t i : KeyLineIndexes(shipped)) {
    shippedKeys.insert(shipped[i]);
    size_t userIndex = 0;
    if (settings::FindKeyLine(user, KeyOf(shipped[i]), userIndex) == settings::KeyLookup::Found) {
      merged[i + 1] = user[userIndex + 1];
      ++counts.kept;
    } else {
      ++counts.added;
    }
  }
  // Keys a newer release no longer ships go before the trailing blank lines.
  size_t end = merged.size();
  while (end > 1 && merged[end - 1].empty()) --end;
  std::vector<std::u16string> dropped;
  for (size_t i : KeyLineIndexes(user)) {
    if (shippedKeys.count(user[i])) continue;
    dropped.push_back(user[i]);
    dropped.push_back(user[i + 1]);
    ++counts.kept;
  }
  merged.insert(merged.begin() + static_cast<std::ptrdiff_t>(end), dropped.begin(), dropped.end());
  return merged;
}

struct IniEntry {
  std::u16string section;
  std::u16string key;
  std::u16string value;
};

std::vector<IniEntry> IniEntries(std::u16string_view textOfFile) {
  std::vector<IniEntry> entries;
  std::u16string section;
  for (const std::u16string& line : text::Split(textOfFile, text::kCrLf)) {
    const std::u16string trimmed = text::Trim(line);
    if (trimmed.size() >= 2 && trimmed.front() == u'[' && trimmed.back() == u']') {
      section = text::Trim(std::u16string_view(trimmed).substr(1, trimmed.size() - 2));
      continue;
    }
    const size_t equals = line.find(u'=');
    if (equals == std::u16string::npos) continue;
    entries.push_back({section, text::Trim(std::u16string_view(line).substr(0, equals)),
                       text::Trim(std::u16string_view(line).substr(equals + 1))});
  }
  return entries;
}

bool IsIniFile(const fs::path& file) {
  const fs::path extension = file.extension();
  return extension == ".ini" || extension == ".replica";
}

// The files a user's choices live in; everything else in the data tree is shipped data.
bool IsUserSettingsFile(const fs::path& file) {
  if (IsIniFile(file)) return true;
  const std::u16string name = file.filename().u16string();
  return name == u"Settings.txt" || (name.starts_with(u"Settings - ") && name.ends_with(u".txt"));
}

std::string Shown(const fs::path& file) { return text::Utf16ToUtf8(file.u16string()); }

class Merger {
 public:
  explicit Merger(CommandContext& ctx) : ctx_(ctx) {}

  // Merges one file; the label names it in the report line.
  bool MergeFile(const fs::path& shipped, const fs::path& user, const std::string& label) {
    std::error_code error;
    if (!fs::is_regular_file(shipped, error)) return Fail("the shipped file " + Shown(shipped) + " is missing");
    if (!fs::exists(user, error)) return CopyShipped(shipped, user, label);
    MergeCounts counts;
    const bool written = IsIniFile(user) ? MergeIni(shipped, user, counts) : MergeKeys(shipped, user, counts);
    if (!written) return false;
    ctx_.out << label << ": kept " << counts.kept << ", added " << counts.added << "\n";
    return true;
  }

  bool MergeFolder(const fs::path& shipped, const fs::path& user) {
    std::error_code error;
    std::vector<fs::path> files;
    for (fs::recursive_directory_iterator it(shipped, error), end; !error && it != end; it.increment(error)) {
      if (it->is_regular_file(error) && IsUserSettingsFile(it->path())) files.push_back(it->path());
    }
    if (error) return Fail("cannot list " + Shown(shipped) + ": " + error.message());
    bool allMerged = true;
    for (const fs::path& file : files) {
      const fs::path relative = file.lexically_relative(shipped);
      allMerged = MergeFile(file, user / relative, Shown(relative)) && allMerged;
    }
    return allMerged;
  }

 private:
  bool Fail(const std::string& message) {
    ctx_.err << "quilom settings-merge: " << message << "\n";
    return false;
  }

  bool CopyShipped(const fs::path& shipped, const fs::path& user, const std::string& label) {
    std::error_code error;
    if (user.has_parent_path()) fs::create_directories(user.parent_path(), error);
    if (!error) fs::copy_file(shipped, user, error);
    if (error) return Fail("cannot create " + Shown(user) + ": " + error.message());
    ctx_.out << label << ": new\n";
    return true;
  }

  bool MergeKeys(const fs::path& shipped, const fs::path& user, MergeCounts& counts) {
    bool shippedOk = false;
    bool userOk = false;
    const auto shippedLines = settings::ReadSettingsLines(shipped, shippedOk);
    const auto userLines = settings::ReadSettingsLines(user, userOk);
    if (!shippedOk) return Fail("cannot read " + Shown(shipped));
    if (!userOk) return Fail("cannot read " + Shown(user) + "; it was left as it is");
    const auto merged = MergeKeyLines(shippedLines, userLines, counts);
    if (merged == userLines) return true;
    return settings::WriteSettingsLines(user, merged) || Fail("cannot write " + Shown(user));
  }

  bool MergeIni(const fs::path& shipped, const fs::path& user, MergeCounts& counts) {
    std::u16string shippedText;
    std::u16string userText;
    if (!ReadWhole(shipped, shippedText)) return Fail("cannot read " + Shown(shipped));
    if (!ReadWhole(user, userText)) return Fail("cannot read " + Shown(user) + "; it was left as it is");
    for (const IniEntry& entry : IniEntries(shippedText)) {
      if (settings::FindIniValue(userText, entry.section, entry.key)) {
        ++counts.kept;
      } else {
        userText = settings::SetIniValue(userText, entry.section, entry.key, entry.value);
        ++counts.added;
      }
    }
    if (counts.added == 0) return true;
    return settings::WriteTextFile(user, userText, kUtf16LeWithMark) || Fail("cannot write " + Shown(user));
  }

  // ReadTextFile gives "" both for an empty file and for one it could not open; only the
  // second is an error here.
  static bool ReadWhole(const fs::path& file, std::u16string& result) {
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error) return false;
    result = settings::ReadTextFile(file);
    return size == 0 || !result.empty();
  }

  CommandContext& ctx_;
};

int RunSettingsMerge(CommandContext& ctx) {
  const ParsedArgs parsed = ParseArgs(ctx.args, {});
  if (!parsed.error.empty() || parsed.positional.size() != 2) {
    ctx.err << "quilom settings-merge: "
            << (parsed.error.empty() ? "give the shipped defaults and the user's copy (two files or two folders)"
                                     : parsed.error)
            << "\n";
    return 2;
  }
  const fs::path shipped(text::Utf8ToUtf16(parsed.positional[0]));
  const fs::path user(text::Utf8ToUtf16(parsed.positional[1]));
  Merger merger(ctx);
  std::error_code error;
  const bool merged = fs::is_directory(shipped, error) ? merger.MergeFolder(shipped, user)
                                                       : merger.MergeFile(shipped, user, Shown(user.filename()));
  return merged ? 0 : 1;
}

const RegisterCommand registration({
    kName,
    "settings-merge SHIPPED USER",
    "Bring the user's settings files (file or data folder) up to newer shipped defaults, keeping every value",
    RunSettingsMerge,
});

}  // namespace
}  // namespace quilom::cli
