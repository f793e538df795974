#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// A font owned for the life of a window, released when the owner goes.
namespace quilom::controls {

// Whether a font family of that name is installed.
bool FaceInstalled(std::wstring_view face);

// The first of `faces` that is installed, else the last one (the system then substitutes).
std::wstring FirstInstalledFace(std::initializer_list<std::wstring_view> faces);

// Tamil-capable faces, best first: the Windows UI font for Indic scripts (it has Latin too),
// the older Windows Tamil font, then the common free fonts.
std::wstring TamilFace();

// Whether the face has glyphs of its own for both Tamil and Latin letters.
bool DrawsTamilAndLatin(std::wstring_view face);

// The first installed of TamilFace's faces that draws Latin letters too; failing that, the first
// installed one (the system's font linking then has to supply the Latin letters), else the best.
std::wstring TamilAndLatinFace();

// Every installed font family, as the system lists them.
std::vector<std::u16string> InstalledFaces();

// Whether the face has a glyph of its own for every one of `letters`.
bool FaceDrawsAll(std::wstring_view face, std::wstring_view letters);

// The system's own fonts, as the user set them.
enum class SystemFont {
  Message,  // the font of message boxes and dialogs
};

class UiFont {
 public:
  // `pointSize` at the screen's resolution. Falls back to the system's GUI font if the face
  // cannot be had, so a window always has something to draw with.
  UiFont(std::wstring_view face, int pointSize, bool bold = false);
  explicit UiFont(SystemFont which);
  ~UiFont();
  UiFont(const UiFont&) = delete;
  UiFont& operator=(const UiFont&) = delete;

  HFONT Handle() const { return font_ != nullptr ? font_ : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)); }
  // Sets the font on a control.
  void ApplyTo(HWND control) const;
  // The face that was had (after any substitution by the system).
  std::wstring Face() const;

 private:
  HFONT font_ = nullptr;
};

}  // namespace quilom::controls
