#include "numbering/pdf/NumberDocument.h"

#include <exception>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "numbering/pdf/PageNumbers.h"

namespace numbering {

namespace {

void Open(QPDF &pdf, std::string_view file) {
  pdf.setSuppressWarnings(true);
  pdf.processMemoryFile("the document", file.data(), file.size());
}

void Write(QPDF &pdf, std::FILE *out, const std::string &comments) {
  QPDFWriter writer(pdf, "the numbered document", out, false);
  writer.setExtraHeaderText(comments);
  writer.setPreserveEncryption(false);
  // What the document has packed goes on as it is.
  writer.setDecodeLevel(qpdf_dl_none);
  writer.setCompressStreams(false);
  // Ghostscript reads a digit and what follows as one word, across the end of the stream.
  writer.setNewlineBeforeEndstream(true);
  writer.setObjectStreamMode(qpdf_o_preserve);
  writer.write();
}

}  // namespace

DocumentNumbers NumberDocument(std::string_view file, std::FILE *out, const Choices &choices,
                               const IsOver &is_over, const std::string &comments) {
  QPDF pdf;
  Open(pdf, file);
  PageNumbers numbers(pdf, choices);
  DocumentNumbers result;
  for (const QPDFPageObjectHelper &page : QPDFPageDocumentHelper(pdf).getAllPages()) {
    const size_t at = result.pages++;
    try {
      numbers.Draw(page, choices.NumberOf(at), is_over(at));
    } catch (const std::exception &error) {
      result.failures.push_back("page " + std::to_string(at + 1) + ": " + error.what());
    }
  }
  Write(pdf, out, comments);
  return result;
}

size_t PagesOfDocument(std::string_view file) {
  QPDF pdf;
  Open(pdf, file);
  return QPDFPageDocumentHelper(pdf).getAllPages().size();
}

}  // namespace numbering
