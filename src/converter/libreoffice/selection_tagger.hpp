#pragma once

#include <string>
#include <vector>

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XTextRange.hpp>

// Writer's replace-all works on the whole document only. To convert just the selection, the
// text of the find font inside the selection is renamed to a temporary font name that nothing
// else carries; the pairs are then run against that name, and what is left of it afterwards
// gets its real name back. Converted text receives the target font and so leaves the
// temporary set, and the selection grows and shrinks with the replacements for free.
namespace quilom::converter::libreoffice {

// The ranges selected in the document's current view; empty when nothing but a cursor is.
// Throws UNO exceptions.
std::vector<com::sun::star::uno::Reference<com::sun::star::text::XTextRange>> SelectedRanges(
    const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

class SelectionTagger {
 public:
  void SetSelection(std::vector<com::sun::star::uno::Reference<com::sun::star::text::XTextRange>> ranges) {
    selection_ = std::move(ranges);
  }

  // The temporary name standing for `fontName` (matched by `fontProperty`) inside the
  // selection; tags that text the first time a font is asked for. Throws UNO exceptions.
  std::u16string TemporaryName(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                               const std::u16string& fontProperty, const std::u16string& fontName);

  // Gives every text still carrying a temporary name its real name again. Throws UNO
  // exceptions; what it could not restore stays tagged and is tried again by the next call.
  void RestoreAll(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

 private:
  struct Tag {
    std::u16string fontProperty;
    std::u16string fontName;
    std::u16string temporaryName;
  };
  void TagInsideSelection(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                          const Tag& tag);

  std::vector<com::sun::star::uno::Reference<com::sun::star::text::XTextRange>> selection_;
  std::vector<Tag> tags_;
};

}  // namespace quilom::converter::libreoffice
