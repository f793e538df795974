#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// What a word-processor file's first bytes say it is, read before the word processor is started:
// a file that is no document at all (a damaged download, text with the wrong name) is refused at
// once with a clear reason, where the word processor would try every import filter on it first.
//
// Any document form is accepted under any of the document extensions, since word processors open
// a file by what it holds and people save Word's RTF and HTML with ".doc": a zip package (.docx,
// .odt), a compound file (.doc), RTF, and XML or HTML (flat ODF, Word's HTML).
namespace quilom::converter {

enum class DocumentForm { NotADocument, Empty, ZipPackage, CompoundFile, Rtf, Markup };

DocumentForm DocumentFormOf(std::string_view firstBytes);

// "" when the file opens as a document form; otherwise why not, for the user.
std::string DocumentFileProblem(const std::filesystem::path& file);

}  // namespace quilom::converter
