#pragma once

#include <string>
#include <vector>

#include "converter/converter_lists.hpp"

// The converter's FontCatalog over the screen fonts: EnumFontFamiliesExW over every character
// set, one entry per face name, in the order the system gives them. The list is taken once,
// when the catalog is made (the window makes a new one for "Regenerate Fonts List").
namespace quilom::converter::win32 {

class SystemFonts final : public FontCatalog {
 public:
  SystemFonts();
  int Count() const override { return static_cast<int>(names_.size()); }
  std::u16string Name(int index) const override;
  // Creates a font of that face name and reads back the face the system actually selected.
  std::u16string ResolvedName(std::u16string_view requested) const override;

 private:
  std::vector<std::u16string> names_;
};

}  // namespace quilom::converter::win32
