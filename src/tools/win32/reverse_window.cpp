#include <algorithm>
#include <memory>

#include "settings/error_report.hpp"
#include "tools/ambiguous_spelling.hpp"
#include "tools/reverse_companion_list.hpp"
#include "tools/reverse_transliteration.hpp"
#include "tools/win32/conversion_window.hpp"
#include "tools/win32/tool_controls.hpp"
#include "tools/win32/tool_windows.hpp"

namespace quilom::tools::win32 {

namespace {

enum ControlId : int {
  kTamilLabel = 1001,
  kTamilBox,  // ttam
  kLatinLabel,
  kLatinBox,           // teng
  kConvert,            // bRT
  kFindNext,           // bSearch
  kReplace,            // bReplace
  kNumerals,           // chkNumerals
  kSigns,              // chkSigns
  kKeepGraves,         // chkBQ
  kProgressText,       // txtPerc
  kCounts,             // tChars
  kMenuSample = 2001,  // mnuToolsSample
  kMenuLowerCase,      // mnuToolsSmallCase
  kMenuRemoveGraves,   // mnuRemoveBQ
};

constexpr std::u16string_view kNoMoreSpellings =
    u"No more spellings with an alternative after the cursor. The next search starts at the beginning.";

// `qmprt` and, with `companion`, the small `qmprt2`: same conversion, fewer controls, its own list.
class ReverseWindow final : public ConversionWindow {
 public:
  ReverseWindow(settings::DataFolders folders, bool companion)
      : ConversionWindow({kTamilBox, kLatinBox, kConvert, kProgressText, kCounts}),
        folders_(std::move(folders)),
        companion_(companion) {}

 protected:
  void OnCreate() override {
    AddLabel(kTamilLabel, L"Ta&mil text:");
    AddTextBox(kTamilBox, false, false);
    if (!companion_) {
      AddCheckBox(kNumerals, L"Convert Tamil &numerals");
      AddCheckBox(kSigns, L"Convert Tamil &signs");
      AddCheckBox(kKeepGraves, L"&Keep text between grave accents (`)");
    }
    AddButton(kConvert, L"&Convert", true);
    if (!companion_) {
      AddButton(kFindNext, L"&Find next");
      AddButton(kReplace, L"&Replace");
    }
    AddLabel(kProgressText, L"");
    AddLabel(kLatinLabel, L"&Latin text:");
    AddTextBox(kLatinBox, false, false);
    AddLabel(kCounts, L"");
    words_ = companion_ ? LoadCompanionWordList(folders_.mainDataFolder) : LoadReverseWordList(folders_.mainDataFolder);
    SetFocus(Item(kTamilBox));
  }

  void OnLayout(int width, int height) override {
    const int margin = Px(10), labelHeight = Px(18), rowHeight = Px(26), countsHeight = Px(36);
    const int inner = width - 2 * margin;
    const int optionRows = companion_ ? 0 : Px(24) + Px(4);
    const int fixed = margin + labelHeight + Px(2) + Px(8) + optionRows + rowHeight + Px(8) + labelHeight + Px(2) +
                      Px(6) + countsHeight + margin;
    const int boxHeight = std::max((height - fixed) / 2, Px(40));
    int y = margin;
    Place(kTamilLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kTamilBox, margin, y, inner, boxHeight);
    y += boxHeight + Px(8);
    if (!companion_) {
      const int third = inner / 3;
      Place(kNumerals, margin, y, third - Px(6), Px(24));
      Place(kSigns, margin + third, y, third - Px(6), Px(24));
      Place(kKeepGraves, margin + 2 * third, y, inner - 2 * third, Px(24));
      y += Px(24) + Px(4);
    }
    const int buttonWidth = Px(96);
    int x = margin;
    for (const int id : {kConvert, kFindNext, kReplace}) {
      if (companion_ && id != kConvert) continue;
      Place(id, x, y, buttonWidth, rowHeight);
      x += buttonWidth + Px(8);
    }
    Place(kProgressText, x + Px(8), y + Px(5), width - margin - x - Px(8), labelHeight);
    y += rowHeight + Px(8);
    Place(kLatinLabel, margin, y, inner, labelHeight);
    y += labelHeight + Px(2);
    Place(kLatinBox, margin, y, inner, boxHeight);
    y += boxHeight + Px(6);
    Place(kCounts, margin, y, inner, countsHeight);
  }

  void OnCommand(int id, int code) override {
    switch (id) {
      case kConvert:
        return Convert();
      case kNumerals:
      case kSigns:
        if (code == BN_CLICKED) ShowInformation(Handle(), kOptionTakesEffectText);
        return;
      case kFindNext:
        return FindNext();
      case kReplace:
        return Replace();
      case kMenuSample:
        return ConvertSample(LoadReverseSample(folders_.mainDataFolder));
      case kMenuLowerCase:
        return ShowText(kLatinBox, OutputToLowerCase(BoxText(Item(kLatinBox))));
      case kMenuRemoveGraves:
        return RemoveGravesFromOutput();
      default:
        return;
    }
  }

  std::u16string_view ErrorTag() const override { return tag_; }

  std::u16string ProgressText(const ChunkedConversion& run) const override {
    const size_t done = run.WordsDone();
    return ReverseProgressText(done == 0 ? 0 : done - 1, run.TotalWords());
  }

  std::u16string CountsText(size_t inputLength, size_t outputLength) const override {
    return ReverseCharacterCountsText(inputLength, outputLength);
  }

  void LockMore(bool locked) override {
    if (companion_) return;
    EnableWindow(Item(kFindNext), !locked);
    EnableWindow(Item(kReplace), !locked);
  }

 private:
  void Convert() override {
    ReverseOptions options;
    if (!companion_) {
      options.numerals = IsTicked(kNumerals);
      options.signs = IsTicked(kSigns);
      options.keepGraves = IsTicked(kKeepGraves);
    }
    StartConversion(
        options.keepGraves,
        [this, options](std::u16string_view piece, size_t) { return ReverseTransliterate(piece, options, words_); },
        kPleaseWaitText);
  }

  // Searches on from the selection's end; at the end of the text the next search wraps.
  void FindNext() {
    HWND box = Item(kLatinBox);
    const std::u16string output = BoxText(box);
    const size_t from = SelectionEnd(box);
    const auto match = FindNextAmbiguousSpelling(output, from);
    if (!match) {
      ShowInformation(Handle(), kNoMoreSpellings);
      SelectInBox(box, 0, 0);
      return;
    }
    SelectInBox(box, match->position, match->length);
    SetFocus(box);
  }

  void Replace() {
    tag_ = u"RT-repl";
    Guarded([this] {
      HWND box = Item(kLatinBox);
      const std::u16string output = BoxText(box);
      std::optional<SpellingMatch> replaced;
      const size_t at = SelectionStart(box);
      std::u16string changed = ReplaceAmbiguousSpelling(output, at, &replaced);
      if (!replaced) return FindNext();
      ShowText(kLatinBox, changed);
      SelectInBox(box, at, replaced->replacement.size());
      SetFocus(box);
    });
    tag_ = u"RT-sk";
  }

  settings::DataFolders folders_;
  bool companion_;
  ReverseWordList words_;
  std::u16string_view tag_ = u"RT-sk";
};

}  // namespace

HWND ShowReverseTransliterationWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return ToolWindow::Open(std::make_unique<ReverseWindow>(folders, false), instance, owner, L"qmprt",
                          L"Quilom++ - Reverse Transliteration", 660, 560,
                          BuildToolsMenu({{kMenuSample, L"&Sample text"},
                                          {kMenuLowerCase, L"Output in &lower case"},
                                          {kMenuRemoveGraves, L"Remove &grave accents from the output"}}));
}

HWND ShowReverseCompanionWindow(HINSTANCE instance, HWND owner, const settings::DataFolders& folders) {
  return ToolWindow::Open(std::make_unique<ReverseWindow>(folders, true), instance, owner, L"qmprt2",
                          L"Quilom++ - Reverse Transliteration (small)", 460, 400,
                          BuildToolsMenu({{kMenuSample, L"&Sample text"}}));
}

}  // namespace quilom::tools::win32
