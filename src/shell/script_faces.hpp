#pragma once

#include <string>
#include <string_view>
#include <vector>

// Which installed fonts to try, best first, for drawing a letter of some script, e.g. the tray's
// language letter. Whether a face really has the glyphs is asked of the system afterwards.
namespace quilom::shell {

// The script's English name as fonts carry it in their names ("Tamil", "Devanagari"), or empty
// for a letter of no script we know.
std::u16string_view ScriptNameOf(char32_t letter);

// `installed` as listed by the system. First the faces made for the script that Windows ships,
// then faces named after the script (interface faces, then sans, then the rest), then every other
// face in name order, as a wide-coverage face may still hold the letter. Vertical ("@") faces and
// repeats are left out.
std::vector<std::u16string> FaceCandidates(char32_t letter, const std::vector<std::u16string>& installed);

}  // namespace quilom::shell
