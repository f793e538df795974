#pragma once

#include <string>
#include <string_view>

#include <com/sun/star/frame/XModel.hpp>

// Temporary characters that a run puts into the document and takes out again, for two of
// Writer's habits:
//   - the search skips U+00AD (the soft hyphen, which in TSCII is a letter): a find text
//     holding it never matches, and a match around it deletes it. During a run every U+00AD
//     of the document, and of the find and replacement texts, is a private stand-in character.
//   - an imported paragraph whose text is all in one font may keep that font as a paragraph
//     attribute; once its last character is converted, later pairs miss the rest. A sentinel
//     character at the end of each paragraph keeps the font a character attribute.
// Both characters are private-use code points that the document does not already hold, so
// taking them out again removes nothing of the user's.
namespace quilom::converter::libreoffice {

class RunMarkers {
 public:
  // Chooses the characters and places them. Throws UNO exceptions (nothing placed so far is
  // left behind by Remove()).
  void Place(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);
  // Takes the sentinels out and turns the stand-ins back into U+00AD. Throws UNO exceptions.
  void Remove(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

  // `text` with U+00AD turned into the stand-in (unchanged before Place()).
  std::u16string MapSoftHyphens(std::u16string_view text) const;
  char16_t Sentinel() const { return sentinel_; }
  char16_t SoftHyphenStandIn() const { return softHyphenStandIn_; }

 private:
  char16_t sentinel_ = 0;
  char16_t softHyphenStandIn_ = 0;
  bool sentinelsPlaced_ = false;
  bool softHyphensMapped_ = false;
};

}  // namespace quilom::converter::libreoffice
