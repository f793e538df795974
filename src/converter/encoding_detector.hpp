#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "converter/pair_replacer.hpp"
#include "converter/text_sniffing.hpp"

// Guesses which legacy encoding a text is in.
//
// Every legacy encoding's legacy-to-Unicode table is tried on the text, and each result is
// scored by how much of it is well-formed Tamil: the share of characters that became Tamil,
// less a penalty for every sign that stands where Tamil never writes one (a vowel sign or pulli
// without a consonant before it, a vowel inside a word, a word opening with a dead consonant or
// with a letter no native word begins with, Latin letters stuck to Tamil ones, glyph codes left
// over). Encodings that share most glyph codes differ in the few that they do not share, and
// those few break the syllables of the wrong guess. The confidence of a guess is its share of
// the scores' softmax, sharpened by the length of the text: a paragraph settles what a word
// cannot. Confidence goes to distinct readings, not to encodings: the encodings of a family
// share one reading's confidence, so a better reading is always the more confident one.
namespace quilom::converter {

struct EncodingGuess {
  int position = 0;  // list position (1 for the first legacy encoding)
  std::u16string name;
  double score = 0;       // well-formedness, about -1 .. 1
  double confidence = 0;  // 0 .. 1, the guesses' confidences add up to 1
  // The other encodings that read this very text into the same Unicode, in rank order. Nothing
  // in the text tells them apart (every glyph code it holds means the same in each), so naming
  // one alone would be a guess: the family is the honest answer, and converting with any of
  // them gives the same result.
  std::vector<std::u16string> alike;
  double familyConfidence = 0;  // the confidence of this guess and of its alike together
};

// "Softview" for a guess that reads unlike the others, "Softview or Shreelipi", or
// "Anjal, Anu or Tab" for a family of encodings that read the text alike.
std::u16string FamilyName(const EncodingGuess& guess);

// What a file holds; `guesses` (best first, as Rank gives them) are filled whenever the text was
// read through the tables: for legacy Tamil, English and text of no kind we know.
struct Detection {
  TextKind kind = TextKind::LegacyTamil;
  std::vector<EncodingGuess> guesses;
  double englishLikeness = 0;
};

class EncodingDetector {
 public:
  // Loads the legacy-to-Unicode table (normal quotes) of every legacy encoding of the list.
  // Encodings whose table is missing are left out (and reported by the table loader).
  static EncodingDetector Load(const std::filesystem::path& converterFolder);

  // Every candidate, best first. Only the first `sampleLimit` code units are looked at: a long
  // file is settled by its beginning. Empty when the detector has no tables. Among encodings
  // that read the text alike, the one whose table carries more syllables comes first (it is the
  // likelier to read the rest of a document right), then list order. Before both come two
  // looks at the codes themselves: an encoding whose own tables write the text's reading back
  // into exactly the text, then fewer of the text's codes that the encoding reads but its own
  // tables never write (a document holds the codes its encoding produces).
  std::vector<EncodingGuess> Rank(std::u16string_view text, std::size_t sampleLimit = 1u << 16) const;

  // A file's bytes, told apart first from what is plainly not legacy Tamil (UTF-16, binary
  // data, Unicode Tamil, nothing at all), then read: English when it reads at least as well as
  // English as the best legacy reading reads as Tamil.
  Detection Detect(std::string_view bytes, std::size_t sampleLimit = 1u << 16) const;

  std::size_t EncodingCount() const { return candidates_.size(); }

 private:
  struct Candidate {
    int position;
    std::u16string name;
    std::shared_ptr<PairReplacer> replacer;
    std::size_t coverage;  // syllables its tables carry both ways
    // Glyph codes its own Unicode-to-legacy tables write, and those its reading table knows.
    // A text that holds codes the encoding reads but never writes was likely written in
    // another encoding that reads them alike: the one tie-break that looks at the codes.
    std::shared_ptr<const std::vector<bool>> written, read;
    // Its Unicode-to-legacy tables (both forms of ர்/ரி/ரீ): a text that one encoding of a tied
    // family writes back exactly as it stands was more likely written in that one.
    std::shared_ptr<PairReplacer> writer, plainRaWriter;
  };
  // The text of the file's bytes as they read best, and its ranking.
  std::u16string ReadBestDecoding(std::string_view bytes, std::size_t sampleLimit,
                                  std::vector<EncodingGuess>& guesses) const;
  std::vector<bool> WritesBack(std::u16string_view sample, const std::vector<EncodingGuess>& guesses,
                               const std::vector<std::u16string>& readings) const;
  std::vector<Candidate> candidates_;
};

// True when the guess reads as Tamil prose at all: real Tamil scores above 0.9 in its own
// encoding, noise below the floor of 0.8 in every encoding. English is not noise (a sentence
// may read as 0.88 in the best of 25 encodings): Detect tells it by reading it as English.
bool ReadsAsTamil(const EncodingGuess& guess);

// The well-formedness score of Unicode text (see above), on its own. Text with no letters
// scores 0.
double TamilWellFormedness(std::u16string_view unicodeText);

}  // namespace quilom::converter
