#include <gtest/gtest.h>

#include <array>
#include <set>

#include "keymaps_typist.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"

namespace quilom::testing {
namespace {

class TamilPhoneticKeymapTest : public ::testing::Test {
 protected:
  static std::u16string Type(std::u16string_view keys) { return typist_->Type(keys); }

  static void SetUpTestSuite() {
    typist_ = new KeymapTypist(u"Tamil-Unicode-PhoneticTransliteration");
    ASSERT_EQ(typist_->outcome, translit::LoadOutcome::Loaded);
  }
  static void TearDownTestSuite() { delete typist_; }

  static inline KeymapTypist* typist_ = nullptr;
};

TEST_F(TamilPhoneticKeymapTest, CommonWordsTypeKeyByKey) {
  const std::pair<std::u16string_view, std::u16string_view> words[] = {
      {u"vaNakkam", u"வணக்கம்"},
      {u"thamizh", u"தமிழ்"},
      {u"wanRi", u"நன்றி"},
      {u"wandri", u"நன்றி"},
      {u"amma", u"அம்ம"},
      {u"appaa", u"அப்பா"},
      {u"aiyaa", u"ஐயா"},
      {u"owvaiyaar", u"ஔவையார்"},
      {u"auvai", u"ஔவை"},
      {u"aqdhu", u"அஃது"},
      {u"ezhuththu", u"எழுத்து"},
      {u"Eri", u"ஏரி"},
      {u"Odam", u"ஓடம்"},
      {u"oor", u"ஊர்"},
      {u"eeram", u"ஈரம்"},
      {u"ilai", u"இலை"},
      {u"uyir", u"உயிர்"},
      {u"paal", u"பால்"},
      {u"thiruvaLLuvar", u"திருவள்ளுவர்"},
      {u"puththakam", u"புத்தகம்"},
      {u"vanthaan", u"வந்தான்"},
      {u"kaatru", u"காற்று"},
      {u"mozhi", u"மொழி"},
      {u"pazham", u"பழம்"},
      {u"thangkam", u"தங்கம்"},
      {u"gnaanam", u"ஞானம்"},
      {u"njaayiRu", u"ஞாயிறு"},
      {u"kaNNan", u"கண்ணன்"},
      {u"Sri", u"ஸ்ரீ"},
      {u"jeyam", u"ஜெயம்"},
      {u"kashtam", u"கஷ்டம்"},
      {u"kshaththiriyan", u"க்ஷத்திரியன்"},
      {u"xEththiram", u"க்ஷேத்திரம்"},
      {u"haaSyam", u"ஹாஸ்யம்"},
      {u"Ssivan", u"ஶிவன்"},
      {u"pustakam", u"புச்டகம்"},
      {u"koyil", u"கொயில்"},
      {u"kOyil", u"கோயில்"},
      {u"kowthaari", u"கௌதாரி"},
      {u"fil", u"ஃபில்"},
      {u"OM", u"ௐ"},
      {u"#1#2#100", u"௧௨௱"},
      {u"#r", u"௹"},
  };
  for (const auto& [keys, tamil] : words) {
    EXPECT_EQ(Type(keys), tamil) << text::Utf16ToUtf8(keys);
  }
}

struct Letter {
  std::u16string_view latin;
  std::u16string_view tamil;
};

// The reverse spellings of the consonants; ந is the one letter whose reverse spelling ("n",
// shared with ன) cannot come back, so the keymap gives it "w".
constexpr Letter kConsonants[] = {
    {u"k", u"க"},  {u"ng", u"ங"}, {u"ch", u"ச"}, {u"gn", u"ஞ"}, {u"t", u"ட"},    {u"N", u"ண"},
    {u"dh", u"த"}, {u"w", u"ந"},  {u"p", u"ப"},  {u"m", u"ம"},  {u"y", u"ய"},    {u"r", u"ர"},
    {u"l", u"ல"},  {u"v", u"வ"},  {u"zh", u"ழ"}, {u"L", u"ள"},  {u"R", u"ற"},    {u"n", u"ன"},
    {u"j", u"ஜ"},  {u"sh", u"ஷ"}, {u"S", u"ஸ"},  {u"h", u"ஹ"},  {u"ksh", u"க்ஷ"}, {u"Ss", u"ஶ"},
};

// Vowel spelling, independent letter, sign.
constexpr std::array<std::array<std::u16string_view, 3>, 12> kVowels = {{
    {u"a", u"அ", u""},
    {u"aa", u"ஆ", u"ா"},
    {u"i", u"இ", u"ி"},
    {u"ee", u"ஈ", u"ீ"},
    {u"u", u"உ", u"ு"},
    {u"oo", u"ஊ", u"ூ"},
    {u"e", u"எ", u"ெ"},
    {u"E", u"ஏ", u"ே"},
    {u"ai", u"ஐ", u"ை"},
    {u"o", u"ஒ", u"ொ"},
    {u"O", u"ஓ", u"ோ"},
    {u"ow", u"ஔ", u"ௌ"},
}};

TEST_F(TamilPhoneticKeymapTest, EveryLetterAndSyllableIsReachable) {
  for (const auto& vowel : kVowels) EXPECT_EQ(Type(vowel[0]), vowel[1]) << text::Utf16ToUtf8(vowel[0]);
  EXPECT_EQ(Type(u"q"), u"ஃ");
  for (const auto& c : kConsonants) {
    const std::u16string letter(c.tamil);
    EXPECT_EQ(Type(c.latin), letter + u"்") << text::Utf16ToUtf8(c.latin);
    for (const auto& vowel : kVowels) {
      const std::u16string keys = std::u16string(c.latin) + std::u16string(vowel[0]);
      EXPECT_EQ(Type(keys), letter + std::u16string(vowel[2])) << text::Utf16ToUtf8(keys);
    }
  }
  for (int digit = 0; digit <= 9; ++digit) {
    const std::u16string keys{u'#', static_cast<char16_t>(u'0' + digit)};
    EXPECT_EQ(Type(keys), std::u16string(1, static_cast<char16_t>(0x0BE6 + digit)));
  }
  EXPECT_EQ(Type(u"#10"), u"௰");
  EXPECT_EQ(Type(u"#1000"), u"௲");
  const std::u16string_view signs[] = {u"#d", u"#m", u"#y", u"#db", u"#cr", u"#as", u"#r", u"#n"};
  for (size_t i = 0; i < std::size(signs); ++i) {
    EXPECT_EQ(Type(signs[i]), std::u16string(1, static_cast<char16_t>(0x0BF3 + i))) << text::Utf16ToUtf8(signs[i]);
  }
}

// A dead consonant followed by a syllable must type both, except where the two spellings meet
// to form a longer key. Those meetings are what the reverse spellings have to avoid (write
// ட்ஹ other than "th"), so a keymap change that adds one must show up here.
TEST_F(TamilPhoneticKeymapTest, DeadConsonantFollowedBySyllableJoinsOnlyAtKnownSpellings) {
  const std::set<std::u16string> knownJoins = {
      u"n+gn",  // "ng" is ங
      u"n+j",   // "nj" is ஞ
      u"n+dh",  // "ndh" is ந்த
      u"t+h",   // "th" is த
      u"p+h",   // "ph" is ப
      u"t+r",   // "tr" is ற்ற
      u"S+sh",  // "Ss" is ஶ
  };
  std::set<std::u16string> joins;
  for (const auto& first : kConsonants) {
    for (const auto& second : kConsonants) {
      const std::u16string keys = std::u16string(first.latin) + std::u16string(second.latin) + u"a";
      const std::u16string expected = std::u16string(first.tamil) + u"்" + std::u16string(second.tamil);
      if (Type(keys) != expected) joins.insert(std::u16string(first.latin) + u"+" + std::u16string(second.latin));
    }
  }
  std::string found;
  for (const auto& j : joins) found += text::Utf16ToUtf8(j) + " ";
  EXPECT_EQ(joins, knownJoins) << found;
}

// The scheme users edit carries its own help; doing what the help says must work.
TEST(UserDefinedPhoneticsKeymap, EditsMadeAsItsHelpSaysTypeAsPromised) {
  std::u16string text = settings::ReadTextFile(
      translit::PhoneticKeymapPath(ShippedKeymapFolder(), u"Tamil-Unicode-UserDefinedPhonetics1"));
  ASSERT_NE(text.find(u"HOW TO EDIT THIS KEYMAP"), std::u16string::npos);
  // A changed letter, a copied line with new keys, a line break in a text.
  constexpr std::u16string_view kZha = u"<om>z ழ்</om>";
  const size_t z = text.find(kZha);
  ASSERT_NE(z, std::u16string::npos);
  text.replace(z, kZha.size(), u"<om>z ள்</om>");
  text += u"<om>kha கா</om>\r\n<om>nl அ|`~`|ஆ</om>\r\n";
  translit::DataFileProblem problem;
  auto map = translit::ParsePhoneticKeymap(text, {}, *settings::Windows1252(), problem);
  ASSERT_TRUE(map) << text::Utf16ToUtf8(problem.reason);
  KeymapTypist typist(std::make_shared<const translit::PhoneticKeymap>(std::move(*map)));
  const std::pair<std::u16string_view, std::u16string_view> rows[] = {
      {u"kha", u"கா"}, {u"kaa", u"கா"}, {u"z", u"ள்"}, {u"zi", u"ழி"}, {u"nl", u"அ\nஆ"}, {u"vaNakkam", u"வணக்கம்"}};
  for (const auto& [keys, expected] : rows) EXPECT_EQ(typist.Type(keys), expected) << text::Utf16ToUtf8(keys);
  // The help's notes are not entries: every entry line is one of the file's marked lines.
  EXPECT_EQ(typist.tables->EntryCount(), static_cast<int>(text::Split(text, u"<om>").size()) - 1);
}

}  // namespace
}  // namespace quilom::testing
