// The digits as fonts of a document: embedded by nature, and found by those who search for text.

#ifndef NUMBERING_PDF_DIGITFONTS_H
#define NUMBERING_PDF_DIGITFONTS_H

#include <map>
#include <optional>
#include <qpdf/QPDF.hh>
#include <string_view>
#include <utility>

#include "numbering/Layout.h"

namespace numbering {

class DigitFonts {
 public:
  explicit DigitFonts(QPDF &pdf) : pdf_(pdf) {}

  // The one font of full digits.
  QPDFObjectHandle Full();
  // One whose digits are stripes when they are shown at this place, on a page with this unit. It
  // has these digits; places that look alike share one.
  QPDFObjectHandle Striped(const Place &place, double unit, std::string_view digits);

 private:
  struct StripedFont {
    QPDFObjectHandle font, procedures;
    double direction, distance;  // of the stripes, as StripesOf takes them
    double width;
  };

  QPDFObjectHandle MakeFont(const QPDFObjectHandle &procedures);
  StripedFont &StripedFontOf(const Place &place, double unit);

  QPDF &pdf_;
  std::optional<QPDFObjectHandle> full_;
  std::map<std::pair<long, long>, StripedFont> striped_;
};

}  // namespace numbering

#endif
