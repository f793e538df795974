// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

#include <memory>
#include <string>

#include "controls/win32/wide_text.hpp"
#include "converter/quote_conversion.hpp"
#include "converter/win32/converter_window_class.hpp"
#include "converter/win32/system_fonts.hpp"
#include "settings/text_file.hpp"

namespace quilom::converter::win32 {

using controls::ToWide;

void ConverterWindow::ShowProgress(std::u16string_view text) {
  SetWindowTextW(Control(kLblPerc), ToWide(text).c_str());
  UpdateWindow(Control(kLblPerc));
}

ListsUi ConverterWindow::Ui() {
  ListsUi ui;
  ui.prompter = prompter_.get();
  ui.progress = [this](std::u16string_view text) { ShowProgress(text); };
  ui.busyPointer = [](bool busy) { SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW)); };
  return ui;
}

void ConverterWindow::LoadWindow() {
  const SystemFonts fonts;
  lists_ = LoadConverterLists(converterFolder_, fonts, Ui());
  FillListBox(kLbxUniFonts, lists_.unicodeFonts);
  FillListBox(kLbxFrom, lists_.encodings);
  FillListBox(kLbxTo, lists_.encodings);
  window::ConverterChoices choices;
  choices.vowelSigns = true;
  window::LoadConverterSettings(settings_, choices);
  ApplyChoices(choices);
}

void ConverterWindow::ApplyChoices(const window::ConverterChoices& choices) {
  Select(kLbxFrom, choices.fromIndex);
  Select(kLbxTo, choices.toIndex);
  RefillLegacyFonts(kLbxFrom);
  Select(kLbxUniFonts, choices.uniIndex);
  Select(kLbxNonUniFonts, choices.nonUniIndex);
  // Setting a box from the file is not a click: the plain-text warning must not come up.
  ignorePlainTextClick_ = true;
  CheckDlgButton(window_, kChbConvertAsPlainText, choices.plainText ? BST_CHECKED : BST_UNCHECKED);
  ignorePlainTextClick_ = false;
  CheckDlgButton(window_, kChbVowelSigns, choices.vowelSigns ? BST_CHECKED : BST_UNCHECKED);
  CheckDlgButton(window_, kChbNewForm, choices.irRiReeForm ? BST_CHECKED : BST_UNCHECKED);
  CheckRadioButton(window_, kOptNormalQ, kOptDecorQ, choices.normalQuotes ? kOptNormalQ : kOptDecorQ);
  FillQuoteLists();
}

void ConverterWindow::FillListBox(int id, const std::vector<std::u16string>& rows) {
  HWND list = Control(id);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const std::u16string& row : rows) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(row).c_str()));
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
}

std::vector<std::u16string> ConverterWindow::ListRows(int id) const {
  const bool combo = id == kCmbFromQuote || id == kCmbToQuote || id == kCmbToQuoteEng;
  HWND list = Control(id);
  const int count = static_cast<int>(SendMessageW(list, combo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0));
  std::vector<std::u16string> rows;
  for (int i = 0; i < count; ++i) {
    const auto length = SendMessageW(list, combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, i, 0);
    std::wstring row(static_cast<std::size_t>(length > 0 ? length : 0) + 1, L'\0');
    SendMessageW(list, combo ? CB_GETLBTEXT : LB_GETTEXT, i, reinterpret_cast<LPARAM>(row.data()));
    row.resize(static_cast<std::size_t>(length > 0 ? length : 0));
    rows.emplace_back(row.begin(), row.end());
  }
  return rows;
}

int ConverterWindow::Selected(int id) const {
  const bool combo = id == kCmbFromQuote || id == kCmbToQuote || id == kCmbToQuoteEng;
  return static_cast<int>(SendMessageW(Control(id), combo ? CB_GETCURSEL : LB_GETCURSEL, 0, 0));
}

void ConverterWindow::Select(int id, int position) {
  const bool combo = id == kCmbFromQuote || id == kCmbToQuote || id == kCmbToQuoteEng;
  // Out of range selects nothing (-1), as a list with fewer rows than the saved position should.
  SendMessageW(Control(id), combo ? CB_SETCURSEL : LB_SETCURSEL, static_cast<WPARAM>(position), 0);
}

bool ConverterWindow::Checked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }

int ConverterWindow::LegacyPosition() const {
  const int from = Selected(kLbxFrom);
  return from == 0 ? Selected(kLbxTo) : from;
}

std::u16string ConverterWindow::LegacyFontName() const {
  const std::vector<std::u16string> rows = ListRows(kLbxNonUniFonts);
  const int selected = Selected(kLbxNonUniFonts);
  const int legacy = LegacyPosition();
  if (selected == 1 && legacy >= 0 && static_cast<std::size_t>(legacy) < lists_.defaultFonts.size()) {
    return lists_.defaultFonts[static_cast<std::size_t>(legacy)];
  }
  if (selected >= 2 && static_cast<std::size_t>(selected) < rows.size())
    return rows[static_cast<std::size_t>(selected)];
  return rows.size() >= 3 ? rows[2] : std::u16string();
}

void ConverterWindow::RefillLegacyFonts(int clickedList) {
  const int other = clickedList == kLbxFrom ? kLbxTo : kLbxFrom;
  int position = Selected(clickedList);
  if (position == 0) position = Selected(other);
  FillListBox(kLbxNonUniFonts, FillNonUnicodeFonts(converterFolder_, lists_.systemFonts, position,
                                                   clickedList == kLbxFrom ? u"LF1" : u"LTo"));
}

void ConverterWindow::FillQuoteLists() {
  const int from = Selected(kLbxFrom);
  const int to = Selected(kLbxTo);
  const QuoteList unicodeQuotes = FillUnicodeQuotes(from, to);
  SendMessageW(Control(kCmbFromQuote), CB_RESETCONTENT, 0, 0);
  for (const std::u16string& quote : unicodeQuotes.items) {
    SendMessageW(Control(kCmbFromQuote), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(quote).c_str()));
  }
  SetTooltip(kCmbFromQuote, unicodeQuotes.tooltip);

  const std::u16string fontName = LegacyFontName();
  const std::u16string quotesText =
      unicodeQuotes.items.empty() ? std::u16string() : settings::ReadTextFile(converterFolder_ / kLegacyQuotesFile);
  const LegacyQuoteLists legacy = FillLegacyQuotes(quotesText, to, !unicodeQuotes.items.empty(), fontName);
  // The list lets go of the old font before it is deleted.
  auto quoteFont = std::make_unique<controls::UiFont>(fontName.empty() ? L"Arial" : ToWide(fontName), kQuotePoints);
  quoteFont->ApplyTo(Control(kCmbToQuote));
  legacyQuoteFont_ = std::move(quoteFont);
  // A legacy font's metrics differ from Arial's: keep the three fields the same height, so the
  // row of quote lists stays even.
  const LRESULT fieldHeight = SendMessageW(Control(kCmbFromQuote), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  if (fieldHeight > 0) SendMessageW(Control(kCmbToQuote), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), fieldHeight);
  for (int id : {kCmbToQuote, kCmbToQuoteEng}) {
    SendMessageW(Control(id), CB_RESETCONTENT, 0, 0);
    for (const std::u16string& quote : legacy.inLegacyFont.items) {
      SendMessageW(Control(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(quote).c_str()));
    }
  }
  SetTooltip(kCmbToQuote, legacy.inLegacyFont.tooltip);
  SetTooltip(kCmbToQuoteEng, legacy.inArial.tooltip);
  // A ready choice saves a click: the first quote of each list.
  for (int id : {kCmbFromQuote, kCmbToQuote, kCmbToQuoteEng}) Select(id, 0);
}

window::ConverterChoices ConverterWindow::Choices() const {
  window::ConverterChoices choices;
  choices.fromIndex = Selected(kLbxFrom);
  choices.toIndex = Selected(kLbxTo);
  choices.uniIndex = Selected(kLbxUniFonts);
  choices.nonUniIndex = Selected(kLbxNonUniFonts);
  choices.irRiReeForm = Checked(kChbNewForm);
  choices.plainText = Checked(kChbConvertAsPlainText);
  choices.vowelSigns = Checked(kChbVowelSigns);
  choices.normalQuotes = Checked(kOptNormalQ);
  return choices;
}

void ConverterWindow::Save(std::u16string_view key) { window::SaveConverterSetting(settings_, key, Choices()); }

void ConverterWindow::SaveListPositions() { window::SaveListPositions(settings_, Choices()); }

}  // namespace quilom::converter::win32
