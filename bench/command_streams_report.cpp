// How fast the quilom command streams, and in how much memory: each command is run as a person
// runs it, on a generated text of the size asked for (50 MB by default), and its wall time and
// peak resident memory are read from the system. Prints one line per command.
//
// Usage: command_streams_report [MEGABYTES]    (run from the build folder's bin/)
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Measure {
  double seconds = 0;
  long peakKilobytes = 0;
  int status = -1;
};

// Runs the program with stdin from `input` and stdout to `output`.
Measure Run(const std::vector<std::string>& args, const fs::path& input, const fs::path& output) {
  std::fflush(stdout);  // or the child would print what this process has not written yet
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    if (!std::freopen(input.c_str(), "rb", stdin) || !std::freopen(output.c_str(), "wb", stdout)) _exit(127);
    std::vector<char*> argv;
    for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  Measure measure;
  measure.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  measure.peakKilobytes = usage.ru_maxrss;
  measure.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return measure;
}

// Latin phonetic prose of common words, about `bytes` long.
void WritePhoneticText(const fs::path& file, std::size_t bytes) {
  const char* words[] = {"vaNakkam", "thamizh", "naan",     "unggaL", "kaathal",    "pongkal", "inRu",
                         "nalla",    "naaL",    "ellaarum", "kooyil", "puththakam", "paadam"};
  std::mt19937 random(7);
  std::ofstream out(file, std::ios::binary);
  std::size_t written = 0;
  for (int word = 1; written < bytes; ++word) {
    const std::string piece = std::string(words[random() % std::size(words)]) + (word % 12 == 0 ? "\n" : " ");
    out << piece;
    written += piece.size();
  }
}

void Report(const char* name, const Measure& measure, std::uintmax_t inputBytes) {
  std::printf("%-28s %8.1f MB/s %8.1f MB peak  (%.2f s, exit %d)\n", name,
              static_cast<double>(inputBytes) / 1e6 / measure.seconds, measure.peakKilobytes / 1024.0, measure.seconds,
              measure.status);
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t megabytes = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 50;
  const fs::path self = fs::canonical("/proc/self/exe").parent_path();
  const std::string quilom = (self / "quilom").string();
  const fs::path folder = fs::temp_directory_path() / ("quilom-streams-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const fs::path latin = folder / "latin.txt", tamil = folder / "tamil.txt", tscii = folder / "tscii.bin";
  WritePhoneticText(latin, megabytes * 1000 * 1000);
  std::printf("inputs of %zu MB; peak is the whole process's resident memory\n", megabytes);

  const auto size = [](const fs::path& file) { return fs::file_size(file); };
  Report("translit", Run({quilom, "translit"}, latin, tamil), size(latin));
  Report("reverse", Run({quilom, "reverse"}, tamil, "/dev/null"), size(tamil));
  Report("convert Unicode -> Tscii", Run({quilom, "convert", "--from", "Unicode", "--to", "Tscii"}, tamil, tscii),
         size(tamil));
  Report("convert Tscii -> Unicode", Run({quilom, "convert", "--from", "Tscii", "--to", "Unicode"}, tscii, "/dev/null"),
         size(tscii));
  Report("convert Tscii -> Bamini", Run({quilom, "convert", "--from", "Tscii", "--to", "Bamini"}, tscii, "/dev/null"),
         size(tscii));
  const fs::path urls = folder / "urls.txt";
  {
    std::ofstream out(urls, std::ios::binary);
    for (std::size_t written = 0; written < megabytes * 1000 * 1000; written += 76) {
      out << "https://ta.wikipedia.org/wiki/%E0%AE%A4%E0%AE%AE%E0%AE%BF%E0%AE%B4%E0%AF%8D\n";
    }
  }
  Report("urlnorm", Run({quilom, "urlnorm"}, urls, "/dev/null"), size(urls));
  Report("detect (reads its beginning)", Run({quilom, "detect"}, tscii, "/dev/null"), size(tscii));
  fs::remove_all(folder);
  return 0;
}
