#include <memory>
#include <optional>
#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "cli/exit_codes.hpp"
#include "settings/data_folders.hpp"
#include "shell/keyboard_typist.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"
#include "translit/keymap_resolution.hpp"
#include "translit/typing_settings.hpp"

namespace quilom::cli {
namespace {

constexpr char kCommand[] = "translit";
constexpr char16_t kDefaultKeymap[] = u"Tamil-Unicode-PhoneticTransliteration";

std::string InstalledList(const std::vector<std::u16string>& names) {
  if (names.empty()) return "(none)";
  std::string list;
  for (const auto& name : names) list += (list.empty() ? "" : ", ") + text::Utf16ToUtf8(name);
  return list;
}

// The keymap the typing window would load for `scheme` under the user's typing settings: the
// setting-driven variant folders, a user's own phonetic scheme from its ".txt" file, and the
// engine's typing mode for the scheme's language.
struct LoadedKeymap {
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  translit::EngineSettings engine;
};

std::optional<LoadedKeymap> LoadKeymap(CommandContext& ctx, const std::u16string& scheme) {
  const auto folders = settings::DataFolders::ForDataRoot(ctx.dataRoot);
  const auto typing = translit::LoadTypingSettings(folders);
  const auto notify = [&ctx](std::u16string_view message) {
    ctx.err << "quilom translit: " << text::Utf16ToUtf8(message) << "\n";
  };
  LoadedKeymap loaded;
  switch (translit::LoadKeymapForSettings(folders, typing, scheme, loaded.tables, notify)) {
    case translit::LoadOutcome::Loaded:
      loaded.engine = translit::EngineSettingsFor(typing, scheme);
      return loaded;
    case translit::LoadOutcome::Missing:
      ctx.err << "quilom translit: unknown keymap '" << text::Utf16ToUtf8(scheme)
              << "'. Installed keymaps: " << InstalledList(translit::InstalledKeymaps(folders.keymapFolder)) << "\n";
      return std::nullopt;
    case translit::LoadOutcome::Refused:
      break;
  }
  ctx.err << "quilom translit: cannot load keymap '" << text::Utf16ToUtf8(scheme) << "'\n";
  return std::nullopt;
}

constexpr const char* kUsage = "translit [--keymap NAME] [--keep-backquoted] [FILE...] [-o|--output OUT] [--list]";

// The installed keymap whose name matches `name` without regard to ASCII case; the name as
// given when none does (a user's own scheme is found by the loader).
std::u16string InstalledName(const CommandContext& ctx, const std::u16string& name) {
  const auto folders = settings::DataFolders::ForDataRoot(ctx.dataRoot);
  for (const std::u16string& installed : translit::InstalledKeymaps(folders.keymapFolder)) {
    if (text::AsciiLower(installed) == text::AsciiLower(name)) return installed;
  }
  return name;
}

// The text is typed as a person types it with typing on (see shell/keyboard_typist.hpp), so
// the command gives what live typing gives, key for key, and streams: what no later key can
// change is written at once.
int RunTranslit(CommandContext& ctx) {
  const auto args = ParseArgs(ctx.args, {"--keymap", "--output"}, {"--keep-backquoted", "--list"});
  if (!args.error.empty()) {
    ctx.err << "quilom translit: " << args.error << "\nusage: quilom " << kUsage << "\n";
    return kExitUsage;
  }
  if (args.flags.count("--list")) {
    std::string names;
    for (const auto& name : translit::InstalledKeymaps(settings::DataFolders::ForDataRoot(ctx.dataRoot).keymapFolder)) {
      names += text::Utf16ToUtf8(name) + "\n";
    }
    return WriteStandardOutput(ctx, names, kCommand) ? kExitDone : kExitFailed;
  }
  const auto keymapOption = args.values.find("--keymap");
  const std::u16string scheme = keymapOption == args.values.end()
                                    ? std::u16string(kDefaultKeymap)
                                    : InstalledName(ctx, text::Utf8ToUtf16(keymapOption->second));
  const auto keymap = LoadKeymap(ctx, scheme);
  if (!keymap) return kExitFailed;

  const std::string outputName = args.values.count("--output") ? args.values.at("--output") : "";
  if (RefuseOutputOverInput(ctx, outputName, args.positional, kCommand)) return kExitUsage;
  std::optional<OutputFile> outputFile;
  if (!outputName.empty() && outputName != "-") {
    outputFile.emplace(ctx, kCommand);
    if (!outputFile->Open(outputName)) return kExitFailed;
  }

  shell::KeyboardTypist typist(keymap->tables, keymap->engine);
  typist.KeepBackQuoted(args.flags.count("--keep-backquoted") > 0);
  bool written = true;
  const auto write = [&](const std::u16string& text) {
    if (!written || text.empty()) return;
    const std::string bytes = text::Utf16ToUtf8(text);
    written = outputFile ? outputFile->Write(bytes) : WriteStandardOutput(ctx, bytes, kCommand);
  };
  bool read = true;
  for (const std::string& input : InputsOrStandardInput(args)) {
    read = read && ReadTextPieces(ctx, input, kCommand, [&](std::u16string_view piece) {
             if (!written) return;
             typist.Type(piece);
             write(typist.TakeSettled());
           });
  }
  if (read) write(typist.Finish());
  if (read && written && outputFile) written = outputFile->Commit();
  if (!read || !written) return kExitFailed;
  return ctx.warned ? kExitLeftOvers : kExitDone;
}

const RegisterCommand kRegistration{Command{
    kCommand,
    kUsage,
    "type a Latin phonetic text (UTF-8, FILE or standard input) through a keymap exactly as live typing "
    "types it, key by key, with the keymap as the typing settings load it (default "
    "Tamil-Unicode-PhoneticTransliteration); --keep-backquoted copies `text like this` as it stands",
    RunTranslit,
}};

}  // namespace
}  // namespace quilom::cli
