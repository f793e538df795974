#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quilom::shell::win32 {

// Ids of the running processes whose executable is `exeName` (any case). Empty when the
// snapshot cannot be taken.
std::vector<std::uint32_t> RunningProcessIds(std::u16string_view exeName);

}  // namespace quilom::shell::win32
