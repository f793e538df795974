#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What to do when the system is asked to open a help page or keymap chart.
namespace quilom::shell {

enum class HelpOpening {
  Opened,      // a browser or viewer has it
  ShowInside,  // nothing outside can show it (no association, no viewer, a broken one): show it ourselves
  Missing,     // the file itself is gone: nothing can show it
};

// `shellResult` is what the system's open-a-document call returned: above 32 is success, below is
// one of its small error numbers. "File not found" also comes back when the viewer program the
// file is associated with is gone, so only `fileExists` tells a missing page from a missing viewer.
HelpOpening HelpOpeningFor(std::intptr_t shellResult, bool fileExists);

// The readable text of an HTML page or an SVG picture: tags dropped, what is inside style, script
// and head left out, block ends and drawn texts on lines of their own, character references read.
std::u16string HelpPlainText(std::u16string_view markup);

}  // namespace quilom::shell
