#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Picking processes out of a snapshot of the running ones.
namespace quilom::shell {

struct ProcessEntry {
  std::uint32_t id = 0;
  std::u16string exeName;  // as the snapshot gives it, any case
};

// Ids of the processes whose executable name equals `exeName` ignoring ASCII case
// ("winword.exe" finds "WINWORD.EXE").
std::vector<std::uint32_t> ProcessIdsNamed(const std::vector<ProcessEntry>& processes, std::u16string_view exeName);

}  // namespace quilom::shell
