#include "numbering/pdf/DigitFonts.h"

#include <cmath>
#include <string>
#include <vector>

#include "numbering/Literal.h"
#include "numbering/Look.h"
#include "numbering/Outline.h"
#include "numbering/Stripes.h"

namespace numbering {

namespace {

constexpr double kGlyphUnits = 1000;  // of the font size, as is usual in PDF
constexpr const char *kGlyphNames[] = {"/zero", "/one", "/two",   "/three", "/four",
                                       "/five", "/six", "/seven", "/eight", "/nine"};

double Scale() { return kGlyphUnits / kUnitsPerEm; }

void AppendPoint(std::string &text, Point point) {
  AppendLiteral(text, point.x * Scale(), 1);
  AppendLiteral(text, point.y * Scale(), 1);
}

// Width and bounds: the ink is that of the page.
std::string GlyphHead(char digit) {
  const Bounds box = BoundsOf({&digit, 1}, 0);
  std::string head = Literal(DigitOf(digit).advance * Scale(), 1) + " 0 ";
  for (const double edge :
       {std::floor(box.left * kGlyphUnits), std::floor(box.bottom * kGlyphUnits),
        std::ceil(box.right * kGlyphUnits), std::ceil(box.top * kGlyphUnits)}) {
    AppendLiteral(head, edge, 0);
  }
  return head + "d1\n";
}

std::string FullGlyph(char digit) {
  std::string glyph = GlyphHead(digit);
  Point last;
  for (const Segment &segment : DigitOf(digit).outline) {
    const Point end = segment.end();
    if (segment.kind == Segment::Curve) {  // PDF has cubic ones
      const Point control = segment.control();
      AppendPoint(glyph, {(last.x + 2 * control.x) / 3, (last.y + 2 * control.y) / 3});
      AppendPoint(glyph, {(end.x + 2 * control.x) / 3, (end.y + 2 * control.y) / 3});
    } else if (segment.kind == Segment::Move && last.x + last.y != 0) {
      glyph += "h\n";
    }
    AppendPoint(glyph, end);
    glyph += segment.kind == Segment::Move ? "m\n" : segment.kind == Segment::Line ? "l\n" : "c\n";
    last = end;
  }
  return glyph + "h f\n";
}

std::string StripedGlyph(char digit, double direction, double distance, double width) {
  std::string glyph = GlyphHead(digit);
  glyph += Literal(width * Scale()) + " w 0 J\n";
  for (const auto &[begin, end] : StripesOf(DigitOf(digit), direction, distance)) {
    AppendPoint(glyph, begin);
    glyph += "m ";
    AppendPoint(glyph, end);
    glyph += "l\n";
  }
  return glyph + "S\n";
}

// Differences that nobody sees.
long Rounded(double angle) { return std::lround(angle * 500); }
long RoundedLogarithm(double size) { return std::lround(std::log(size) * 50); }

}  // namespace

QPDFObjectHandle DigitFonts::MakeFont(const QPDFObjectHandle &procedures) {
  std::string differences, widths;
  for (int digit = 0; digit < 10; ++digit) {
    differences += kGlyphNames[digit];
    AppendLiteral(widths, kDigits[digit].advance * Scale(), 1);
  }
  QPDFObjectHandle font = QPDFObjectHandle::parse(
      "<< /Type /Font /Subtype /Type3 /FontBBox [0 0 0 0] /FontMatrix [.001 0 0 .001 0 0]"
      " /FirstChar 48 /LastChar 57 /Resources << >> /Widths [" +
      widths + "] /Encoding << /Type /Encoding /Differences [48 " + differences + "] >> >>");
  font.replaceKey("/CharProcs", procedures);
  return pdf_.makeIndirectObject(font);
}

QPDFObjectHandle DigitFonts::Full() {
  if (!full_) {
    QPDFObjectHandle procedures = QPDFObjectHandle::newDictionary();
    for (int digit = 0; digit < 10; ++digit) {
      procedures.replaceKey(
          kGlyphNames[digit],
          QPDFObjectHandle::newStream(&pdf_, FullGlyph(static_cast<char>('0' + digit))));
    }
    full_ = MakeFont(procedures);
  }
  return *full_;
}

DigitFonts::StripedFont &DigitFonts::StripedFontOf(const Place &place, double unit) {
  const auto [found, is_new] =
      striped_.try_emplace({Rounded(place.angle), RoundedLogarithm(place.font_size * unit)});
  StripedFont &striped = found->second;
  if (is_new) {
    const double ems = kUnitsPerEm / (place.font_size * unit);  // of a point
    striped.direction = std::atan2(1, 1) - place.angle;
    striped.distance = kStripePeriod / std::sqrt(2) * ems;
    striped.width = striped.distance * kStripeShare;
    striped.procedures = pdf_.makeIndirectObject(QPDFObjectHandle::newDictionary());
    striped.font = MakeFont(striped.procedures);
  }
  return striped;
}

QPDFObjectHandle DigitFonts::Striped(const Place &place, double unit, std::string_view digits) {
  StripedFont &striped = StripedFontOf(place, unit);
  for (const char digit : digits) {
    const char *name = kGlyphNames[digit - '0'];
    if (striped.procedures.hasKey(name)) continue;
    striped.procedures.replaceKey(
        name, QPDFObjectHandle::newStream(
                  &pdf_, StripedGlyph(digit, striped.direction, striped.distance, striped.width)));
  }
  return striped.font;
}

}  // namespace numbering
