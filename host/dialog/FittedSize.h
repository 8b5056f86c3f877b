// The size of a window around something whose size changes.

#ifndef HOST_DIALOG_FITTEDSIZE_H
#define HOST_DIALOG_FITTEDSIZE_H

#include "host/dialog/LayoutGeometry.h"

class FittedSize {
 public:
  // With a size that nobody has chosen.
  explicit FittedSize(LayoutSize size) : fitted_(size) {}

  // The size that the window, which has one now, is to get: what is wanted, unless the user has
  // made it larger or the limit, the screen, is smaller.
  LayoutSize Next(LayoutSize wanted, LayoutSize now, LayoutSize limit);

 private:
  LayoutSize fitted_;  // the one answered last: any other one is the user's
  LayoutSize chosen_;  // by the user; empty: none
};

#endif
