#include "converter/libreoffice/writer_editor.hpp"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>

#include "converter/libreoffice/font_census.hpp"
#include "converter/libreoffice/font_search.hpp"
#include "converter/libreoffice/script_formatting.hpp"
#include "converter/libreoffice/text_ranges.hpp"
#include "converter/libreoffice/uno_names.hpp"
#include "converter/libreoffice/uno_text.hpp"

namespace quilom::converter::libreoffice {

namespace {

constexpr char16_t kSource[] = u"LibreOffice";

Reference<css::document::XUndoManager> UndoManagerOf(const Reference<css::frame::XModel>& document) {
  const Reference<css::document::XUndoManagerSupplier> supplier(document, UNO_QUERY);
  return supplier.is() ? supplier->getUndoManager() : Reference<css::document::XUndoManager>();
}

}  // namespace

WriterEditor::WriterEditor(Reference<css::frame::XModel> document, bool ownDocument)
    : document_(std::move(document)), ownDocument_(ownDocument) {}

WriterEditor::~WriterEditor() { FinishRun(); }

void WriterEditor::Fail(const ErrorDetails& details) { lastError_ = details; }

bool WriterEditor::HasSelection() {
  try {
    return !SelectedRanges(document_).empty();
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
    return false;
  }
}

void WriterEditor::SetScope(EditScope scope) {
  // The selection's temporary font names are about to change meaning.
  StyleDeferredTextNow();
  scope_ = scope;
  selection_.clear();
  if (scope != EditScope::Selection) return;
  try {
    selection_ = SelectedRanges(document_);
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
  }
  tagger_.SetSelection(selection_);
}

void WriterEditor::SetFindFont(std::u16string_view fontName) { findFont_ = std::u16string(fontName); }

void WriterEditor::SetReplacementFont(std::u16string_view fontName) {
  replacementFont_ = std::u16string(fontName);
  if (!replacementFont_.empty()) givenFonts_.insert(replacementFont_);
}

void WriterEditor::StyleDeferredTextNow() {
  try {
    StyleAllDeferredText();
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
  }
}

bool WriterEditor::BeginRun() {
  if (running_) return true;
  running_ = true;
  try {
    document_->lockControllers();
    controllersLocked_ = true;
    if (const Reference<css::document::XUndoManager> undo = UndoManagerOf(document_); undo.is()) {
      if (ownDocument_) {
        undo->lock();  // hundreds of replace-alls would otherwise be recorded for nobody
        undoLocked_ = true;
      } else {
        undo->enterUndoContext(ToOUString(u"Quilom++ conversion"));
        undoContextOpen_ = true;
      }
    }
    markers_.Place(document_);
    return true;
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
    return false;
  }
}

bool WriterEditor::ReplaceAll(std::u16string_view findText, std::u16string_view replacement) {
  if (findText.empty()) return true;
  if (!BeginRun()) return false;
  const std::u16string find = markers_.MapSoftHyphens(findText);
  const std::u16string replace = markers_.MapSoftHyphens(replacement);
  try {
    if (scope_ == EditScope::Selection && findFont_.empty()) {
      return ReplaceInSelectionWithoutFont(find, replace);
    }
    if (scope_ == EditScope::Selection && selection_.empty()) return true;
    FontSearch search;
    search.text = find;
    search.fontProperty = FontPropertyFor(find);
    search.fontName = findFont_;
    PrepareFindFont(search.fontProperty);
    if (scope_ == EditScope::Selection) {
      search.fontName = tagger_.TemporaryName(document_, search.fontProperty, findFont_);
    }
    leftovers_.Note(search.fontProperty, search.fontName, findFont_, find);
    StyleDeferredTextMatching(find);
    const bool defer = CanDeferFont(search, replace);
    const auto key = std::make_pair(search.fontProperty, search.fontName);
    if (!defer) StyleDeferredTextIn(key);
    const std::u16string& fontNow = defer ? std::u16string() : replacementFont_;
    if (CannotMatchOutsideFindFont(search)) {
      FontSearch anyFont = search;
      anyFont.fontName.clear();
      ReplaceAllInFont(document_, anyFont, replace, fontNow);
    } else {
      ReplaceAllInFont(document_, search, replace, fontNow);
      // Until some text of this find font has received another font, nothing has split its
      // runs and the restricted replace-all has missed nothing.
      if (splitFonts_.count(key) != 0) ReplaceMissedOccurrences(search, replace);
    }
    if (!fontNow.empty()) splitFonts_.insert(key);
    if (defer) {
      Deferred& later = deferred_[key];
      later.replacementFont = replacementFont_;
      later.characters.insert(replace.begin(), replace.end());
    }
    if (!replacementFont_.empty()) insertedCharacters_.insert(replace.begin(), replace.end());
    return true;
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
    return false;
  }
}

bool WriterEditor::ReplaceInSelectionWithoutFont(const std::u16string& findText, const std::u16string& replacement) {
  FontSearch search;
  search.text = findText;
  const Reference<css::container::XIndexAccess> found = FindAllInFont(document_, search);
  const rtl::OUString newText = ToOUString(replacement);
  for (sal_Int32 i = 0, count = found.is() ? found->getCount() : 0; i < count; ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (!range.is()) continue;
    bool inside = false;
    for (const auto& selected : selection_) inside = inside || RangeInside(range, selected);
    if (!inside) continue;
    range->setString(newText);
    if (!replacementFont_.empty()) SetRangeFont(range, ToOUString(replacementFont_));
  }
  return true;
}

void WriterEditor::PrepareFindFont(const std::u16string& fontProperty) {
  if (findFont_.empty()) return;
  const auto key = std::make_pair(fontProperty, findFont_);
  if (std::find(preparedFonts_.begin(), preparedFonts_.end(), key) != preparedFonts_.end()) return;
  preparedFonts_.push_back(key);
  MakeInheritedFontDirect(document_, fontProperty, findFont_);
}

bool WriterEditor::CannotMatchOutsideFindFont(const FontSearch& search) {
  if (search.fontName.empty() || replacementFont_.empty() || replacementFont_ == search.fontName) return false;
  const auto key = std::make_pair(search.fontProperty, search.fontName);
  const FontCensus& census = CensusOf(search);
  for (char16_t c : search.text) {
    // Text inserted in the replacement font since the census is outside the find font too.
    if (census.outside.count(c) != 0 || insertedCharacters_.count(c) != 0) return false;
  }
  return true;
}

const FontCensus& WriterEditor::CensusOf(const FontSearch& search) {
  const auto key = std::make_pair(search.fontProperty, search.fontName);
  auto found = census_.find(key);
  if (found == census_.end()) {
    found = census_.emplace(key, TakeFontCensus(document_, search.fontProperty, search.fontName)).first;
  }
  return found->second;
}

bool WriterEditor::CanDeferFont(const FontSearch& search, const std::u16string& replacement) {
  if (search.fontName.empty() || replacementFont_.empty() || replacementFont_ == search.fontName) return false;
  // Writer's search by the complex-script font does not see Latin letters, so text matched
  // by it could not be found again to receive its font.
  if (search.fontProperty != u"CharFontName") return false;
  // Once runs are split, a font-restricted search could miss converted text.
  if (splitFonts_.count({search.fontProperty, search.fontName}) != 0) return false;
  // Converted text left in the find font is told apart from the rest by its characters only.
  const FontCensus& census = CensusOf(search);
  for (char16_t c : replacement) {
    if (census.inside.count(c) != 0) return false;
  }
  const auto pending = deferred_.find({search.fontProperty, search.fontName});
  return pending == deferred_.end() || pending->second.replacementFont == replacementFont_;
}

void WriterEditor::StyleDeferredTextMatching(const std::u16string& findText) {
  for (auto it = deferred_.begin(); it != deferred_.end();) {
    const bool touched =
        std::any_of(findText.begin(), findText.end(), [&](char16_t c) { return it->second.characters.count(c) != 0; });
    if (touched) {
      const auto font = it->first;
      const Deferred later = std::move(it->second);
      it = deferred_.erase(it);
      StyleDeferredText(font, later);
    } else {
      ++it;
    }
  }
}

void WriterEditor::StyleDeferredTextIn(const std::pair<std::u16string, std::u16string>& font) {
  const auto pending = deferred_.find(font);
  if (pending == deferred_.end()) return;
  // `font` may be the key being erased.
  const auto key = pending->first;
  const Deferred later = std::move(pending->second);
  deferred_.erase(pending);
  StyleDeferredText(key, later);
}

void WriterEditor::StyleAllDeferredText() {
  // Entries leave the list before the attempt, so that a failure is not repeated at every call.
  while (!deferred_.empty()) StyleDeferredTextIn(deferred_.begin()->first);
}

void WriterEditor::StyleDeferredText(const std::pair<std::u16string, std::u16string>& font, const Deferred& pending) {
  if (pending.characters.empty()) return;
  FontSearch search;
  search.regularExpression = true;
  search.fontProperty = font.first;
  search.fontName = font.second;
  search.text = u"[";
  for (char16_t c : pending.characters) search.text += RegexLiteral(c);
  search.text += u"]+";
  splitFonts_.insert(font);
  // An empty replacement with replacement attributes makes Writer change the formatting only.
  ReplaceAllInFont(document_, search, u"", pending.replacementFont);
  // That replace-all splits runs as it goes and so misses some text, like any restricted one.
  FontSearch anyFont = search;
  anyFont.fontName.clear();
  const Reference<css::container::XIndexAccess> found = FindAllInFont(document_, anyFont);
  const rtl::OUString property = ToOUString(font.first);
  const rtl::OUString fontName = ToOUString(font.second);
  const rtl::OUString newFont = ToOUString(pending.replacementFont);
  for (sal_Int32 i = 0, count = found.is() ? found->getCount() : 0; i < count; ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    if (range.is()) SetFontWhere(range, property, fontName, newFont);
  }
}

void WriterEditor::ReplaceMissedOccurrences(const FontSearch& search, const std::u16string& replacement) {
  // Text in the replacement font is never found again by a search in the find font, so a
  // second look for the pair cannot replace text that this pair inserted.
  if (search.fontName.empty() || replacementFont_.empty() || replacementFont_ == search.fontName) return;
  FontSearch anyFont = search;
  anyFont.fontName.clear();
  const Reference<css::container::XIndexAccess> found = FindAllInFont(document_, anyFont);
  const rtl::OUString property = ToOUString(search.fontProperty);
  const rtl::OUString fontName = ToOUString(search.fontName);
  const rtl::OUString newText = ToOUString(replacement);
  const rtl::OUString newFont = ToOUString(replacementFont_);
  for (sal_Int32 i = 0, count = found.is() ? found->getCount() : 0; i < count; ++i) {
    const Reference<css::text::XTextRange> range(found->getByIndex(i), UNO_QUERY);
    const Reference<css::beans::XPropertySet> properties(range, UNO_QUERY);
    if (!range.is() || !properties.is()) continue;
    rtl::OUString font;
    // A range over several fonts has no single value and is not in the find font.
    if (!(properties->getPropertyValue(property) >>= font) || font != fontName) continue;
    range->setString(newText);
    SetRangeFont(range, newFont);
  }
}

void WriterEditor::SetScreenUpdating(bool on) {
  if (on) {
    FinishRun();
  } else {
    BeginRun();
  }
}

void WriterEditor::ClearUndo() {
  FinishRun();
  try {
    if (const Reference<css::document::XUndoManager> undo = UndoManagerOf(document_); undo.is()) undo->clear();
  } catch (const css::uno::Exception& e) {
    Fail(DetailsOf(e, kSource));
  }
}

bool WriterEditor::FinishRun() noexcept {
  if (!running_) return true;
  running_ = false;
  bool ok = true;
  // Each step is tried on its own, so that one failure does not leave the others' traces.
  const auto step = [&](auto&& action) {
    try {
      action();
    } catch (const css::uno::Exception& e) {
      Fail(DetailsOf(e, kSource));
      ok = false;
    } catch (...) {
      ok = false;
    }
  };
  step([&] { StyleAllDeferredText(); });
  step([&] { CarryFormattingAcrossScripts(document_, givenFonts_); });
  givenFonts_.clear();
  census_.clear();
  splitFonts_.clear();
  insertedCharacters_.clear();
  preparedFonts_.clear();
  step([&] { leftovers_.ReportLeftovers(document_); });
  step([&] { tagger_.RestoreAll(document_); });
  step([&] { markers_.Remove(document_); });
  step([&] {
    const Reference<css::document::XUndoManager> undo = UndoManagerOf(document_);
    if (undoContextOpen_ && undo.is()) undo->leaveUndoContext();
    if (undoLocked_ && undo.is()) undo->unlock();
    undoContextOpen_ = undoLocked_ = false;
  });
  step([&] {
    if (controllersLocked_) document_->unlockControllers();
    controllersLocked_ = false;
  });
  return ok;
}

}  // namespace quilom::converter::libreoffice
