#include "cli/cli_io.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

#include "text/text_input.hpp"

namespace quilom::cli {

ParsedArgs ParseArgs(const std::vector<std::string>& args, const std::set<std::string>& valueOptions,
                     const std::set<std::string>& flagOptions) {
  ParsedArgs parsed;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& word = args[i];
    if (word == "-" || !word.starts_with("-")) {
      parsed.positional.push_back(word);
    } else if (valueOptions.count(word)) {
      if (i + 1 >= args.size()) {
        parsed.error = "option " + word + " needs a value";
        return parsed;
      }
      parsed.values[word] = args[++i];
    } else if (flagOptions.count(word)) {
      parsed.flags.insert(word);
    } else {
      parsed.error = "unknown option '" + word + "'";
      return parsed;
    }
  }
  return parsed;
}

namespace {

constexpr std::size_t kPieceBytes = 1 << 16;

// Opens an input file, or says why not in the system's words.
std::optional<std::ifstream> OpenInput(CommandContext& ctx, const std::string& file, const std::string& command) {
  const auto path = std::filesystem::u8path(file);
  std::error_code ec;
  std::string reason;
  if (std::filesystem::is_directory(path, ec)) {
    reason = std::strerror(EISDIR);
  } else {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (stream) return stream;
    reason = std::strerror(errno != 0 ? errno : ENOENT);
  }
  ctx.err << "quilom " << command << ": cannot open '" << file << "': " << reason << "\n";
  return std::nullopt;
}

bool IsStandardStream(const std::string& file) { return file.empty() || file == "-"; }

}  // namespace

std::optional<std::string> ReadInputBytes(CommandContext& ctx, const std::string& file, const std::string& command) {
  if (IsStandardStream(file)) {
    return std::string(std::istreambuf_iterator<char>(ctx.in), std::istreambuf_iterator<char>());
  }
  std::optional<std::ifstream> stream = OpenInput(ctx, file, command);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(*stream), std::istreambuf_iterator<char>());
}

bool ReadTextPieces(CommandContext& ctx, const std::string& file, const std::string& command,
                    const std::function<void(std::u16string_view)>& piece) {
  std::optional<std::ifstream> opened;
  if (!IsStandardStream(file)) {
    opened = OpenInput(ctx, file, command);
    if (!opened) return false;
  }
  std::istream& in = opened ? *opened : ctx.in;
  text::TextInputDecoder decoder;
  std::string bytes(kPieceBytes, '\0');
  std::u16string text;
  while (in) {
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    text.clear();
    decoder.Feed(std::string_view(bytes.data(), static_cast<std::size_t>(in.gcount())), text);
    if (decoder.InvalidAt()) break;
    piece(text);
  }
  text.clear();
  decoder.Finish(text);
  if (const std::optional<std::size_t> bad = decoder.InvalidAt()) {
    ctx.err << "quilom " << command << ": the input is not valid " << text::TextFormName(decoder.Form())
            << ": the byte at offset " << *bad << " is not part of a character\n";
    return false;
  }
  piece(text);
  return true;
}

bool WriteStandardOutput(CommandContext& ctx, std::string_view bytes, const std::string& command) {
  errno = 0;
  ctx.out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ctx.out.flush();
  if (ctx.out) return true;
  ctx.err << "quilom " << command << ": cannot write to standard output: " << std::strerror(errno != 0 ? errno : EIO)
          << "\n";
  return false;
}

bool WriteOutputBytes(CommandContext& ctx, const std::string& file, const std::string& bytes,
                      const std::string& command) {
  if (IsStandardStream(file)) {
    return WriteStandardOutput(ctx, bytes, command);
  }
  const auto target = std::filesystem::u8path(file);
  auto temporary = target;
  temporary += ".quilom-tmp";
  {
    std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) {
      ctx.err << "quilom " << command << ": cannot write '" << file << "'\n";
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      return false;
    }
  }
  std::error_code ec;
  std::filesystem::rename(temporary, target, ec);
  if (ec) {
    ctx.err << "quilom " << command << ": cannot replace '" << file << "': " << ec.message() << "\n";
    std::filesystem::remove(temporary, ec);
    return false;
  }
  return true;
}

ProgressBar::ProgressBar(CommandContext& ctx, std::string label) : ctx_(ctx), label_(std::move(label)) {}

void ProgressBar::Update(int percent) {
  if (!ctx_.errIsTerminal || percent == shown_) return;
  shown_ = percent;
  constexpr int kWidth = 40;
  const int filled = percent * kWidth / 100;
  ctx_.err << "\r" << label_ << " [" << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] " << percent
           << "%" << std::flush;
}

void ProgressBar::Finish() {
  if (!ctx_.errIsTerminal || shown_ < 0) return;
  Update(100);
  ctx_.err << "\n" << std::flush;
}

}  // namespace quilom::cli
