#include "converter/window/word_editor.hpp"

#include <utility>

#include "converter/conversion_table.hpp"

namespace quilom::converter::window {
namespace {

bool ReadInteger(AutomationObject& object, std::u16string_view member, std::int32_t& result, ErrorDetails& error) {
  AutomationValue value;
  if (!object.Get(member, value)) {
    error = object.LastError();
    return false;
  }
  if (!ToInteger(value, result)) {
    error = {0, u"Quilom++", u"Word's '" + std::u16string(member) + u"' is not a number"};
    return false;
  }
  return true;
}

}  // namespace

WordDocumentEditor::WordDocumentEditor(AutomationRef application) : application_(std::move(application)) {}

bool WordDocumentEditor::Fail(const ErrorDetails& error) {
  lastError_ = error;
  return false;
}

bool WordDocumentEditor::HasSelection() {
  ErrorDetails error;
  const AutomationRef selection = GetPath(*application_, {u"ActiveWindow", u"Selection"}, error);
  std::int32_t startAt = 0;
  std::int32_t endAt = 0;
  if (selection != nullptr && ReadInteger(*selection, u"Start", startAt, error) &&
      ReadInteger(*selection, u"End", endAt, error)) {
    return endAt > startAt;
  }
  // Without a readable selection the whole document is the only safe answer: the run then
  // converts everything, which is what the user gets when nothing is selected.
  ReportError(kWordEditorTag, error);
  return false;
}

void WordDocumentEditor::SetScope(EditScope scope) { scope_ = scope; }

AutomationRef WordDocumentEditor::ScopeFind() {
  ErrorDetails error;
  const AutomationRef find = scope_ == EditScope::Selection
                                 ? GetPath(*application_, {u"ActiveWindow", u"Selection", u"Find"}, error)
                                 : GetPath(*application_, {u"ActiveDocument", u"Content", u"Find"}, error);
  if (find == nullptr) {
    Fail(error);
  }
  return find;
}

bool WordDocumentEditor::SetFontName(AutomationObject& formatHolder, std::u16string_view fontName) {
  ErrorDetails error;
  const AutomationRef font = GetObject(formatHolder, u"Font", error);
  if (font == nullptr) {
    return Fail(error);
  }
  if (!font->Put(u"Name", std::u16string(fontName))) {
    return Fail(font->LastError());
  }
  return true;
}

// Leaves `find` and its replacement with no formatting but the fonts of this pair.
bool WordDocumentEditor::PrepareFind(AutomationObject& find) {
  AutomationValue ignored;
  if (!find.Call(u"ClearFormatting", {}, ignored)) {
    return Fail(find.LastError());
  }
  ErrorDetails error;
  const AutomationRef replacement = GetObject(find, u"Replacement", error);
  if (replacement == nullptr) {
    return Fail(error);
  }
  if (!replacement->Call(u"ClearFormatting", {}, ignored)) {
    return Fail(replacement->LastError());
  }
  if (!findFont_.empty() && !SetFontName(find, findFont_)) {
    return false;
  }
  return replacementFont_.empty() || SetFontName(*replacement, replacementFont_);
}

bool WordDocumentEditor::ReplaceAll(std::u16string_view findText, std::u16string_view replacement) {
  if (findText.empty()) {
    return true;
  }
  const AutomationRef find = ScopeFind();
  if (find == nullptr || !PrepareFind(*find)) {
    return false;
  }
  const bool withFormat = !findFont_.empty() || !replacementFont_.empty();
  const std::vector<NamedArgument> arguments{
      {u"FindText", EscapeCaretsForWord(findText)},
      {u"MatchCase", true},
      {u"MatchWholeWord", false},
      {u"MatchWildcards", false},
      {u"MatchSoundsLike", false},
      {u"MatchAllWordForms", false},
      {u"Forward", true},
      {u"Wrap", kWdFindStop},
      {u"Format", withFormat},
      {u"ReplaceWith", EscapeCaretsForWord(replacement)},
      {u"Replace", kWdReplaceAll},
  };
  AutomationValue found;
  if (!find->Call(u"Execute", arguments, found)) {
    return Fail(find->LastError());
  }
  return true;
}

void WordDocumentEditor::SetScreenUpdating(bool on) {
  if (!application_->Put(u"ScreenUpdating", on)) {
    ReportError(kWordEditorTag, application_->LastError());
  }
}

void WordDocumentEditor::ClearUndo() {
  ErrorDetails error;
  const AutomationRef document = GetObject(*application_, u"ActiveDocument", error);
  AutomationValue ignored;
  if (document == nullptr) {
    ReportError(kWordEditorTag, error);
  } else if (!document->Call(u"UndoClear", {}, ignored)) {
    ReportError(kWordEditorTag, document->LastError());
  }
}

}  // namespace quilom::converter::window
