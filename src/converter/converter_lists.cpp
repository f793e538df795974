#include "converter/converter_lists.hpp"

#include <exception>
#include <string>

#include "settings/error_report.hpp"
#include "settings/text_file.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::converter {
namespace {

constexpr int kProgressEveryFonts = 100;
constexpr std::u16string_view kGenerating = u"(Re)Generating the fonts list... Please wait...";

std::vector<std::u16string> ReadLines(const std::filesystem::path& file) {
  return text::Split(settings::ReadTextFile(file), text::kCrLf);
}

std::u16string Decimal(long long value) { return text::AsciiToUtf16(std::to_string(value)); }

void Report(std::u16string_view tag, const std::exception& e) {
  ReportError(tag, {0, u"Quilom++", text::Utf8ToUtf16(e.what())});
}

// Lomuto partition around the last element; recursion on the smaller side keeps the stack
// shallow on sorted input.
void QuickSortRange(std::vector<std::u16string>& items, std::ptrdiff_t low, std::ptrdiff_t high) {
  while (low < high) {
    const std::u16string& pivot = items[static_cast<std::size_t>(high)];
    std::ptrdiff_t store = low;
    for (std::ptrdiff_t i = low; i < high; ++i) {
      if (items[static_cast<std::size_t>(i)] < pivot) {
        std::swap(items[static_cast<std::size_t>(i)], items[static_cast<std::size_t>(store++)]);
      }
    }
    std::swap(items[static_cast<std::size_t>(store)], items[static_cast<std::size_t>(high)]);
    if (store - low < high - store) {
      QuickSortRange(items, low, store - 1);
      low = store + 1;
    } else {
      QuickSortRange(items, store + 1, high);
      high = store - 1;
    }
  }
}

void RefreshFontsList(const std::filesystem::path& folder, const FontCatalog& fonts, const ListsUi& ui,
                      ConverterLists& lists) {
  const std::filesystem::path file = folder / std::u16string(kWinFontsListFile);
  if (!std::filesystem::exists(file)) {
    lists.systemFonts = GenerateFontsList(folder, fonts, ui);
    return;
  }
  lists.systemFonts = ReadLines(file);
  const long long upperBound = static_cast<long long>(lists.systemFonts.size()) - 1;
  if (upperBound != fonts.Count()) {
    if (ui.prompter) {
      ui.prompter->Inform(u"Fonts have got added or deleted in your system recently (Earlier - " + Decimal(upperBound) +
                          u". Now - " + Decimal(fonts.Count()) +
                          u"). Hence, will regenerate the 'Fonts List' which may take a few seconds");
    }
    lists.systemFonts = GenerateFontsList(folder, fonts, ui);
  }
}

}  // namespace

bool IsFontInstalled(const FontCatalog& fonts, std::u16string_view name) {
  try {
    return text::AsciiLower(fonts.ResolvedName(name)) == text::AsciiLower(name);
  } catch (const std::exception& e) {
    Report(u"b-Ifi", e);
    return false;
  }
}

std::vector<std::u16string> GenerateFontsList(const std::filesystem::path& converterFolder, const FontCatalog& fonts,
                                              const ListsUi& ui) {
  std::vector<std::u16string> elements;
  try {
    const int count = fonts.Count();
    elements.assign(static_cast<std::size_t>(std::max(count, 0)), std::u16string());
    if (ui.progress) ui.progress(kGenerating);
    if (ui.busyPointer) ui.busyPointer(true);
    for (int i = 0; i < count; ++i) {
      std::u16string name = fonts.Name(i);
      if (!text::StartsWith(name, u"@")) {
        elements[static_cast<std::size_t>(i)] = std::move(name);
      }
      if (i % kProgressEveryFonts == 0 && ui.progress) {
        ui.progress(std::u16string(kGenerating) + u" " + Decimal(static_cast<long long>(i) * 100 / count) + u"%");
      }
    }
    if (ui.busyPointer) ui.busyPointer(false);
    if (ui.progress) ui.progress(u"Fonts list generation process completed.");
    const std::u16string fileText = std::u16string(kFontsListHeader) + u"\r\n" + text::Join(elements, text::kCrLf);
    if (!settings::WriteTextFile(converterFolder / std::u16string(kWinFontsListFile), fileText,
                                 static_cast<int>(settings::TextEncoding::Utf16LeBom))) {
      ReportError(u"GFL", {0, u"Quilom++", u"The fonts list file could not be written."});
    }
  } catch (const std::exception& e) {
    if (ui.busyPointer) ui.busyPointer(false);
    Report(u"GFL", e);
  }
  return elements;
}

ConverterLists LoadConverterLists(const std::filesystem::path& converterFolder, const FontCatalog& fonts,
                                  const ListsUi& ui) {
  ConverterLists lists;
  try {
    lists.defaultFonts = ReadLines(converterFolder / std::u16string(kDefaultFontsFile));
    lists.encodings = ReadLines(converterFolder / std::u16string(kEncodingsFile));
    const std::vector<std::u16string> candidates = ReadLines(converterFolder / std::u16string(kUnicodeFontsFile));
    RefreshFontsList(converterFolder, fonts, ui, lists);
    lists.unicodeFonts = {std::u16string(kAnyFont), std::u16string(kDefaultFont)};
    for (const std::u16string& name : candidates) {
      if (IsFontInstalled(fonts, name)) {
        lists.unicodeFonts.push_back(name);
      }
    }
  } catch (const std::exception& e) {
    Report(u"App Load", e);
  }
  return lists;
}

std::vector<std::u16string> FillNonUnicodeFonts(const std::filesystem::path& converterFolder,
                                                const std::vector<std::u16string>& systemFonts, int position,
                                                std::u16string_view errorTag) {
  try {
    const std::vector<std::u16string> lines = ReadLines(converterFolder / std::u16string(kSearchPatternsFile));
    if (position < 0 || static_cast<std::size_t>(position) >= lines.size()) {
      return {};
    }
    const std::vector<std::u16string> patterns = text::Split(lines[static_cast<std::size_t>(position)], u", ");
    std::vector<std::u16string> matches;
    for (std::size_t i = 1; i < systemFonts.size(); ++i) {
      const std::u16string lowerFont = text::AsciiLower(systemFonts[i]);
      for (const std::u16string& pattern : patterns) {
        // An empty pattern would match every font; a line's blank field means "no fonts".
        if (!pattern.empty() && text::StartsWith(lowerFont, text::AsciiLower(pattern))) {
          matches.push_back(systemFonts[i]);
        }
      }
    }
    if (matches.empty()) {
      return {};
    }
    QuickSortBinary(matches);
    std::vector<std::u16string> rows = {std::u16string(kAnyFont), std::u16string(kDefaultFont)};
    rows.insert(rows.end(), matches.begin(), matches.end());
    return rows;
  } catch (const std::exception& e) {
    Report(errorTag, e);
    return {};
  }
}

void QuickSortBinary(std::vector<std::u16string>& items) {
  try {
    QuickSortRange(items, 0, static_cast<std::ptrdiff_t>(items.size()) - 1);
  } catch (const std::exception& e) {
    Report(u"QS", e);
  }
}

}  // namespace quilom::converter
