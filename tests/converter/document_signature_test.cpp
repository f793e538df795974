#include "converter/document_signature.hpp"

#include <gtest/gtest.h>

#include "support/temp_folder.hpp"

namespace quilom::converter {
namespace {

TEST(DocumentSignature, EveryDocumentFormOpensUnderAnyDocumentName) {
  struct Case {
    std::string bytes;
    DocumentForm form;
  };
  const Case cases[] = {
      {"PK\x03\x04\x14\x00", DocumentForm::ZipPackage},
      {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\x00", DocumentForm::CompoundFile},
      {"{\\rtf1\\ansi", DocumentForm::Rtf},
      {"\xEF\xBB\xBF\r\n  <html>", DocumentForm::Markup},  // Word's HTML saved as .doc
      {"<?xml version", DocumentForm::Markup},             // flat OpenDocument
      {"", DocumentForm::Empty},
      {"PK\x05\x06", DocumentForm::NotADocument},  // an empty zip holds no document
      {"\x89PNG\r\n", DocumentForm::NotADocument},
      {"Dear Sir,", DocumentForm::NotADocument},
  };
  for (const Case& c : cases) EXPECT_EQ(DocumentFormOf(c.bytes), c.form) << c.bytes;
}

TEST(DocumentSignature, ProblemsAreToldInWordsAPersonReads) {
  testing::TempFolder folder;
  testing::WriteBytes(folder / "empty.docx", "");
  testing::WriteBytes(folder / "photo.docx", "\xFF\xD8\xFF\xE0 JFIF");
  testing::WriteBytes(folder / "letter.doc", "{\\rtf1 }");
  EXPECT_EQ(DocumentFileProblem(folder / "empty.docx"), "the file is empty");
  EXPECT_NE(DocumentFileProblem(folder / "photo.docx").find("not a word-processor document"), std::string::npos);
  EXPECT_EQ(DocumentFileProblem(folder / "letter.doc"), "");
  EXPECT_EQ(DocumentFileProblem(folder / "missing.odt"), "No such file or directory");
  EXPECT_EQ(DocumentFileProblem(folder.path()), "Is a directory");
}

}  // namespace
}  // namespace quilom::converter
