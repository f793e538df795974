#include <memory>
#include <optional>
#include <ostream>

#include "cli/cli_io.hpp"
#include "cli/command.hpp"
#include "settings/data_folders.hpp"
#include "text/utf.hpp"
#include "tools/auto_transliteration.hpp"
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

int RunTranslit(CommandContext& ctx) {
  const auto args = ParseArgs(ctx.args, {"--keymap"});
  if (!args.error.empty() || args.positional.size() > 1) {
    ctx.err << "quilom translit: " << (args.error.empty() ? "too many files" : args.error)
            << "\nusage: quilom translit [--keymap NAME] [FILE]\n";
    return 2;
  }
  const auto keymapOption = args.values.find("--keymap");
  const std::u16string scheme =
      keymapOption == args.values.end() ? std::u16string(kDefaultKeymap) : text::Utf8ToUtf16(keymapOption->second);
  const auto keymap = LoadKeymap(ctx, scheme);
  if (!keymap) return 1;

  const std::string file = args.positional.empty() ? "" : args.positional[0];
  const auto bytes = ReadInputBytes(ctx, file, kCommand);
  if (!bytes) return 1;
  std::u16string input = text::Utf8ToUtf16(*bytes);
  if (!input.empty() && input[0] == 0xFEFF) input.erase(0, 1);

  translit::NullOutputSink sink;
  translit::Engine engine(sink);
  engine.SetKeymap(keymap->tables);
  engine.SetSettings(keymap->engine);
  ProgressBar bar(ctx, "translit");
  const auto output = tools::AutoTransliterate(input, engine, {}, [&bar](int percent) { bar.Update(percent); });
  bar.Finish();
  return WriteOutputBytes(ctx, "", text::Utf16ToUtf8(output), kCommand) ? 0 : 1;
}

const RegisterCommand kRegistration{Command{
    kCommand,
    "translit [--keymap NAME] [FILE]",
    "type a Latin phonetic text (UTF-8, FILE or standard input) through a keymap, as the typing "
    "settings of the data folder load it; default Tamil-Unicode-PhoneticTransliteration",
    RunTranslit,
}};

}  // namespace
}  // namespace quilom::cli
