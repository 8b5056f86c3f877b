// What can be told from a picture of a view.

#ifndef TESTS_GUI_PIXELS_H
#define TESTS_GUI_PIXELS_H

#import <Cocoa/Cocoa.h>

#include <cstdint>
#include <vector>

// Red, green and blue, one byte each.
using Pixel = std::uint32_t;

struct Pixels {
  long width = 0;
  long height = 0;
  std::vector<Pixel> pixels;  // row after row from the top
};

// A part of the view, of its bounds, as its window shows it; what has changed is drawn only when
// events are handled.
Pixels PixelsOfView(NSView *view, NSRect part);
Pixels PixelsOfView(NSView *view);

// From 1, the same lightness, to 21, black on white, as the Web Content Accessibility Guidelines
// define it.
double Contrast(Pixel one, Pixel other);

// Of the pixels that stand out most from the color that most of the others have: of a text against
// its background.
double ContrastOfText(const Pixels &picture);

// How many pixels differ by at least this contrast; the pictures have one size.
long CountDiffering(const Pixels &one, const Pixels &other, double contrast);

#endif
