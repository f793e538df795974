#include "shell/win32/process_snapshot.hpp"

#include <windows.h>
// After windows.h, which it builds on.
#include <tlhelp32.h>

#include "controls/win32/wide_text.hpp"
#include "shell/process_list.hpp"

namespace quilom::shell::win32 {

std::vector<std::uint32_t> RunningProcessIds(std::u16string_view exeName) {
  HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (snapshot == INVALID_HANDLE_VALUE) return {};
  std::vector<ProcessEntry> processes;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) {
    processes.push_back({entry.th32ProcessID, controls::FromWide(entry.szExeFile)});
  }
  CloseHandle(snapshot);
  return ProcessIdsNamed(processes, exeName);
}

}  // namespace quilom::shell::win32
