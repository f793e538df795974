#pragma once

// Control ids of the converter window, in tab order.
namespace quilom::converter::win32 {

enum ControlId : int {
  kLblFrom = 100,
  kLbxFrom,
  kLblTo,
  kLbxTo,
  kLblUniFonts,
  kLbxUniFonts,
  kLblNonUniFonts,
  kLbxNonUniFonts,
  kGrpOptions,
  kChbConvertAsPlainText,
  kChbVowelSigns,
  kChbNewForm,
  kOptNormalQ,
  kOptDecorQ,
  kCmdConvert,
  kCmdSwap,
  kCmdGenFontsList,
  kGrpQuotes,
  kLblFromQuote,
  kCmbFromQuote,
  kLblToQuote,
  kCmbToQuote,
  kLblToQuoteEng,
  kCmbToQuoteEng,
  kCmdConvertQuotes,
  kLblPerc,
};

}  // namespace quilom::converter::win32
