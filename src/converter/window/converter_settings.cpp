#include "converter/window/converter_settings.hpp"

#include <charconv>
#include <string>

#include "text/utf.hpp"

namespace quilom::converter::window {
namespace {

int ParseInteger(const std::u16string& value) {
  const std::string ascii = text::Utf16ToUtf8(value);
  int result = 0;
  const auto [end, code] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), result);
  return code == std::errc{} && end == ascii.data() + ascii.size() ? result : 0;
}

std::u16string Decimal(int value) { return text::AsciiToUtf16(std::to_string(value)); }

}  // namespace

void LoadConverterSettings(const settings::ToolSettings& file, ConverterChoices& choices) {
  const auto position = [](int& field) { return [&field](const std::u16string& v) { field = ParseInteger(v); }; };
  const auto box = [](bool& field) { return [&field](const std::u16string& v) { field = ParseInteger(v) == 1; }; };
  file.LoadToolSettings({
      {std::u16string(kFromIndexKey), position(choices.fromIndex)},
      {std::u16string(kToIndexKey), position(choices.toIndex)},
      {std::u16string(kUniIndexKey), position(choices.uniIndex)},
      {std::u16string(kNonUniIndexKey), position(choices.nonUniIndex)},
      {std::u16string(kIrRiReeFormKey), box(choices.irRiReeForm)},
      {std::u16string(kPlainTextKey), box(choices.plainText)},
      {std::u16string(kVowelSignsKey), box(choices.vowelSigns)},
      {std::u16string(kQuotesFormatKey), box(choices.normalQuotes)},
  });
}

std::u16string SettingValue(std::u16string_view key, const ConverterChoices& choices) {
  if (key == kFromIndexKey) return Decimal(choices.fromIndex);
  if (key == kToIndexKey) return Decimal(choices.toIndex);
  if (key == kUniIndexKey) return Decimal(choices.uniIndex);
  if (key == kNonUniIndexKey) return Decimal(choices.nonUniIndex);
  if (key == kIrRiReeFormKey) return Decimal(choices.irRiReeForm ? 1 : 0);
  if (key == kPlainTextKey) return Decimal(choices.plainText ? 1 : 0);
  if (key == kVowelSignsKey) return Decimal(choices.vowelSigns ? 1 : 0);
  if (key == kQuotesFormatKey) return Decimal(choices.normalQuotes ? 1 : 2);
  return {};
}

bool SaveConverterSetting(const settings::ToolSettings& file, std::u16string_view key,
                          const ConverterChoices& choices) {
  const std::u16string value = SettingValue(key, choices);
  return !value.empty() && file.SaveToolSetting(key, value);
}

void SaveListPositions(const settings::ToolSettings& file, const ConverterChoices& choices) {
  for (std::u16string_view key : {kFromIndexKey, kToIndexKey, kUniIndexKey, kNonUniIndexKey}) {
    SaveConverterSetting(file, key, choices);
  }
}

}  // namespace quilom::converter::window
