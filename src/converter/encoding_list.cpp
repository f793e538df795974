#include "converter/encoding_list.hpp"

#include "converter/converter_lists.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::converter {

std::optional<int> EncodingList::Position(std::u16string_view name) const {
  const std::u16string wanted = text::AsciiLower(name);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (text::AsciiLower(names[i]) == wanted) {
      return static_cast<int>(i);
    }
  }
  return std::nullopt;
}

std::u16string EncodingList::Joined() const { return text::Join(names, u", "); }

EncodingList LoadEncodingList(const std::filesystem::path& converterFolder) {
  EncodingList list;
  list.names = text::Split(settings::ReadTextFile(converterFolder / std::u16string(kEncodingsFile)), text::kCrLf);
  while (!list.names.empty() && list.names.back().empty()) {
    list.names.pop_back();
  }
  return list;
}

bool UsesPrivateUseGlyphs(std::u16string_view encodingName) {
  const std::u16string lower = text::AsciiLower(encodingName);
  return lower == u"tace" || lower == u"stmzh";
}

}  // namespace quilom::converter
