#include <exception>

#include "filter/Envelope.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/NumberedPdf.h"

namespace fuzz {

namespace {

// Every page stays, whatever becomes of its number.
std::string Number(std::string_view document, bool over) {
  std::string numbered;
  size_t pages = 0;
  try {
    pages = numbering::PagesOfDocument(document);
    numbered = NumberedPdf(std::string(document), over, ChoicesWith(998));
  } catch (const std::exception &error) {
    return *error.what() == '\0' ? "a document is refused without a reason" : "";
  }
  try {
    const size_t left = numbering::PagesOfDocument(numbered);
    return left == pages ? "" : std::to_string(pages) + " pages become " + std::to_string(left);
  } catch (const std::exception &error) {
    return std::string("the numbered document is broken: ") + error.what();
  }
}

}  // namespace

std::string TryPdf(std::string_view file) {
  const Envelope envelope = EnvelopeOf(file);
  if (envelope.before.size() + envelope.document.size() + envelope.behind.size() !=
      (envelope.document.empty() ? 0 : file.size())) {
    return "bytes around the document are lost";
  }
  if (envelope.document.empty()) return "";
  for (const bool over : {false, true}) {
    const std::string finding = Number(envelope.document, over);
    if (!finding.empty()) return finding;
  }
  return "";
}

}  // namespace fuzz
