#include <algorithm>
#include <memory>

#include "tools/auto_transliteration.hpp"
#include "tools/auto_transliteration_texts.hpp"
#include "tools/reverse_transliteration.hpp"
#include "tools/win32/conversion_window.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace quilom::tools::win32 {

namespace {

enum ControlId : int {
  kLatinLabel = 1101,
  kLatinBox,  // teng
  kTamilLabel,
  kTamilBox,           // ttam
  kConvert,            // bAT
  kKeepGraves,         // chkBQ
  kProgressText,       // txtPerc
  kCounts,             // tChars
  kMenuSample = 2101,  // mnuToolsSample
  kMenuAlternate,      // mnuToolsAlternate
  kMenuRemoveGraves,   // mnuRemoveBqs
};

int PercentOf(const ChunkedConversion& run) {
  const size_t total = run.TotalWords();
  if (total < 2) return 100;
  return static_cast<int>(std::min<size_t>(100, run.WordsDone() * 100 / (total - 1)));
}

// `qmpat` and `qmpat2`: the same controls and conversion in two layouts.
class AutoTransliteratorWindow final : public ConversionWindow {
 public:
  AutoTransliteratorWindow(settings::DataFolders folders, AutoLayout layout, std::function<void()> afterConversion)
      : ConversionWindow({kLatinBox, kTamilBox, kConvert, kProgressText, kCounts}),
        folders_(std::move(folders)),
        layout_(layout),
        afterConversion_(std::move(afterConversion)) {}

 protected:
  void OnCreate() override {
    AddLabel(kLatinLabel, L"&Latin phonetic text:");
    AddTextBox(kLatinBox, false, false);
    AddCheckBox(kKeepGraves, L"&Keep text between grave accents (`)");
    AddButton(kConvert, L"&Convert", true);
    AddLabel(kProgressText, L"");
    AddLabel(kTamilLabel, L"Ta&mil text:");
    AddTextBox(kTamilBox, false, false);
    AddLabel(kCounts, L"");
    SetFocus(Item(kLatinBox));
  }

  void OnLayout(int width, int height) override {
    if (layout_ == AutoLayout::Stacked) {
      LayOutStacked(width, height);
    } else {
      LayOutSideBySide(width, height);
    }
  }

  void OnCommand(int id, int) override {
    switch (id) {
      case kConvert:
        return Convert();
      case kMenuSample:
        return ConvertSample(LoadAutoTransliterationSample(folders_));
      case kMenuAlternate:
        return ToggleAlternate();
      case kMenuRemoveGraves:
        return RemoveGravesFromOutput();
      default:
        return;
    }
  }

  std::u16string_view ErrorTag() const override { return u"AT - Conv"; }

  std::u16string ProgressText(const ChunkedConversion& run) const override { return AutoProgressText(PercentOf(run)); }

  std::u16string CountsText(size_t inputLength, size_t outputLength) const override {
    return AutoCharacterCountsText(inputLength, outputLength);
  }

  void AfterConversion() override {
    if (afterConversion_) afterConversion_();
  }

 private:
  void LayOutStacked(int width, int height) {
    const int margin = Px(10), labelHeight = Px(18), rowHeight = Px(26), countsHeight = Px(20);
    const int inner = width - 2 * margin;
    const int fixed = margin + 2 * (labelHeight + Px(2)) + Px(8) + rowHeight + Px(8) + Px(6) + countsHeight + margin;
    const int boxHeight = std::max((height - fixed) / 2, Px(40));
    int y = margin;
    Place(kLatinLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kLatinBox, margin, y, inner, boxHeight);
    y += boxHeight + Px(8);
    PlaceActionRow(margin, y, inner, rowHeight);
    y += rowHeight + Px(8);
    Place(kTamilLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kTamilBox, margin, y, inner, boxHeight);
    y += boxHeight + Px(6);
    Place(kCounts, margin, y, inner, countsHeight);
  }

  void LayOutSideBySide(int width, int height) {
    const int margin = Px(10), labelHeight = Px(18), rowHeight = Px(26), countsHeight = Px(20), gap = Px(10);
    const int half = (width - 2 * margin - gap) / 2;
    const int boxHeight =
        std::max(height - (margin + labelHeight + Px(2) + Px(8) + rowHeight + Px(6) + countsHeight + margin), Px(40));
    const int right = margin + half + gap;
    int y = margin;
    Place(kLatinLabel, margin, y, half, labelHeight);
    Place(kTamilLabel, right, y, half, labelHeight);
    y += labelHeight + Px(2);
    Place(kLatinBox, margin, y, half, boxHeight);
    Place(kTamilBox, right, y, half, boxHeight);
    y += boxHeight + Px(8);
    PlaceActionRow(margin, y, width - 2 * margin, rowHeight);
    y += rowHeight + Px(6);
    Place(kCounts, margin, y, width - 2 * margin, countsHeight);
  }

  void PlaceActionRow(int x, int y, int width, int rowHeight) {
    const int buttonWidth = Px(96), checkWidth = Px(250);
    Place(kConvert, x, y, buttonWidth, rowHeight);
    Place(kKeepGraves, x + buttonWidth + Px(12), y + Px(1), checkWidth, Px(24));
    const int progressX = x + buttonWidth + Px(12) + checkWidth + Px(8);
    Place(kProgressText, progressX, y + Px(5), x + width - progressX, Px(18));
  }

  bool LoadKeymap() {
    const std::u16string_view scheme = AutoKeymapFor(alternate_);
    if (translit::LoadPhoneticKeymap(folders_.keymapFolder, scheme, {}, keymap_) != translit::LoadOutcome::Loaded &&
        !keymap_) {
      ShowInformation(Handle(), u"The keymap \"" + std::u16string(scheme) + u"\" could not be loaded from \"" +
                                    folders_.keymapFolder.u16string() + u"\".");
      return false;
    }
    loadedScheme_ = scheme;
    engine_.SetKeymap(keymap_);
    return true;
  }

  void Convert() override {
    if (Busy() || BoxText(Item(kLatinBox)).empty()) return;
    if (loadedScheme_ != AutoKeymapFor(alternate_)) keymap_.reset();
    if (!LoadKeymap()) return;
    const AutoTransliterationOptions options{IsTicked(kKeepGraves)};
    StartConversion(options.keepBackQuoted, [this, options](std::u16string_view piece, size_t) {
      return AutoTransliterate(piece, engine_, options);
    });
  }

  void ToggleAlternate() {
    alternate_ = !alternate_;
    CheckMenuItem(GetMenu(Handle()), kMenuAlternate, alternate_ ? MF_CHECKED : MF_UNCHECKED);
  }

  settings::DataFolders folders_;
  AutoLayout layout_;
  std::function<void()> afterConversion_;
  translit::NullOutputSink sink_;
  translit::Engine engine_{sink_};
  std::shared_ptr<const translit::PhoneticKeymap> keymap_;
  std::u16string_view loadedScheme_;
  bool alternate_ = false;
};

}  // namespace

HWND ShowAutoTransliteratorWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders,
                                  AutoLayout layout, std::function<void()> afterConversion) {
  const bool stacked = layout == AutoLayout::Stacked;
  return ToolWindow::Open(
      std::make_unique<AutoTransliteratorWindow>(folders, layout, std::move(afterConversion)), instance, owner,
      stacked ? L"qmpat" : L"qmpat2",
      stacked ? L"Quilom++ - Auto Transliterator" : L"Quilom++ - Auto Transliterator (side by side)",
      stacked ? 640 : 900, stacked ? 560 : 460,
      BuildToolsMenu({{kMenuSample, L"&Sample text"},
                      {kMenuAlternate, L"&Alternate mappings (your own phonetic keymap)"},
                      {kMenuRemoveGraves, L"Remove &grave accents from the output"}}));
}

}  // namespace quilom::tools::win32
