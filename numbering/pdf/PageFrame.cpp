#include "numbering/pdf/PageFrame.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace numbering {

namespace {

using Rectangle = QPDFObjectHandle::Rectangle;

const Rectangle kLetter(0, 0, 612, 792);

bool IsEmpty(const Rectangle &box) {
  return !(box.urx - box.llx > 0 && box.ury - box.lly > 0 && std::isfinite(box.urx - box.llx) &&
           std::isfinite(box.ury - box.lly));
}

std::optional<Rectangle> BoxOf(QPDFPageObjectHelper &page, const char *name) {
  QPDFObjectHandle box = page.getAttribute(name, false);
  if (!box.isRectangle()) return {};
  const Rectangle rectangle = box.getArrayAsRectangle();
  return IsEmpty(rectangle) ? std::nullopt : std::optional(rectangle);
}

Rectangle Common(const Rectangle &one, const Rectangle &other) {
  return {std::max(one.llx, other.llx), std::max(one.lly, other.lly), std::min(one.urx, other.urx),
          std::min(one.ury, other.ury)};
}

// In quarters, clockwise.
int TurnOf(QPDFPageObjectHelper &page) {
  QPDFObjectHandle rotate = page.getAttribute("/Rotate", false);
  if (!rotate.isNumber()) return 0;
  const double turn = std::fmod(rotate.getNumericValue(), 360);
  return std::isfinite(turn) ? (static_cast<int>(turn < 0 ? turn + 360 : turn) / 90) % 4 : 0;
}

double UnitOf(QPDFPageObjectHelper &page) {
  QPDFObjectHandle unit = page.getObjectHandle().getKey("/UserUnit");
  const double points = unit.isNumber() ? unit.getNumericValue() : 1;
  return points > 0 && std::isfinite(points) ? points : 1;
}

}  // namespace

PageFrame FrameOf(QPDFPageObjectHelper &page) {
  Rectangle box = BoxOf(page, "/MediaBox").value_or(kLetter);
  if (const std::optional<Rectangle> crop = BoxOf(page, "/CropBox")) {
    const Rectangle common = Common(*crop, box);
    if (!IsEmpty(common)) box = common;
  }
  const double width = box.urx - box.llx, height = box.ury - box.lly;
  const double unit = UnitOf(page);
  switch (TurnOf(page)) {
    case 1:
      return {height, width, unit, {0, 1, -1, 0, box.urx, box.lly}};
    case 2:
      return {width, height, unit, {-1, 0, 0, -1, box.urx, box.ury}};
    case 3:
      return {height, width, unit, {0, -1, 1, 0, box.llx, box.ury}};
    default:
      return {width, height, unit, {1, 0, 0, 1, box.llx, box.lly}};
  }
}

}  // namespace numbering
