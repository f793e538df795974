#include "converter/libreoffice/office_process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <thread>
#include <vector>

namespace quilom::converter::libreoffice {
namespace {

bool IsExecutable(const std::filesystem::path& file) { return !file.empty() && access(file.c_str(), X_OK) == 0; }

std::filesystem::path SearchPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  if (path == nullptr) {
    return {};
  }
  std::string folders(path);
  size_t start = 0;
  while (start <= folders.size()) {
    size_t end = folders.find(':', start);
    if (end == std::string::npos) end = folders.size();
    const std::filesystem::path candidate = std::filesystem::path(folders.substr(start, end - start)) / program;
    if (IsExecutable(candidate)) {
      return candidate;
    }
    start = end + 1;
  }
  return {};
}

// Waits for the child to end, for at most `limit`; true when it has been reaped.
bool WaitFor(int pid, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (true) {
    int status = 0;
    const int done = waitpid(pid, &status, WNOHANG);
    if (done == pid || (done < 0 && errno == ECHILD)) {
      return true;
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

// True while some process of the group is still alive (the launcher may have ended while
// the office it started goes on).
bool GroupAlive(int pgid) { return kill(-pgid, 0) == 0; }

void WaitForGroup(int pgid, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (GroupAlive(pgid) && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

std::string FileUrl(const std::filesystem::path& folder) { return "file://" + folder.string(); }

// The offices of this process, for the signal handler: an office runs in a session of its
// own, so an interrupted or killed-by-timeout client would otherwise leave it running, and its
// private profile behind.
constexpr int kMaxOffices = 8;
constexpr std::size_t kMaxProfilePath = 1024;
volatile sig_atomic_t runningGroups[kMaxOffices] = {};
char runningProfiles[kMaxOffices][kMaxProfilePath] = {};

// The handlers that were in place before ours (the command's own clean-up), called after ours.
struct sigaction previousHandlers[NSIG] = {};

// Only calls that a signal handler may make: kill, fork, execv, waitpid.
void RemoveProfile(const char* profile) {
  if (profile[0] == '\0') return;
  const pid_t remover = fork();
  if (remover == 0) {
    char* const argv[] = {const_cast<char*>("rm"), const_cast<char*>("-rf"), const_cast<char*>(profile), nullptr};
    execv("/bin/rm", argv);
    _exit(127);
  }
  if (remover > 0) waitpid(remover, nullptr, 0);
}

extern "C" void StopOfficesAndDie(int signalNumber) {
  for (int i = 0; i < kMaxOffices; ++i) {
    if (runningGroups[i] > 0) {
      kill(-runningGroups[i], SIGKILL);
      RemoveProfile(runningProfiles[i]);
    }
  }
  const struct sigaction& previous = previousHandlers[signalNumber];
  if (!(previous.sa_flags & SA_SIGINFO) && previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN &&
      previous.sa_handler != nullptr) {
    previous.sa_handler(signalNumber);  // the command's own clean-up, which ends the program
  }
  signal(signalNumber, SIG_DFL);
  raise(signalNumber);
}

void WatchSignals() {
  for (int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction current {};
    if (sigaction(signalNumber, nullptr, &current) != 0 || current.sa_handler == StopOfficesAndDie) continue;
    if (current.sa_handler == SIG_IGN) continue;  // a signal the program ignores stays ignored
    previousHandlers[signalNumber] = current;
    struct sigaction stop {};
    stop.sa_handler = StopOfficesAndDie;
    sigemptyset(&stop.sa_mask);
    sigaction(signalNumber, &stop, nullptr);
  }
}

void Remember(int pgid, bool running, const std::filesystem::path& profile = {}) {
  for (int i = 0; i < kMaxOffices; ++i) {
    if (running && runningGroups[i] == 0) {
      const std::string path = profile.string();
      if (path.size() < kMaxProfilePath) std::memcpy(runningProfiles[i], path.c_str(), path.size() + 1);
      runningGroups[i] = pgid;
      return;
    }
    if (!running && runningGroups[i] == pgid) {
      runningGroups[i] = 0;
      runningProfiles[i][0] = '\0';
      return;
    }
  }
}

}  // namespace

std::filesystem::path FindSoffice() {
  if (const char* chosen = std::getenv("QUILOM_SOFFICE"); chosen != nullptr && *chosen != '\0') {
    return IsExecutable(chosen) ? std::filesystem::path(chosen) : std::filesystem::path();
  }
  const std::filesystem::path shipped = std::filesystem::path(QUILOM_LO_PROGRAM_DIR) / "soffice";
  if (IsExecutable(shipped)) {
    return shipped;
  }
  return SearchPath("soffice");
}

OfficeProcess::~OfficeProcess() { Kill(); }

bool OfficeProcess::Start(const std::filesystem::path& soffice, std::string& error) {
  std::error_code ec;
  std::string profileTemplate = (std::filesystem::temp_directory_path(ec) / "quilom-office-XXXXXX").string();
  if (mkdtemp(profileTemplate.data()) == nullptr) {
    error = "cannot create a folder for LibreOffice's private profile: " + std::string(std::strerror(errno));
    return false;
  }
  profileDir_ = profileTemplate;
  pipeName_ = "quilom-" + std::to_string(getpid()) + "-" + profileDir_.filename().string();

  const std::vector<std::string> words = {soffice.string(),
                                          "--headless",
                                          "--invisible",
                                          "--norestore",
                                          "--nologo",
                                          "--nodefault",
                                          "--nolockcheck",
                                          "--accept=pipe,name=" + pipeName_ + ";urp;StarOffice.ComponentContext",
                                          "-env:UserInstallation=" + FileUrl(profileDir_)};
  std::vector<char*> argv;
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  // The office's own temporary files go inside the profile, so that one removal takes them all,
  // even after the office was killed.
  const std::filesystem::path officeTemp = profileDir_ / "tmp";
  std::filesystem::create_directory(officeTemp, ec);
  std::vector<std::string> environment = {"TMPDIR=" + officeTemp.string()};
  for (char** entry = environ; *entry != nullptr; ++entry) {
    if (std::strncmp(*entry, "TMPDIR=", 7) != 0) environment.emplace_back(*entry);
  }
  std::vector<char*> envp;
  for (std::string& entry : environment) envp.push_back(entry.data());
  envp.push_back(nullptr);

  const int pid = fork();
  if (pid < 0) {
    error = "cannot start LibreOffice: " + std::string(std::strerror(errno));
    return false;
  }
  if (pid == 0) {
    // A session of its own: stopping it signals the launcher and the office it spawns, and a
    // terminal's Ctrl+C never reaches the office half-way through a save.
    setsid();
    const int devNull = open("/dev/null", O_RDWR);
    if (devNull >= 0) {
      dup2(devNull, STDIN_FILENO);
      dup2(devNull, STDOUT_FILENO);
      dup2(devNull, STDERR_FILENO);
    }
    execve(argv[0], argv.data(), envp.data());
    _exit(127);
  }
  pid_ = pid;
  WatchSignals();
  Remember(pid, true, profileDir_);
  // Until the child has its own process group, signalling the group would miss it.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
  while (getpgid(pid) != pid && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

std::string OfficeProcess::ConnectionUrl() const {
  return "uno:pipe,name=" + pipeName_ + ";urp;StarOffice.ComponentContext";
}

bool OfficeProcess::Running() {
  if (pid_ <= 0) return false;
  int status = 0;
  if (waitpid(pid_, &status, WNOHANG) == 0) return true;  // the launcher itself still runs
  return GroupAlive(pid_);
}

void OfficeProcess::Stop(std::chrono::milliseconds grace) {
  if (pid_ > 0) {
    const int pgid = pid_;
    const bool reaped = WaitFor(pid_, grace);
    WaitForGroup(pgid, grace);
    if (!reaped) kill(pid_, SIGTERM);  // in case it never got its own group
    if (GroupAlive(pgid)) {
      kill(-pgid, SIGTERM);
      WaitForGroup(pgid, std::chrono::milliseconds(2000));
    }
    if (GroupAlive(pgid)) {
      kill(-pgid, SIGKILL);
      WaitForGroup(pgid, std::chrono::milliseconds(2000));
    }
    WaitFor(pid_, std::chrono::milliseconds(500));
    Remember(pgid, false);
    pid_ = -1;
  }
  if (!profileDir_.empty()) {
    std::error_code ec;
    std::filesystem::remove_all(profileDir_, ec);
    profileDir_.clear();
  }
}

}  // namespace quilom::converter::libreoffice
