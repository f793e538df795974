#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include <com/sun/star/frame/XModel.hpp>

// After a run, text that is still in a find font and still holds characters that the pairs
// look for was missed: typically a font that Writer inherits from a paragraph style or the
// document default (the font-restricted search sees only direct formatting), or a pair that
// spans two runs of the same font with different formatting (bold, size, language). Such text
// is reported, so that the user does not take a half-converted document for a converted one.
namespace quilom::converter::libreoffice {

class LeftoverCheck {
 public:
  // Notes the characters a pair looked for in a font (the name the search used, which may be
  // a temporary selection name) under the name to show the user.
  void Note(const std::u16string& fontProperty, const std::u16string& searchedName, const std::u16string& shownName,
            std::u16string_view findText);
  bool Empty() const { return looked_.empty(); }

  // Searches the document and reports through ReportError with the tag "LO - Left" when
  // something was left; then forgets what was noted. Throws UNO exceptions.
  void ReportLeftovers(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

 private:
  struct Font {
    std::u16string property;
    std::u16string searchedName;
    std::u16string shownName;
    auto operator<=>(const Font&) const = default;
  };
  std::map<Font, std::set<char16_t>> looked_;
};

}  // namespace quilom::converter::libreoffice
