#pragma once

#include <com/sun/star/text/XTextRange.hpp>
#include <rtl/ustring.hxx>

// Where two ranges of a Writer document lie to each other. Ranges in different texts (the body
// and a frame, or two cells of a table) have no order: they are never inside or overlapping.
namespace quilom::converter::libreoffice {

// Whether `inner` lies wholly within `outer` (ends included).
bool RangeInside(const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& inner,
                 const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& outer);

// The part that `a` and `b` share, as a cursor over it; empty when they share no character.
// Throws UNO exceptions other than the one for ranges without an order.
com::sun::star::uno::Reference<com::sun::star::text::XTextRange> RangeOverlap(
    const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& a,
    const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& b);

// Gives `range` `fontName` as its western, Asian and complex-script font, so that its text shows
// in that font whatever script Writer takes it for; other formatting stays. Throws UNO exceptions.
void SetRangeFont(const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& range,
                  const rtl::OUString& fontName);

// Gives the parts of `range` whose `property` is `fontName` the font `newFont` (as
// SetRangeFont does), character by character where the range holds several fonts. Returns the
// number of pieces changed. Throws UNO exceptions.
int SetFontWhere(const com::sun::star::uno::Reference<com::sun::star::text::XTextRange>& range,
                 const rtl::OUString& property, const rtl::OUString& fontName, const rtl::OUString& newFont);

}  // namespace quilom::converter::libreoffice
