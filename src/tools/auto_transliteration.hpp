#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "translit/engine.hpp"

// The auto transliterator: runs a whole Latin phonetic text through the typing engine, word
// by word, and collects what the engine typed.
namespace quilom::tools {

struct AutoTransliterationOptions {
  // Text between a pair of grave accents is copied as it stands, accents included.
  bool keepBackQuoted = false;
};

// Receives 0..100 as the words are done.
using ProgressCallback = std::function<void(int percent)>;

// Converts `input` with the keymap the engine holds (the caller loads it). Blanks, tabs and
// line breaks separate words and are kept exactly as they stand. A word whose first
// character is not an ASCII letter is copied unchanged; any other word is typed key by key
// into a freshly reset engine and replaced by what the engine typed. A word in which "x" is
// followed by a digit keeps that "x" and digit as typed, since the keymap would turn the "x"
// into க்ஷ்.
//
// The engine's sink is switched to output mode 2 for the run, so nothing reaches another
// application, then back to 0, and the engine is reset. An empty input gives "". On a failure
// the problem is reported ("AT - Conv") and the text converted so far is returned.
std::u16string AutoTransliterate(std::u16string_view input, translit::Engine& engine,
                                 const AutoTransliterationOptions& options = {}, const ProgressCallback& progress = {});

}  // namespace quilom::tools
