#import "tests/gui/Pixels.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

double LinearLight(unsigned byte) {
  const double value = byte / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Pixel pixel) {
  return 0.2126 * LinearLight(pixel >> 16 & 0xff) + 0.7152 * LinearLight(pixel >> 8 & 0xff) +
         0.0722 * LinearLight(pixel & 0xff);
}

Pixel MostFrequent(const std::vector<Pixel> &pixels) {
  std::map<Pixel, int> counts;
  for (const Pixel pixel : pixels) ++counts[pixel];
  return std::max_element(counts.begin(), counts.end(),
                          [](const auto &a, const auto &b) { return a.second < b.second; })
      ->first;
}

}  // namespace

Pixels PixelsOfView(NSView *view, NSRect part) {
  const NSRect bounds = [view bounds];
  [view lockFocus];
  NSBitmapImageRep *picture =
      [[[NSBitmapImageRep alloc] initWithFocusedViewRect:bounds] autorelease];
  [view unlockFocus];
  Pixels pixels;
  const long left = std::lround(NSMinX(part));
  const long top = std::lround([view isFlipped] ? NSMinY(part) : NSHeight(bounds) - NSMaxY(part));
  pixels.width = std::min(std::lround(NSWidth(part)), [picture pixelsWide] - left);
  pixels.height = std::min(std::lround(NSHeight(part)), [picture pixelsHigh] - top);
  for (long y = top; y < top + pixels.height; ++y) {
    for (long x = left; x < left + pixels.width; ++x) {
      NSUInteger samples[5] = {};
      [picture getPixel:samples atX:x y:y];
      pixels.pixels.push_back(static_cast<Pixel>(samples[0] << 16 | samples[1] << 8 | samples[2]));
    }
  }
  return pixels;
}

Pixels PixelsOfView(NSView *view) { return PixelsOfView(view, [view bounds]); }

double Contrast(Pixel one, Pixel other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

double ContrastOfText(const Pixels &picture) {
  const Pixel background = MostFrequent(picture.pixels);
  double contrast = 1;
  for (const Pixel pixel : picture.pixels) {
    contrast = std::max(contrast, Contrast(background, pixel));
  }
  return contrast;
}

long CountDiffering(const Pixels &one, const Pixels &other, double contrast) {
  long count = 0;
  for (size_t i = 0; i < one.pixels.size(); ++i) {
    if (Contrast(one.pixels[i], other.pixels.at(i)) >= contrast) ++count;
  }
  return count;
}
