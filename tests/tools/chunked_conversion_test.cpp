#include "tools/chunked_conversion.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "settings/data_folders.hpp"
#include "support/temp_folder.hpp"
#include "tools/auto_transliteration.hpp"
#include "tools/reverse_transliteration.hpp"
#include "translit/engine.hpp"
#include "translit/keymap_file.hpp"

namespace quilom::tools {
namespace {

std::u16string ConvertInPieces(std::u16string text, size_t chunkLength, bool keepGraves,
                               const ChunkedConversion::ConvertChunk& convert, size_t* steps = nullptr) {
  ChunkedConversion run(std::move(text), chunkLength, keepGraves);
  size_t count = 0;
  int lastPercent = -1;
  while (!run.Done()) {
    run.Step(convert);
    EXPECT_GE(run.PercentDone(), lastPercent);
    lastPercent = run.PercentDone();
    ++count;
  }
  EXPECT_EQ(run.PercentDone(), 100);
  if (steps != nullptr) *steps = count;
  return run.Output();
}

TEST(ChunkBoundaries, PiecesEndAfterASeparatorOutsideGravePairs) {
  struct Row {
    const char* name;
    std::u16string text;
    size_t from;
    size_t target;
    bool graves;
    size_t expected;
  };
  const Row rows[] = {
      {"cuts after the first separator past the target", u"ab cd ef gh", 0, 4, false, 6},
      {"a separator exactly at the target counts", u"abc def", 0, 4, false, 4},
      {"no separator: the whole rest", u"abcdefgh", 0, 2, false, 8},
      {"starts counting at from", u"ab cd ef gh", 3, 2, false, 6},
      {"line breaks separate", u"ab\r\ncd", 0, 1, false, 3},
      {"a grave pair is never cut", u"a`b c d` e f", 0, 2, true, 9},
      {"graves are plain text when not kept", u"a`b c d` e f", 0, 2, false, 4},
      {"an unpaired last grave does not hold the cut", u"a`b c d", 0, 2, true, 4},
      {"from past the end", u"ab", 5, 2, false, 2},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(NextChunkEnd(row.text, row.from, row.target, row.graves), row.expected) << row.name;
  }
}

TEST(ChunkBoundaries, WordsAreCountedAcrossPiecesOnce) {
  EXPECT_EQ(CountWords(u""), 0u);
  EXPECT_EQ(CountWords(u"  \r\n"), 0u);
  EXPECT_EQ(CountWords(u" one\ttwo\r\nthree  "), 3u);

  std::u16string text;
  for (int i = 0; i < 200; ++i) text += u"word ";
  ChunkedConversion run(text, 37, false);
  size_t lastWordsBefore = 0;
  while (!run.Done()) {
    run.Step([&](std::u16string_view chunk, size_t wordsBefore) {
      EXPECT_EQ(wordsBefore, lastWordsBefore);
      lastWordsBefore = wordsBefore + CountWords(chunk);
      return std::u16string(chunk);
    });
  }
  EXPECT_EQ(lastWordsBefore, 200u);
  EXPECT_EQ(run.TotalWords(), 200u);
  EXPECT_EQ(run.Output(), text);
}

TEST(ChunkBoundaries, EmptyTextIsDoneAtOnce) {
  ChunkedConversion run(u"", 10, true);
  EXPECT_TRUE(run.Done());
  EXPECT_TRUE(run.Step([](std::u16string_view, size_t) -> std::u16string {
    ADD_FAILURE() << "nothing to convert";
    return u"";
  }));
  EXPECT_EQ(run.Output(), u"");
}

// The windows rely on a text converted in pieces coming out exactly as the whole text does.
std::u16string LongTamilText() {
  const std::u16string lines[] = {
      u"தமிழ் ஒரு பழமையான மொழி. `keep this` இது இந்தியா, இலங்கை ௧௨ ௹\r\n",
      u"அகர முதல எழுத்தெல்லாம் ஆதி\tபகவன் முதற்றே உலகு. Latin Words stay\r\n",
      u"`பகவன் ஆதி` ஸ்ரீ ௐ க்ஷ ஃ\r\n",
  };
  std::u16string text;
  for (int i = 0; i < 40; ++i) text += lines[i % 3];
  return text + u"last ` unpaired";
}

TEST(ChunkedConversionMatchesWhole, ReverseTransliteration) {
  const ReverseWordList words = ReverseWordList::Parse(u"முதல mudhala\r\nஆதி aadhi\r\n");
  for (const bool keepGraves : {false, true}) {
    ReverseOptions options;
    options.numerals = true;
    options.signs = true;
    options.keepGraves = keepGraves;
    const auto text = LongTamilText();
    const auto whole = ReverseTransliterate(text, options, words);
    for (const size_t chunk : {1u, 16u, 100u, 5000u}) {
      size_t steps = 0;
      const auto pieces = ConvertInPieces(
          text, chunk, keepGraves,
          [&](std::u16string_view piece, size_t) { return ReverseTransliterate(piece, options, words); }, &steps);
      EXPECT_EQ(pieces, whole) << "chunk " << chunk << " graves " << keepGraves;
      if (chunk < 100) EXPECT_GT(steps, 10u);
    }
  }
}

TEST(ChunkedConversionMatchesWhole, AutoTransliteration) {
  std::shared_ptr<const translit::PhoneticKeymap> tables;
  const auto folder = settings::DataFolders::ForDataRoot(testing::SourceDataRoot()).keymapFolder;
  ASSERT_EQ(translit::LoadPhoneticKeymap(folder, u"Tamil-Unicode-PhoneticTransliteration", {}, tables),
            translit::LoadOutcome::Loaded);
  translit::NullOutputSink sink;
  translit::Engine engine{sink};
  engine.SetKeymap(tables);

  std::u16string text;
  for (int i = 0; i < 30; ++i) text += u"akara mudhala `keep as is` x5 123 vaNakkam,\r\nthamizh\tpEsu ";
  text += u"end `";
  for (const bool keepGraves : {false, true}) {
    const auto whole = AutoTransliterate(text, engine, {keepGraves});
    for (const size_t chunk : {1u, 64u, 100000u}) {
      const auto pieces = ConvertInPieces(text, chunk, keepGraves, [&](std::u16string_view piece, size_t) {
        return AutoTransliterate(piece, engine, {keepGraves});
      });
      EXPECT_EQ(pieces, whole) << "chunk " << chunk << " graves " << keepGraves;
    }
  }
}

}  // namespace
}  // namespace quilom::tools
