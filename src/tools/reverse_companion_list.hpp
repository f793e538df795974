#pragma once

#include <filesystem>
#include <string_view>

#include "tools/reverse_word_list.hpp"

// The small reverse transliteration window keeps a word list of its own, in the same line
// format as the main list, so that a user can try spellings there without touching the list the
// main window uses.
namespace quilom::tools {

inline constexpr std::u16string_view kCompanionWordListFile = u"resources/rt-words-105.txt";

// Reads "resources\rt-words-105.txt" below the main data folder. When that file is not there the
// companion falls back to the main list (LoadReverseWordList), so it still spells listed words.
ReverseWordList LoadCompanionWordList(const std::filesystem::path& mainDataFolder);

}  // namespace quilom::tools
