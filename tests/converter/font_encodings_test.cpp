#include "converter/font_encodings.hpp"

#include <gtest/gtest.h>

#include "converter/converter_lists.hpp"
#include "converter/encoding_list.hpp"
#include "settings/text_file.hpp"
#include "support/temp_folder.hpp"
#include "text/strings.hpp"

namespace quilom::converter {
namespace {

TEST(FontEncodings, ShippedPatternsNameTheEncodingOfDebiansFontsAndTheCommonOnes) {
  const auto folder = testing::SourceDataRoot() / "Tamil Fonts Converter";
  const auto patterns = text::Split(settings::ReadTextFile(folder / std::u16string(kSearchPatternsFile)), text::kCrLf);
  const EncodingList list = LoadEncodingList(folder);
  const auto encoding = [&](std::u16string_view font) -> std::u16string {
    const std::optional<int> position = EncodingOfFont(font, patterns);
    return position ? list.names[static_cast<std::size_t>(*position)] : u"-";
  };
  EXPECT_EQ(encoding(u"TSCu_Paranar"), u"Tscii");
  EXPECT_EQ(encoding(u"tscu_times"), u"Tscii");  // names match without regard to case
  EXPECT_EQ(encoding(u"TAMu_Kalyani"), u"Tam");
  EXPECT_EQ(encoding(u"TAB-Anna"), u"Tab");
  EXPECT_EQ(encoding(u"Bamini"), u"Bamini");
  EXPECT_EQ(encoding(u"Latha"), u"-");  // a Unicode font: nothing to convert
  EXPECT_EQ(encoding(u"Liberation Serif"), u"-");
  EXPECT_EQ(encoding(u""), u"-");
}

}  // namespace
}  // namespace quilom::converter
