// Arbitrary bytes through the file decoders and every settings parser. Besides crashes and
// undefined behaviour it checks the properties the settings store relies on: a UTF-16LE save
// reads back unchanged, and an ini value that was set is the value found.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "settings/ini_file.hpp"
#include "settings/settings_choices.hpp"
#include "settings/settings_lines.hpp"
#include "settings/settings_list.hpp"
#include "settings/text_codec.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace {

using namespace quilom::settings;

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

void CheckRoundTrips(const std::u16string& text) {
  const DecodedText le = DecodeTextBytes(EncodeText(text, 3), false);
  Check(le.ok && le.encoding == TextEncoding::Utf16LeBom && le.text == text);
  const DecodedText be = DecodeTextBytes(EncodeText(text, 5), false);
  Check(be.ok && be.encoding == TextEncoding::Utf16BeBom && be.text == text);
  Check(EncodeText(text, 0).empty());
}

void CheckSettingsParsers(const std::u16string& text) {
  SettingsListOf(text, true);
  SettingsListOf(text, false);
  SettingsChoicesOf(text, u"Key");
  auto lines = quilom::text::Split(text, quilom::text::kCrLf);
  size_t index = 0;
  if (FindKeyLine(lines, u"Key", index) == KeyLookup::Found) Check(index >= 1 && index + 1 < lines.size());
  const size_t before = lines.size();
  PutSettingsValues(lines, {u"a", u"b", u"c"});
  Check(lines.size() == before);
}

void CheckIni(const std::u16string& text) {
  FindIniValue(text, u"", u"k");
  const std::u16string updated = SetIniValue(text, u"Sec", u"k", u"v 1");
  Check(FindIniValue(updated, u"Sec", u"k") == u"v 1");
  const std::u16string top = SetIniValue(text, u"", u"k", u"2");
  Check(FindIniValue(top, u"", u"k") == u"2");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  IsValidUtf8(data, static_cast<std::int32_t>(size));
  if (bytes.empty()) return 0;
  DecodeTextBytes(bytes, false);
  const DecodedText decoded = DecodeTextBytes(bytes, true);
  if (!decoded.ok) return 0;
  const std::u16string normalised = NormaliseNewlines(decoded.text);
  Check(NormaliseNewlines(normalised) == normalised);
  CheckRoundTrips(decoded.text);
  CheckSettingsParsers(decoded.text);
  CheckIni(decoded.text);
  return 0;
}
