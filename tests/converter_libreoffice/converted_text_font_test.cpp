#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "converter/libreoffice/writer_document.hpp"
#include "converter/libreoffice/writer_editor.hpp"
#include "support/recording_reporter.hpp"
#include "writer_fixture.hpp"

// Converted text receives the replacement font only after its pair has run; these cases pin
// down that the late font lands on exactly the converted text and changes nothing else.
namespace quilom::testing::lo {
namespace {

constexpr char16_t kLegacy[] = u"TSCu_Paranar";
constexpr char16_t kUnicode[] = u"Noto Sans Tamil";

struct Styled {
  char16_t c;
  std::u16string font;
  bool bold;
  bool operator==(const Styled&) const = default;
};

std::vector<Styled> CharactersOf(const Paragraph& paragraph) {
  std::vector<Styled> characters;
  for (const Run& run : paragraph) {
    for (char16_t c : run.text) characters.push_back({c, run.font, run.bold});
  }
  return characters;
}

void RunPairs(converter::libreoffice::WriterEditor& editor,
         const std::vector<std::pair<std::u16string, std::u16string>>& pairs) {
  editor.SetScope(converter::EditScope::WholeDocument);
  editor.SetFindFont(kLegacy);
  editor.SetReplacementFont(kUnicode);
  for (const auto& [find, replacement] : pairs) ASSERT_TRUE(editor.ReplaceAll(find, replacement));
  ASSERT_TRUE(editor.FinishRun());
}

// Many alternating bold and plain runs: every converted letter ends in the Unicode font with
// its own weight, and the spaces no pair converts stay in the legacy font.
TEST(ConvertedTextFont, EveryConvertedLetterGetsTheFontAndKeepsItsWeight) {
  ASSERT_NE(Office(), nullptr);
  Paragraph paragraph;
  std::vector<Styled> want;
  for (int i = 0; i < 40; ++i) {
    const bool bold = i % 2 == 1;
    paragraph.push_back({u"ab ", kLegacy, bold});
    want.insert(want.end(), {{u'க', kUnicode, bold}, {u'ம', kUnicode, bold}, {u' ', kLegacy, bold}});
  }
  const auto document = NewDocument({paragraph});
  converter::libreoffice::WriterEditor editor(document, true);
  RunPairs(editor, {{u"a", u"க"}, {u"b", u"ம"}});
  const auto paragraphs = ReadParagraphs(document);
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_EQ(CharactersOf(paragraphs[0]), want);
  converter::libreoffice::CloseDocument(document);
}

// Text converted by an earlier pair is in the replacement font, so a later find text that
// holds it does not match it, whether or not its font has been applied yet.
TEST(ConvertedTextFont, ALaterFindTextDoesNotMatchConvertedText) {
  ASSERT_NE(Office(), nullptr);
  const auto document = NewDocument({{{u"ab", kLegacy}}});
  converter::libreoffice::WriterEditor editor(document, true);
  ScopedRecordingReporter reports;  // the unconverted "b" is reported as left over
  RunPairs(editor, {{u"a", u"க"}, {u"கb", u"X"}});
  const auto paragraphs = ReadParagraphs(document);
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_EQ(CharactersOf(paragraphs[0]), (std::vector<Styled>{{u'க', kUnicode, false}, {u'b', kLegacy, false}}));
  converter::libreoffice::CloseDocument(document);
}

// A replacement character that the document already held in the find font: only the
// converted one changes font.
TEST(ConvertedTextFont, UnconvertedTextOfTheSameCharacterKeepsItsFont) {
  ASSERT_NE(Office(), nullptr);
  const auto document = NewDocument({{{u"xy", kLegacy}}});
  converter::libreoffice::WriterEditor editor(document, true);
  RunPairs(editor, {{u"x", u"y"}});
  const auto paragraphs = ReadParagraphs(document);
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_EQ(CharactersOf(paragraphs[0]), (std::vector<Styled>{{u'y', kUnicode, false}, {u'y', kLegacy, false}}));
  converter::libreoffice::CloseDocument(document);
}

}  // namespace
}  // namespace quilom::testing::lo
