// Arbitrary bytes through `quilom detect`'s core, with the shipped tables loaded once from the
// source data folder. Besides crashes and undefined behaviour it checks what the command
// prints from: a legacy answer has guesses, scores fall down the ranking, confidences add up
// to one and never rise down the ranking, and a family's members read alike and score alike.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "converter/encoding_detector.hpp"
#include "converter/legacy_bytes.hpp"

namespace {

using namespace quilom::converter;

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

const EncodingDetector& Detector() {
  static const EncodingDetector detector =
      EncodingDetector::Load(std::filesystem::path(QUILOM_SOURCE_DATA_DIR) / "Tamil Fonts Converter");
  return detector;
}

void CheckRanking(const std::vector<EncodingGuess>& guesses) {
  Check(guesses.size() == Detector().EncodingCount());
  double sum = 0;
  for (std::size_t i = 0; i < guesses.size(); ++i) {
    const EncodingGuess& guess = guesses[i];
    Check(std::isfinite(guess.score) && guess.confidence >= 0 && guess.confidence <= guess.familyConfidence + 1e-12);
    sum += guess.confidence;
    if (i == 0) continue;
    Check(guess.score <= guesses[i - 1].score);
    Check(guess.familyConfidence <= guesses[i - 1].familyConfidence + 1e-12);
  }
  Check(std::abs(sum - 1.0) < 1e-9);
  for (const EncodingGuess& guess : guesses) {
    for (const std::u16string& name : guess.alike) {
      Check(name != guess.name);
      const auto other =
          std::find_if(guesses.begin(), guesses.end(), [&](const EncodingGuess& g) { return g.name == name; });
      Check(other != guesses.end() && other->score == guess.score && other->familyConfidence == guess.familyConfidence);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Check(Detector().EncodingCount() > 0);
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Detection detection = Detector().Detect(bytes);
  Check(detection.englishLikeness >= 0 && detection.englishLikeness <= 1);
  if (detection.kind == TextKind::LegacyTamil) {
    Check(!detection.guesses.empty() && ReadsAsTamil(detection.guesses.front()));
  }
  if (!detection.guesses.empty()) CheckRanking(detection.guesses);
  // Every byte as the glyph code it would be, past the checks that turn binary input away.
  CheckRanking(Detector().Rank(LegacyBytesToText(bytes)));
  return 0;
}
