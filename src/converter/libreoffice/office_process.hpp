#pragma once

#include <chrono>
#include <filesystem>
#include <string>

// A headless LibreOffice of our own: started with a private user profile (so that it never
// meets the user's open documents, recovery dialogs or extensions) and a private pipe name,
// and stopped with every process it spawned.
namespace quilom::converter::libreoffice {

// The `soffice` launcher to run: $QUILOM_SOFFICE when set, else the office's program folder,
// else `soffice` on PATH. Empty when none exists.
std::filesystem::path FindSoffice();

class OfficeProcess {
 public:
  OfficeProcess() = default;
  ~OfficeProcess();  // Kill()s a process still running
  OfficeProcess(const OfficeProcess&) = delete;
  OfficeProcess& operator=(const OfficeProcess&) = delete;

  // Spawns `soffice` in a session (process group) of its own, accepting UNO connections on
  // PipeName(). Returns false with `error` set when the program cannot be run. That the office
  // is ready is learnt only by connecting to it.
  bool Start(const std::filesystem::path& soffice, std::string& error);

  // The connection string for UnoUrlResolver::resolve.
  std::string ConnectionUrl() const;
  const std::string& PipeName() const { return pipeName_; }
  bool Running();

  // Waits up to `grace` for the office to leave on its own (after Desktop.terminate), then
  // signals its whole process group, and removes the private profile. Safe to call twice.
  void Stop(std::chrono::milliseconds grace);
  void Kill() { Stop(std::chrono::milliseconds(0)); }

 private:
  int pid_ = -1;
  std::string pipeName_;
  std::filesystem::path profileDir_;
};

}  // namespace quilom::converter::libreoffice
