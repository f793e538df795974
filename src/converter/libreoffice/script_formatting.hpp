#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <set>
#include <string>

// Writer keeps a run's weight, posture and size twice, once for Western text and once for
// complex-script text such as Tamil, and shows each script with its own. Legacy-font text is
// Western to it (its glyph codes are Latin-1 letters), Unicode Tamil is complex: a bold legacy
// word converted to Unicode would show plain, and a bold Unicode word converted to a legacy font
// would too. After a conversion, each run in a font the conversion gave carries the formatting
// its text was shown with into the other script's attributes as well, so both hold it.
namespace quilom::converter::libreoffice {

// `fonts`: the fonts the conversion gave to converted text. A run holding Tamil letters takes
// its Western weight, posture and size into the complex ones; any other run the other way.
// Returns the number of runs changed. Throws UNO exceptions.
int CarryFormattingAcrossScripts(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                                 const std::set<std::u16string>& fonts);

}  // namespace quilom::converter::libreoffice
