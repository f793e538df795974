#include <chrono>

#include "converter/quote_conversion.hpp"
#include "converter/win32/converter_window_class.hpp"
#include "converter/win32/system_fonts.hpp"

namespace quilom::converter::win32 {
namespace {

std::int64_t NowSeconds() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The window takes no clicks while a conversion talks to Word; the progress label still
// repaints.
class BusyWindow {
 public:
  explicit BusyWindow(HWND window) : window_(window) {
    EnableWindow(window_, FALSE);
    previous_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  }
  ~BusyWindow() {
    SetCursor(previous_);
    EnableWindow(window_, TRUE);
  }
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;

 private:
  HWND window_;
  HCURSOR previous_;
};

}  // namespace

window::WindowSnapshot ConverterWindow::Snapshot() const {
  window::WindowSnapshot snapshot;
  snapshot.encodings = ListRows(kLbxFrom);
  snapshot.fromPosition = Selected(kLbxFrom);
  snapshot.toPosition = Selected(kLbxTo);
  const int legacy = LegacyPosition();
  const auto defaultFontOf = [this](int position) {
    return position >= 0 && static_cast<std::size_t>(position) < lists_.defaultFonts.size()
               ? lists_.defaultFonts[static_cast<std::size_t>(position)]
               : std::u16string();
  };
  // No row chosen in a fonts list means what its first row says: "Any Font".
  snapshot.legacyFonts = {ListRows(kLbxNonUniFonts), std::max(0, Selected(kLbxNonUniFonts)), defaultFontOf(legacy)};
  snapshot.unicodeFonts = {ListRows(kLbxUniFonts), std::max(0, Selected(kLbxUniFonts)), defaultFontOf(0)};
  snapshot.normalQuotes = Checked(kOptNormalQ);
  snapshot.irRiReeForm = Checked(kChbNewForm);
  snapshot.plainText = Checked(kChbConvertAsPlainText);
  snapshot.vowelSigns = Checked(kChbVowelSigns);
  return snapshot;
}

window::ClickServices ConverterWindow::Services() {
  window::ClickServices services;
  services.connector = options_.connector.get();
  services.binding = window::ChooseWordBinding();
  services.prompter = prompter_.get();
  services.progress = [this](std::u16string_view text) { ShowProgress(text); };
  services.clock = NowSeconds;
  services.converterFolder = converterFolder_;
  return services;
}

void ConverterWindow::OnConvert() {
  const window::WindowSnapshot snapshot = Snapshot();
  const window::ClickServices services = Services();
  BusyWindow busy(window_);
  window::ConvertClick(snapshot, services);
}

void ConverterWindow::OnConvertQuotes() {
  const window::WindowSnapshot snapshot = Snapshot();
  const std::vector<std::u16string> fromQuotes = ListRows(kCmbFromQuote);
  const std::vector<std::u16string> toQuotes = ListRows(kCmbToQuote);
  const int from = Selected(kCmbFromQuote);
  const int to = Selected(kCmbToQuote);
  const std::u16string fromQuote = from >= 0 && static_cast<std::size_t>(from) < fromQuotes.size()
                                       ? fromQuotes[static_cast<std::size_t>(from)]
                                       : u"";
  const std::u16string toQuote =
      to >= 0 && static_cast<std::size_t>(to) < toQuotes.size() ? toQuotes[static_cast<std::size_t>(to)] : u"";
  const window::ClickServices services = Services();
  BusyWindow busy(window_);
  window::ConvertQuotesClick(snapshot, fromQuote, toQuotes, toQuote, services);
}

void ConverterWindow::OnSwap() {
  const int legacyFont = Selected(kLbxNonUniFonts);
  const int from = Selected(kLbxFrom);
  const int to = Selected(kLbxTo);
  Select(kLbxFrom, to);
  Select(kLbxTo, from);
  // The legacy side is the same encoding after a swap, so its fonts list still holds.
  Select(kLbxNonUniFonts, legacyFont);
  SaveListPositions();
  FillQuoteLists();
}

void ConverterWindow::OnGenerateFontsList() {
  const SystemFonts fonts;
  lists_.systemFonts = GenerateFontsList(converterFolder_, fonts, Ui());
  const int legacyFont = Selected(kLbxNonUniFonts);
  RefillLegacyFonts(kLbxFrom);
  Select(kLbxNonUniFonts, legacyFont);
}

void ConverterWindow::OnPlainTextClick() {
  const window::PlainTextClick result =
      window::OnPlainTextClick(ignorePlainTextClick_, Checked(kChbConvertAsPlainText), *prompter_);
  CheckDlgButton(window_, kChbConvertAsPlainText, result.checked ? BST_CHECKED : BST_UNCHECKED);
  if (result.save) Save(window::kPlainTextKey);
}

void ConverterWindow::OnListClick(int id) {
  if (id == kLbxFrom || id == kLbxTo) {
    RefillLegacyFonts(id);
    SaveListPositions();
    FillQuoteLists();
  } else if (id == kLbxNonUniFonts) {
    SaveListPositions();
    FillQuoteLists();
  } else {
    SaveListPositions();
  }
}

// The two legacy quote lists hold the same characters: choosing in one chooses in both.
void ConverterWindow::OnQuoteChoice(int id) { Select(id == kCmbToQuote ? kCmbToQuoteEng : kCmbToQuote, Selected(id)); }

}  // namespace quilom::converter::win32
