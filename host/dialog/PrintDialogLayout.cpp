#include "host/dialog/PrintDialogLayout.h"

#include <cmath>
#include <utility>

namespace {

constexpr double kMargin = 20;
constexpr double kGap = 8;
constexpr double kCaptionWidth = 76;  // this and what follows: or wider, as the texts need
constexpr double kNumberWidth = 56;
constexpr double kStepperWidth = 16;
constexpr double kStepperGap = 2;
constexpr double kPagesCaptionWidth = 64;
constexpr double kPagesWidth = 110;
constexpr double kPanelsWidth = 280;
constexpr double kButtonWidth = 96;
constexpr double kButtonHeight = 26;
constexpr double kButtonGap = 12;
constexpr double kSmallestArea = 96;
constexpr double kSmallestWidth = 560;
constexpr double kPreviewWidth = 320;  // with the margin behind it
constexpr double kProgressWidth = 90;
constexpr double kTallestInfo = 3 * kLineHeight;
constexpr double kRow = kControlHeight + kGap;
constexpr double kFooter = kMargin + kButtonHeight + 16;

// Its text stands on the line of the text in the control behind it.
LayoutRect CaptionAt(double x, double y, double width) { return {x, y + 4, width, kLineHeight}; }

}  // namespace

PrintDialogLayout::PrintDialogLayout(PrintDialogMeasures measures)
    : measures_(std::move(measures)) {
  measures_.captions = std::max(kCaptionWidth, measures_.captions);
  measures_.pages_caption = std::max(kPagesCaptionWidth, measures_.pages_caption);
  measures_.buttons = std::max(kButtonWidth, measures_.buttons);
}

double PrintDialogLayout::ControlsLeft() const { return kMargin + measures_.captions + kGap; }

// Of the row of copies and pages or that of the buttons, the longest ones.
double PrintDialogLayout::MinWidth() const {
  const double width = ControlsLeft() + kNumberWidth + kStepperGap + kStepperWidth + kGap +
                       measures_.pages_caption + kGap + kPagesWidth + kGap + measures_.pages_hint +
                       kMargin;
  const double buttons = kMargin + kButtonHeight + kGap + measures_.fold + kGap + kProgressWidth +
                         kGap + 2 * measures_.buttons + kButtonGap + kMargin;
  return std::max({kSmallestWidth, width, buttons});
}

double PrintDialogLayout::WidthBesidePreview(double width) const {
  if (!measures_.has_preview) return width;
  const double needed = std::max(MinWidth(), measures_.panel + 2 * kMargin);
  return std::max(MinWidth(), std::min(needed, width - kPreviewWidth));
}

LayoutSize PrintDialogLayout::SizeForPanel(LayoutSize panel) const {
  const double width = std::max(MinWidth(), panel.width + 2 * kMargin);
  PrintDialogFrames frames;
  PlaceHeader(width, frames);
  return {width + (measures_.has_preview ? kPreviewWidth : 0),
          frames.panel_area.y + std::max(panel.height, kSmallestArea) + kFooter};
}

LayoutSize PrintDialogLayout::MinSize() const { return SizeForPanel({0, kSmallestArea}); }

PrintDialogFrames PrintDialogLayout::FramesIn(LayoutSize size) const {
  PrintDialogFrames frames;
  const double width = WidthBesidePreview(size.width);
  PlaceHeader(width, frames);
  PlaceFooter(size, frames);
  if (measures_.has_preview) {
    frames.preview = {width, kMargin, std::max(0.0, size.width - width - kMargin),
                      std::max(0.0, frames.lower_line.y - kMargin - kGap)};
  }
  frames.panel_area.width = width;
  frames.panel_area.height = std::max(0.0, frames.lower_line.y - frames.panel_area.y);
  return frames;
}

// All above the panel area, and where that begins.
void PrintDialogLayout::PlaceHeader(double width, PrintDialogFrames &frames) const {
  const double right = width - kMargin;
  const double left = ControlsLeft();
  double y = kMargin;
  if (measures_.notices) {
    const double inner_width = right - kMargin;
    frames.notices = {kMargin, y, inner_width, measures_.notices(inner_width) + 6};
    y = frames.notices.bottom() + kGap;
  }

  frames.printer_caption = CaptionAt(kMargin, y, measures_.captions);
  frames.printers = {left, y, right - left, kControlHeight};
  const double info = measures_.printer_info ? measures_.printer_info(right - left) : 0;
  frames.printer_info = {left, frames.printers.bottom() + 4, right - left,
                         std::clamp(info, kLineHeight, kTallestInfo)};
  y += kRow + frames.printer_info.height + kGap;

  frames.preset_caption = CaptionAt(kMargin, y, measures_.captions);
  frames.presets = {left, y, right - left, kControlHeight};
  y += kRow;

  frames.copies_caption = CaptionAt(kMargin, y, measures_.captions);
  frames.copies = {left, y, kNumberWidth, kControlHeight};
  frames.copies_stepper = {frames.copies.right() + kStepperGap, y, kStepperWidth, kControlHeight};
  frames.pages_caption =
      CaptionAt(frames.copies_stepper.right() + kGap, y, measures_.pages_caption);
  frames.pages = {frames.pages_caption.right() + kGap, y, kPagesWidth, kControlHeight};
  const double hint = frames.pages.right() + kGap;
  frames.pages_hint = CaptionAt(hint, y, right - hint);
  y += kRow + kGap;

  const double panels_width = std::min(kPanelsWidth, right - kMargin);
  frames.panels = {std::floor((width - panels_width) / 2), y, panels_width, kControlHeight};
  const double middle = y + kControlHeight / 2;
  const double line = frames.panels.x - kGap;
  frames.left_line = {0, middle, line, 1};
  const double end = measures_.has_preview ? right : width;
  frames.right_line = {width - line, middle, end - (width - line), 1};
  frames.panel_area.y = y + kRow;
}

void PrintDialogLayout::PlaceFooter(LayoutSize size, PrintDialogFrames &frames) const {
  frames.lower_line = {0, size.height - kFooter, size.width, 1};
  const double y = size.height - kMargin - kButtonHeight;
  const double width = measures_.buttons;
  frames.print = {size.width - kMargin - width, y, width, kButtonHeight};
  frames.cancel = {frames.print.x - kButtonGap - width, y, width, kButtonHeight};
  frames.help = {kMargin, y, kButtonHeight, kButtonHeight};
  frames.fold = {frames.help.right() + kGap, y, measures_.fold, kButtonHeight};
  const double left = (measures_.fold > 0 ? frames.fold : frames.help).right() + kGap;
  const double room = frames.cancel.x - kGap - left;
  frames.progress_text = {left, y + (measures_.has_progress_bar ? -6 : 5), room, kLineHeight};
  frames.progress = {left, y + 14, room, 12};
}
