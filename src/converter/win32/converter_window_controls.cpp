// The other system headers need the types of <windows.h>.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

#include <iterator>
#include <string>
#include <vector>

#include "controls/win32/wide_text.hpp"
#include "converter/win32/converter_window_class.hpp"

namespace quilom::converter::win32 {
namespace {

// One control: where it goes at 96 DPI, in the order the Tab key visits them.
struct ControlPlan {
  int id;
  const wchar_t* windowClass;
  const wchar_t* caption;
  DWORD style;
  int x, y, width, height;
};

constexpr DWORD kLabel = SS_LEFT;
constexpr DWORD kList = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER | WS_TABSTOP;
constexpr DWORD kQuoteList = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP;
constexpr DWORD kButton = BS_PUSHBUTTON | WS_TABSTOP;
constexpr DWORD kCheck = BS_AUTOCHECKBOX | WS_TABSTOP;

// A label above a list; the list's id follows the label's.
struct LabelledList {
  int labelId;
  const wchar_t* caption;
};

// Four columns of 165 with 12 between them.
constexpr int kColumnStep = 177;
constexpr LabelledList kEncodingColumns[] = {
    {kLblFrom, L"&From encoding:"},
    {kLblTo, L"&To encoding:"},
    {kLblUniFonts, L"&Unicode font:"},
    {kLblNonUniFonts, L"&NonUnicode font:"},
};

constexpr ControlPlan kMiddlePlan[] = {
    {kGrpOptions, WC_BUTTONW, L"Options", BS_GROUPBOX, 12, 214, 342, 110},
    {kChbConvertAsPlainText, WC_BUTTONW, L"Convert As &Plain Text", kCheck | WS_GROUP, 24, 236, 170, 22},
    {kChbVowelSigns, WC_BUTTONW, L"Convert &vowel signs", kCheck | WS_GROUP, 24, 262, 170, 22},
    {kChbNewForm, WC_BUTTONW, L"&IrRiRee Form", kCheck | WS_GROUP, 24, 288, 170, 22},
    {kOptNormalQ, WC_BUTTONW, L"N&ormal quotes", BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, 200, 236, 146, 22},
    {kOptDecorQ, WC_BUTTONW, L"&Decorative quotes", BS_AUTORADIOBUTTON, 200, 262, 146, 22},
    {kCmdConvert, WC_BUTTONW, L"&Convert", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, 366, 220, 165, 32},
    {kCmdSwap, WC_BUTTONW, L"S&wap Encodings", kButton | WS_GROUP, 543, 220, 165, 32},
    {kCmdGenFontsList, WC_BUTTONW, L"&Regenerate Fonts List", kButton | WS_GROUP, 366, 262, 342, 28},
    {kGrpQuotes, WC_BUTTONW, L"Quote conversion", BS_GROUPBOX | WS_GROUP, 12, 334, 696, 92},
};

// The quote lists are tall enough for a 20 point font at any DPI, since a combo box sizes its
// field to its font.
constexpr int kQuoteStep = 172;
constexpr LabelledList kQuoteColumns[] = {
    {kLblFromQuote, L"Unicode &quote:"},
    {kLblToQuote, L"&Legacy quote:"},
    {kLblToQuoteEng, L"The same, in &Arial:"},
};

constexpr ControlPlan kLastPlan[] = {
    {kCmdConvertQuotes, WC_BUTTONW, L"Convert Quot&es", kButton | WS_GROUP, 548, 372, 148, 32},
    {kLblPerc, WC_STATICW, L"", SS_LEFTNOWORDWRAP | SS_NOPREFIX | WS_GROUP, 12, 438, 696, 22},
};

// Every control, in the order the Tab key visits them.
std::vector<ControlPlan> Plan() {
  std::vector<ControlPlan> plan;
  int x = 12;
  for (const LabelledList& column : kEncodingColumns) {
    plan.push_back({column.labelId, WC_STATICW, column.caption, kLabel, x, 10, 165, 18});
    plan.push_back({column.labelId + 1, WC_LISTBOXW, L"", kList | WS_GROUP, x, 30, 165, 176});
    x += kColumnStep;
  }
  plan.insert(plan.end(), std::begin(kMiddlePlan), std::end(kMiddlePlan));
  x = 24;
  for (const LabelledList& column : kQuoteColumns) {
    plan.push_back({column.labelId, WC_STATICW, column.caption, kLabel, x, 354, 160, 18});
    plan.push_back({column.labelId + 1, WC_COMBOBOXW, L"", kQuoteList | WS_GROUP, x, 374, 160, 240});
    x += kQuoteStep;
  }
  plan.insert(plan.end(), std::begin(kLastPlan), std::end(kLastPlan));
  return plan;
}

}  // namespace

void ConverterWindow::CreateControls() {
  uiFont_ = std::make_unique<controls::UiFont>(controls::SystemFont::Message);
  arialFont_ = std::make_unique<controls::UiFont>(L"Arial", kQuotePoints);
  for (const ControlPlan& plan : Plan()) {
    HWND control = CreateWindowExW(plan.id == kLblPerc ? WS_EX_STATICEDGE : 0, plan.windowClass, plan.caption,
                                   WS_CHILD | WS_VISIBLE | plan.style, Scale(plan.x), Scale(plan.y), Scale(plan.width),
                                   Scale(plan.height), window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(plan.id)),
                                   instance_, nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(uiFont_->Handle()), FALSE);
  }
  for (int id : {kCmbFromQuote, kCmbToQuote, kCmbToQuoteEng}) {
    SendMessageW(Control(id), WM_SETFONT, reinterpret_cast<WPARAM>(arialFont_->Handle()), FALSE);
  }
  tooltip_ =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_, nullptr, instance_, nullptr);
  // The quote lists' tips are long sentences: let them wrap.
  SendMessageW(tooltip_, TTM_SETMAXTIPWIDTH, 0, Scale(420));
  SetFocus(Control(kLbxFrom));
}

void ConverterWindow::SetTooltip(int id, std::u16string_view text) {
  std::wstring tip = controls::ToWide(text);
  TOOLINFOW info{};
  info.cbSize = sizeof(info);
  info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  info.hwnd = window_;
  info.uId = reinterpret_cast<UINT_PTR>(Control(id));
  info.lpszText = tip.data();
  // Adding a tool twice keeps the first text; delete, then add with the new one.
  SendMessageW(tooltip_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&info));
  SendMessageW(tooltip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

}  // namespace quilom::converter::win32
