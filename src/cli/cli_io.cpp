#include "cli/cli_io.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

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

std::optional<std::string> ReadInputBytes(CommandContext& ctx, const std::string& file, const std::string& command) {
  if (file.empty() || file == "-") {
    return std::string(std::istreambuf_iterator<char>(ctx.in), std::istreambuf_iterator<char>());
  }
  std::ifstream stream(std::filesystem::u8path(file), std::ios::binary);
  if (!stream) {
    ctx.err << "quilom " << command << ": cannot open '" << file << "'\n";
    return std::nullopt;
  }
  return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

bool WriteOutputBytes(CommandContext& ctx, const std::string& file, const std::string& bytes,
                      const std::string& command) {
  if (file.empty() || file == "-") {
    ctx.out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ctx.out.flush();
    return static_cast<bool>(ctx.out);
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
  ctx_.err << "\r" << label_ << " [" << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] "
           << percent << "%" << std::flush;
}

void ProgressBar::Finish() {
  if (!ctx_.errIsTerminal || shown_ < 0) return;
  Update(100);
  ctx_.err << "\n" << std::flush;
}

}  // namespace quilom::cli
