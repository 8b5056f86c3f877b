// Where the controls of the print dialog stand: rectangles for sizes, without the controls.

#ifndef HOST_DIALOG_PRINTDIALOGLAYOUT_H
#define HOST_DIALOG_PRINTDIALOGLAYOUT_H

#include <functional>

#include "host/dialog/LayoutGeometry.h"

// What the texts of the controls need in the user's language and font.
struct PrintDialogMeasures {
  // Widths on one line.
  double captions = 0;  // the widest one of printer, presets and copies
  double pages_caption = 0;
  double pages_hint = 0;
  double buttons = 0;  // the wider one
  // Heights of texts that wrap, for a width.
  std::function<double(double width)> notices = {};       // none: no notices are shown
  std::function<double(double width)> printer_info = {};  // none: no more than a line
  double fold = 0;  // of the button that shows the preview or puts it away; 0: there is none
  bool has_preview = false;
  double panel = 0;  // beside a preview, which gets what is left
  bool has_progress_bar = false;
};

// From top to bottom.
struct PrintDialogFrames {
  LayoutRect notices;  // empty where none are shown
  LayoutRect printer_caption, printers, printer_info;
  LayoutRect preset_caption, presets;
  LayoutRect copies_caption, copies, copies_stepper, pages_caption, pages, pages_hint;
  LayoutRect left_line, panels, right_line;
  LayoutRect panel_area;
  LayoutRect lower_line;
  LayoutRect help, fold, progress_text, progress, cancel, print;
  LayoutRect preview;  // beside all but these buttons; empty: there is none
};

class PrintDialogLayout {
 public:
  explicit PrintDialogLayout(PrintDialogMeasures measures);

  // The panel area takes what the others leave; in less than MinSize() they overlap.
  PrintDialogFrames FramesIn(LayoutSize size) const;

  // The size that shows all of a panel of this size.
  LayoutSize SizeForPanel(LayoutSize panel) const;
  // The smallest size in which nothing but the panel is cut.
  LayoutSize MinSize() const;

 private:
  void PlaceHeader(double width, PrintDialogFrames &frames) const;
  void PlaceFooter(LayoutSize size, PrintDialogFrames &frames) const;
  double ControlsLeft() const;
  double MinWidth() const;
  double WidthBesidePreview(double width) const;

  PrintDialogMeasures measures_;
};

#endif
