#include "cli/cli_io.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

#include "text/text_input.hpp"

namespace quilom::cli {

namespace {

// The short forms every command knows, as people expect them.
std::string Canonical(const std::string& word) {
  if (word == "-o") return "--output";
  if (word == "-h") return "--help";
  if (word == "-q") return "--quiet";
  return word;
}

}  // namespace

ParsedArgs ParseArgs(const std::vector<std::string>& args, const std::set<std::string>& valueOptions,
                     const std::set<std::string>& flagOptions) {
  ParsedArgs parsed;
  // Asking for help wins over whatever else is wrong with the words.
  const auto optionsEnd = std::find(args.begin(), args.end(), "--");
  for (const char* common : {"--quiet", "--replace-invalid"}) {
    if (std::any_of(args.begin(), optionsEnd, [common](const std::string& w) { return Canonical(w) == common; })) {
      parsed.flags.insert(common);
    }
  }
  if (flagOptions.count("--help") &&
      std::any_of(args.begin(), optionsEnd, [](const std::string& w) { return Canonical(w) == "--help"; })) {
    parsed.flags.insert("--help");
    return parsed;
  }
  bool optionsEnded = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& word = args[i];
    if (optionsEnded || word == "-" || !word.starts_with("-")) {
      parsed.positional.push_back(word);
      continue;
    }
    if (word == "--") {
      optionsEnded = true;
      continue;
    }
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string name = Canonical(word.substr(0, equals));
    if (valueOptions.count(name)) {
      if (equals != std::string::npos) {
        parsed.values[name] = word.substr(equals + 1);
      } else if (i + 1 < args.size()) {
        parsed.values[name] = args[++i];
      } else {
        parsed.error = "option " + name + " needs a value";
        return parsed;
      }
    } else if ((flagOptions.count(name) || name == "--quiet" || name == "--replace-invalid") &&
               equals == std::string::npos) {
      parsed.flags.insert(name);
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

std::vector<std::string> InputsOrStandardInput(const ParsedArgs& parsed) {
  return parsed.positional.empty() ? std::vector<std::string>{""} : parsed.positional;
}

std::optional<std::string> ReadInputBytes(CommandContext& ctx, const std::string& file, const std::string& command) {
  if (IsStandardStream(file)) {
    return std::string(std::istreambuf_iterator<char>(ctx.in), std::istreambuf_iterator<char>());
  }
  std::optional<std::ifstream> stream = OpenInput(ctx, file, command);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(*stream), std::istreambuf_iterator<char>());
}

std::optional<std::string> ReadInputPrefix(CommandContext& ctx, const std::string& file, const std::string& command,
                                           std::size_t limit) {
  std::optional<std::ifstream> opened;
  if (!IsStandardStream(file)) {
    opened = OpenInput(ctx, file, command);
    if (!opened) return std::nullopt;
  }
  std::istream& in = opened ? *opened : ctx.in;
  std::string bytes(limit, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(limit));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

bool ReadBytePieces(CommandContext& ctx, const std::string& file, const std::string& command,
                    const std::function<void(std::string_view)>& piece) {
  std::optional<std::ifstream> opened;
  if (!IsStandardStream(file)) {
    opened = OpenInput(ctx, file, command);
    if (!opened) return false;
  }
  std::istream& in = opened ? *opened : ctx.in;
  std::string bytes(kPieceBytes, '\0');
  while (in) {
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (in.gcount() > 0) piece(std::string_view(bytes.data(), static_cast<std::size_t>(in.gcount())));
  }
  if (in.bad()) {
    ctx.err << "quilom " << command << ": cannot read '" << (IsStandardStream(file) ? "standard input" : file)
            << "': " << std::strerror(errno != 0 ? errno : EIO) << "\n";
    return false;
  }
  return true;
}

bool AcceptDecodedText(CommandContext& ctx, const std::string& command, const text::TextInputDecoder& decoder) {
  const std::optional<std::size_t> bad = decoder.InvalidAt();
  if (!bad) return true;
  const std::string problem = "the input is not valid " + std::string(text::TextFormName(decoder.Form())) +
                              ": the byte at offset " + std::to_string(*bad) + " is not part of a character";
  if (!ctx.replaceInvalid) {
    ctx.err << "quilom " << command << ": " << problem << " (--replace-invalid reads such bytes as U+FFFD)\n";
    return false;
  }
  if (!ctx.warned && !ctx.quiet) {
    ctx.err << "quilom " << command << ": warning: " << problem << "; such bytes were read as U+FFFD\n";
  }
  ctx.warned = true;
  return true;
}

bool ReadTextPieces(CommandContext& ctx, const std::string& file, const std::string& command,
                    const std::function<void(std::u16string_view)>& piece) {
  text::TextInputDecoder decoder;
  std::u16string text;
  bool accepted = true;
  const bool read = ReadBytePieces(ctx, file, command, [&](std::string_view bytes) {
    if (!accepted) return;
    text.clear();
    decoder.Feed(bytes, text);
    accepted = AcceptDecodedText(ctx, command, decoder);
    if (accepted) piece(text);
  });
  if (!read || !accepted) return false;
  text.clear();
  decoder.Finish(text);
  if (!AcceptDecodedText(ctx, command, decoder)) return false;
  piece(text);
  return true;
}

std::optional<std::uintmax_t> InputSize(const std::string& file) {
  if (IsStandardStream(file)) return std::nullopt;
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(std::filesystem::u8path(file), ec);
  return ec ? std::nullopt : std::optional<std::uintmax_t>(size);
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
  OutputFile output(ctx, command);
  return output.Open(file) && output.Write(bytes) && output.Commit();
}

OutputFile::OutputFile(CommandContext& ctx, std::string command) : ctx_(ctx), command_(std::move(command)) {}

bool OutputFile::Open(const std::string& file) {
  file_ = file;
  std::error_code error;
  return replacement_.Open(std::filesystem::u8path(file), error) || Fail(error);
}

bool OutputFile::Write(std::string_view bytes) {
  std::error_code error;
  return replacement_.Write(bytes, error) || Fail(error);
}

bool OutputFile::Commit() {
  std::error_code error;
  return replacement_.Commit(error) || Fail(error);
}

bool OutputFile::Fail(const std::error_code& error) {
  ctx_.err << "quilom " << command_ << ": cannot write '" << file_ << "': " << error.message() << "\n";
  replacement_.Discard();
  return false;
}

bool RefuseOutputOverInput(CommandContext& ctx, const std::string& output, const std::vector<std::string>& inputs,
                           const std::string& command) {
  if (IsStandardStream(output)) return false;
  const auto same = [](const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code ec;
    if (std::filesystem::equivalent(a, b, ec)) return true;
    const auto canonicalA = std::filesystem::weakly_canonical(a, ec);
    return !ec && canonicalA == std::filesystem::weakly_canonical(b, ec) && !ec;
  };
  for (const std::string& input : inputs) {
    if (!IsStandardStream(input) && same(std::filesystem::u8path(input), std::filesystem::u8path(output))) {
      ctx.err << "quilom " << command << ": the output '" << output << "' is the input '" << input
              << "': write to a new file\n";
      return true;
    }
  }
  return false;
}

ProgressBar::ProgressBar(CommandContext& ctx, std::string label)
    : ctx_(ctx), label_(std::move(label)), started_(std::chrono::steady_clock::now()) {}

void ProgressBar::Update(int percent, const std::string& detail) {
  if (!ctx_.errIsTerminal || ctx_.quiet || (percent == shown_ && detail == detail_)) return;
  // Work that ends within a moment draws nothing: a bar that flashes by only clutters.
  if (shown_ < 0 && std::chrono::steady_clock::now() - started_ < ctx_.progressDelay) return;
  shown_ = percent;
  detail_ = detail;
  constexpr int kWidth = 40;
  const int filled = percent * kWidth / 100;
  ctx_.err << "\r" << label_ << " [" << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] " << percent
           << "%" << (detail.empty() ? "" : " " + detail + "\x1b[K") << std::flush;
}

void ProgressBar::Finish() {
  if (!ctx_.errIsTerminal || shown_ < 0) return;
  Update(100, detail_);
  ctx_.err << "\n" << std::flush;
}

}  // namespace quilom::cli
