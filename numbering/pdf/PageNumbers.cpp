#include "numbering/pdf/PageNumbers.h"

#include <cmath>

#include "numbering/Literal.h"
#include "numbering/pdf/PageContent.h"

namespace numbering {

namespace {

// For filling and for drawing lines.
std::string Paint(const Choices &choices, bool over) {
  std::string components;
  for (const double component : PaintOf(choices.ink, choices.density, over)) {
    AppendLiteral(components, component);
  }
  return choices.ink.IsGray() ? components + "g " + components + "G\n"
                              : components + "rg " + components + "RG\n";
}

QPDFObjectHandle Part(QPDFObjectHandle &dictionary, const std::string &key) {
  QPDFObjectHandle part = dictionary.getKey(key);
  if (part.isDictionary()) return part;
  part = QPDFObjectHandle::newDictionary();
  dictionary.replaceKey(key, part);
  return part;
}

// The name that the page has for the font from now on. Pages may share their fonts' names, and have
// been numbered before.
std::string NameOf(const QPDFObjectHandle &font, QPDFPageObjectHelper &page) {
  QPDFObjectHandle resources = page.getAttribute("/Resources", false);
  if (!resources.isDictionary()) {
    QPDFObjectHandle page_object = page.getObjectHandle();
    resources = Part(page_object, "/Resources");
  }
  QPDFObjectHandle fonts = Part(resources, "/Font");
  for (int attempt = 0;; ++attempt) {
    const std::string name = "/BackgroundNumber" + (attempt == 0 ? "" : std::to_string(attempt));
    if (!fonts.hasKey(name)) {
      fonts.replaceKey(name, font);
      return name;
    }
    if (fonts.getKey(name).getObjGen() == font.getObjGen()) return name;
  }
}

}  // namespace

PageNumbers::PageNumbers(QPDF &pdf, const Choices &choices)
    : pdf_(pdf),
      size_(choices.size),
      paint_(Paint(choices, false)),
      paint_over_(Paint(choices, true)),
      fonts_(pdf) {}

std::string PageNumbers::Instructions(const std::string &digits, const PageFrame &frame,
                                      const Place &place, const std::string &font,
                                      bool over) const {
  const double along = place.font_size * std::cos(place.angle);
  const double up = place.font_size * std::sin(place.angle);
  // One word to those who search, though the digits may rise like stairs.
  std::string text = "q /Artifact BMC /Span << /ActualText (" + digits + ") >> BDC ";
  for (const double value : frame.matrix) AppendLiteral(text, value);
  text += "cm " + (over ? paint_over_ : paint_) + "BT " + font + " 1 Tf ";
  for (const double value : {along, up, -up, along, place.x, place.y}) AppendLiteral(text, value);
  return text + "Tm (" + digits + ") Tj ET EMC EMC Q\n";
}

void PageNumbers::Draw(QPDFPageObjectHelper page, size_t number, bool over) {
  const std::string digits = std::to_string(number);
  const PageFrame frame = FrameOf(page);
  const Place place = PlaceOf(digits, frame.width, frame.height, size_);
  PageContent content(pdf_, page);
  if (over) {
    if (!save_.isInitialized()) save_ = QPDFObjectHandle::newStream(&pdf_, "q\n");
    const std::string font = NameOf(fonts_.Striped(place, frame.unit, digits), page);
    if (content.PutAfter(Instructions(digits, frame, place, font, true), save_)) return;
  }
  const std::string font = NameOf(fonts_.Full(), page);
  content.PutBefore(Instructions(digits, frame, place, font, false));
}

}  // namespace numbering
