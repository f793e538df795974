#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <com/sun/star/frame/XModel.hpp>

#include "converter/libreoffice/office_connection.hpp"

// One headless office for the whole test program, and documents built and read back run by run.
namespace quilom::testing::lo {

// The office started by main() for this program (null when it could not start).
converter::libreoffice::OfficeConnection* Office();

struct Run {
  std::u16string text;
  std::u16string font;
  bool bold = false;
  bool italic = false;
};
using Paragraph = std::vector<Run>;

// A new, hidden Writer document holding `paragraphs`, each run with its font (western, Asian
// and complex alike) and weight and posture set directly.
com::sun::star::uno::Reference<com::sun::star::frame::XModel> NewDocument(const std::vector<Paragraph>& paragraphs);

// Builds the document and stores it as `file` (format by extension), then closes it.
void WriteDocument(const std::filesystem::path& file, const std::vector<Paragraph>& paragraphs);

// The body paragraphs as the document holds them: adjacent portions with equal font, weight and
// posture are merged; `font` is the complex-script font for runs holding Tamil letters and
// the western font otherwise (the font that shows the text).
std::vector<Paragraph> ReadParagraphs(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);
std::vector<Paragraph> ReadDocument(const std::filesystem::path& file);

// The text of a paragraph, runs joined.
std::u16string TextOf(const Paragraph& paragraph);

// Selects body paragraph `index` (0-based) whole in the document's view.
void SelectParagraph(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document, int index);

}  // namespace quilom::testing::lo
