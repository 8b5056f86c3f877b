// Numbers on the pages of a document.

#ifndef NUMBERING_PDF_PAGENUMBERS_H
#define NUMBERING_PDF_PAGENUMBERS_H

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <string>

#include "numbering/Choices.h"
#include "numbering/pdf/DigitFonts.h"
#include "numbering/pdf/PageFrame.h"

namespace numbering {

class PageNumbers {
 public:
  PageNumbers(QPDF &pdf, const Choices &choices);

  // Throws what qpdf throws of broken pages.
  void Draw(QPDFPageObjectHelper page, size_t number, bool over);

 private:
  // What draws the number, once the page has the font under this name.
  std::string Instructions(const std::string &digits, const PageFrame &frame, const Place &place,
                           const std::string &font, bool over) const;

  QPDF &pdf_;
  const double size_;
  const std::string paint_, paint_over_;
  DigitFonts fonts_;
  QPDFObjectHandle save_;  // the instruction that all pages with a number over them begin with
};

}  // namespace numbering

#endif
