#include "shell/process_list.hpp"

#include "text/strings.hpp"

namespace quilom::shell {

std::vector<std::uint32_t> ProcessIdsNamed(const std::vector<ProcessEntry>& processes, std::u16string_view exeName) {
  const std::u16string wanted = text::AsciiLower(exeName);
  std::vector<std::uint32_t> ids;
  for (const ProcessEntry& process : processes) {
    if (text::AsciiLower(process.exeName) == wanted) ids.push_back(process.id);
  }
  return ids;
}

}  // namespace quilom::shell
