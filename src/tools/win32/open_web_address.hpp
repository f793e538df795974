#pragma once

#include <string_view>

namespace quilom::tools::win32 {

// Opens `address` in the default browser. Anything that is not a well-formed http:// or
// https:// address (IsOpenableWebAddress) is refused here too, so that no caller can hand the
// shell a program or a file. Returns whether the shell accepted the address.
bool OpenWebAddress(std::u16string_view address);

}  // namespace quilom::tools::win32
