#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/recording_reporter.hpp"
#include "support/temp_folder.hpp"
#include "text/utf.hpp"
#include "tools/reverse_transliteration.hpp"

namespace quilom::tools {
namespace {

std::string Reverse(const std::string& tamil, ReverseOptions options = {}, const ReverseWordList& words = {}) {
  return text::Utf16ToUtf8(ReverseTransliterate(text::Utf8ToUtf16(tamil), options, words));
}

struct WordCase {
  const char* tamil;
  const char* latin;
};

// Common words, spelled by the letter rules alone.
TEST(ReverseTransliteration, CommonWordsReadNaturally) {
  const std::vector<WordCase> cases = {
      {"தமிழ்", "thamizh"},      {"வணக்கம்", "vaNakkam"},   {"அம்மா", "ammaa"},
      {"தங்கம்", "thangkam"},    {"படம்", "padam"},         {"மகன்", "magan"},
      {"பச்சை", "pachchai"},     {"கட்சி", "katchi"},       {"செய்தி", "seydhi"},
      {"வந்தான்", "vandhaan"},    {"காற்று", "kaatru"},       {"நன்றி", "nandri"},
      {"என்று", "endru"},         {"தம்பி", "thambi"},        {"மஞ்சள்", "manjchaL"},
      {"பத்து", "paththu"},       {"வார்த்தை", "vaarththai"}, {"அது", "adhu"},
      {"வண்டி", "vaNdi"},         {"சொல்", "sol"},            {"பசி", "pasi"},
      {"ஞாயிறு", "gnaayiRu"},     {"கொடு", "kodu"},           {"ஃபைல்", "fail"},
      {"ஔவை", "owvai"},          {"எஃகு", "eqku"},           {"க்ஷேத்திரம்", "kshEththiram"},
      {"ஶ்ரீ", "Ssree"},          {"ஜன்னல்", "jannal"},       {"ஹரி", "hari"},
  };
  for (const auto& c : cases) EXPECT_EQ(Reverse(c.tamil), c.latin) << c.tamil;
}

TEST(ReverseTransliteration, TableSpellingsWhereNoContextRuleApplies) {
  // ந and ன are both "n"; ட is "t" and த "dh" when dead and after other letters.
  EXPECT_EQ(Reverse("நான்"), "naan");
  EXPECT_EQ(Reverse("பட்டம்"), "pattam");
  EXPECT_EQ(Reverse("ண ழ ள ற ஷ ஸ"), "Na zha La Ra sha Sa");
  // A syllable from every vowel row of one consonant.
  EXPECT_EQ(Reverse("ம மா மி மீ மு மூ மெ மே மை மொ மோ மௌ ம்"), "ma maa mi mee mu moo me mE mai mo mO mow m");
}

TEST(ReverseTransliteration, TypeableNaSpellsNaByItsKey) {
  ReverseOptions typeable;
  typeable.typeableNa = true;
  EXPECT_EQ(Reverse("நான் வந்தான் பொருநன் அந்நியன்", typeable), "waan vandhaan poruwan awwiyan");
  EXPECT_EQ(Reverse("பெட்ரோல்"), "pedrOl");  // "tr" would type ற்ற
  // A listed word that holds ந is left to the letter rules, which keep it typeable.
  const auto words = ReverseWordList::Parse(u"நதி nathi\r\nகதை kathai\r\n");
  EXPECT_EQ(Reverse("நதி கதை", typeable, words), "wadhi kathai");
  EXPECT_EQ(Reverse("நதி கதை", {}, words), "nathi kathai");
}

TEST(ReverseTransliteration, TwoPartVowelSignsReadLikePrecomposedOnes) {
  EXPECT_EQ(Reverse("\u0BAE\u0BC6\u0BBE \u0BAE\u0BC7\u0BBE \u0BAE\u0BC6\u0BD7"), "mo mO mow");
  EXPECT_EQ(Reverse("\u0BAE\u0BCA \u0BAE\u0BCB \u0BAE\u0BCC"), "mo mO mow");
}

TEST(ReverseTransliteration, SpecialSequencesAndStrayMarks) {
  EXPECT_EQ(Reverse("ஸ்ரீ ௐ"), "Sri OM");
  EXPECT_EQ(Reverse("ஸ்ரீராம்"), "Sriraam");
  // A vowel sign with no consonant before it is kept rather than lost.
  EXPECT_EQ(Reverse("ிக"), "ிka");
}

TEST(ReverseTransliteration, NonTamilTextPassesThroughUnchanged) {
  EXPECT_EQ(Reverse("Hello, World 123!\r\n\tok"), "Hello, World 123!\r\n\tok");
  EXPECT_EQ(Reverse("நான் Chennai போனேன்"), "naan Chennai pOnEn");
  // A word that begins with another script is copied whole.
  EXPECT_EQ(Reverse("abcதமிழ்"), "abcதமிழ்");
  EXPECT_EQ(Reverse(""), "");
}

TEST(ReverseTransliteration, LayoutAndPunctuationAroundWordsAreKept) {
  EXPECT_EQ(Reverse("தமிழ்\r\nநாடு  அது"), "thamizh\r\nnaadu  adhu");
  EXPECT_EQ(Reverse("(தமிழ்), \"அது\""), "(thamizh), \"adhu\"");
  EXPECT_EQ(Reverse("\u201Cதமிழ்\u201D"), "\u201Cthamizh\u201D");
  EXPECT_EQ(Reverse("\uFEFFதமிழ்"), "\uFEFFthamizh");
}

TEST(ReverseTransliteration, NumeralsOnlyWhenAsked) {
  EXPECT_EQ(Reverse("௧௨ ௱"), "௧௨ ௱");
  ReverseOptions numerals;
  numerals.numerals = true;
  EXPECT_EQ(Reverse("௧௨ ௱", numerals), "12 100");
  EXPECT_EQ(Reverse("௦௯ ௰ ௲", numerals), "09 10 1000");
}

TEST(ReverseTransliteration, SignsOnlyWhenAsked) {
  EXPECT_EQ(Reverse("௹"), "௹");
  ReverseOptions signs;
  signs.signs = true;
  EXPECT_EQ(Reverse("௹", signs), "rupee");
  EXPECT_EQ(Reverse("௳ ௺", signs), "day number");
  EXPECT_EQ(Reverse("௧", signs), "௧");  // signs leave numerals alone
}

ReverseWordList Words(const char* lines) { return ReverseWordList::Parse(text::Utf8ToUtf16(lines)); }

TEST(ReverseWordList, WordsMatchOnlyBetweenBoundaries) {
  const auto words = Words("கதை kathai\r\nஅம்மா Amma\r\n");
  EXPECT_EQ(Reverse("கதை", {}, words), "kathai");                  // the text's ends count
  EXPECT_EQ(Reverse("ஒரு கதை.", {}, words), "oru kathai.");
  EXPECT_EQ(Reverse("கதைகள்", {}, words), "kadhaigaL");              // a longer word is not the listed one
  EXPECT_EQ(Reverse("சிறுகதை", {}, words), "siRugadhai");
  EXPECT_EQ(Reverse("x\u201Cகதை\u201D", {}, words), "x\u201Cகதை\u201D");  // U+201C is past the boundary range
  EXPECT_EQ(Reverse("அம்மா\tகதை\r\nகதை", {}, words), "Amma\tkathai\r\nkathai");
}

TEST(ReverseWordList, FirstListingWinsAndBadLinesAreCounted) {
  const auto words = Words("# note\r\nகதை kathai\r\nகதை kadhai\r\n\r\nநோ\r\nab cd\r\n ஒரு\r\nஅவன் avan the man\r\n");
  EXPECT_EQ(words.size(), 2u);
  EXPECT_EQ(words.badLines(), (std::vector<size_t>{5, 6, 7}));
  EXPECT_EQ(Reverse("கதை அவன்", {}, words), "kathai avan the man");
}

TEST(ReverseWordList, ShippedListLoadsWithoutComplaint) {
  testing::ScopedRecordingReporter reporter;
  const auto words = LoadReverseWordList(testing::SourceDataRoot() / "Indic Direct Typer");
  EXPECT_GE(words.size(), 200u);
  EXPECT_TRUE(reporter->messages.empty());
  EXPECT_EQ(Reverse("சென்னை கவிதை", {}, words), "chennai kavithai");
}

TEST(ReverseWordList, MissingListIsReported) {
  testing::TempFolder folder;
  testing::ScopedRecordingReporter reporter;
  EXPECT_EQ(LoadReverseWordList(folder.path()).size(), 0u);
  EXPECT_TRUE(reporter->HasTag(u"RT-sk"));
}

TEST(ReverseGraves, PairedGravesKeepTheirTextWhenAsked) {
  const auto words = Words("கதை kathai\r\n");
  ReverseOptions keep;
  keep.keepGraves = true;
  EXPECT_EQ(Reverse("அது `கதை அது` கதை", keep, words), "adhu `கதை அது` kathai");
  EXPECT_EQ(Reverse("அது `கதை அது` கதை", {}, words), "adhu `kathai adhu` kathai");
  // A grave accent with no partner is an ordinary character.
  EXPECT_EQ(Reverse("`அது` அது `அது", keep), "`அது` adhu `adhu");
  EXPECT_EQ(text::Utf16ToUtf8(RemoveGraveAccents(u"`a` b`")), "a b");
  EXPECT_EQ(text::Utf16ToUtf8(OutputToLowerCase(u"vaNakkam `ABC`")), "vanakkam `abc`");
}

TEST(ReverseProgress, WindowTexts) {
  EXPECT_EQ(text::Utf16ToUtf8(ReverseProgressText(0, 1)), "100 %\r\nprocessed");
  EXPECT_EQ(text::Utf16ToUtf8(ReverseProgressText(0, 0)), "100 %\r\nprocessed");
  EXPECT_EQ(text::Utf16ToUtf8(ReverseProgressText(0, 4)), "0% processed");
  EXPECT_EQ(text::Utf16ToUtf8(ReverseProgressText(1, 4)), "33% processed");
  EXPECT_EQ(text::Utf16ToUtf8(ReverseProgressText(3, 4)), "100% processed");
  EXPECT_EQ(text::Utf16ToUtf8(ReverseCharacterCountsText(5, 7)),
            "Input characters  = 5\r\nOutput characters = 7");
}

TEST(ReverseProgress, EveryWordIsReportedOnceInOrder) {
  std::vector<std::pair<size_t, size_t>> calls;
  ReverseOptions keep;
  keep.keepGraves = true;
  ReverseTransliterate(u"one  இரண்டு\r\n`kept text` மூன்று", keep, {},
                       [&](size_t index, size_t count) { calls.emplace_back(index, count); });
  EXPECT_EQ(calls, (std::vector<std::pair<size_t, size_t>>{{0, 3}, {1, 3}, {2, 3}}));

  std::u16string shown;
  ReverseTransliterate(u"தமிழ்\r\n", {}, {}, [&](size_t index, size_t count) { shown = ReverseProgressText(index, count); });
  EXPECT_EQ(shown, u"100 %\r\nprocessed");
}

}  // namespace
}  // namespace quilom::tools
