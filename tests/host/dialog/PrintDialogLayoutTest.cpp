#include "host/dialog/PrintDialogLayout.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// English ones, about.
PrintDialogMeasures SmallTexts() {
  return {.captions = 60, .pages_caption = 50, .pages_hint = 150, .buttons = 70};
}

PrintDialogMeasures LongTexts() {
  return {.captions = 140,
          .pages_caption = 90,
          .pages_hint = 260,
          .buttons = 150,
          .notices = [](double) { return 70; },
          .printer_info = [](double) { return 2 * kLineHeight; }};
}

// All but the notices, the progress and the lines, which have a place even where they are hidden.
std::vector<LayoutRect> Controls(const PrintDialogFrames &frames) {
  return {frames.printer_caption, frames.printers,       frames.printer_info,
          frames.preset_caption,  frames.presets,        frames.copies_caption,
          frames.copies,          frames.copies_stepper, frames.pages_caption,
          frames.pages,           frames.pages_hint,     frames.panels,
          frames.panel_area,      frames.help,           frames.progress_text,
          frames.cancel,          frames.print};
}

bool Overlap(const LayoutRect &one, const LayoutRect &other) {
  return one.x < other.right() && other.x < one.right() && one.y < other.bottom() &&
         other.y < one.bottom();
}

void ExpectNoOverlap(const std::vector<LayoutRect> &frames, LayoutSize size) {
  for (size_t at = 0; at < frames.size(); ++at) {
    const LayoutRect &frame = frames[at];
    EXPECT_GE(frame.x, 0) << at;
    EXPECT_GE(frame.y, 0) << at;
    EXPECT_GT(frame.width, 0) << at;
    EXPECT_GT(frame.height, 0) << at;
    EXPECT_LE(frame.right(), size.width) << at;
    EXPECT_LE(frame.bottom(), size.height) << at;
    for (size_t other = at + 1; other < frames.size(); ++other) {
      EXPECT_FALSE(Overlap(frame, frames[other])) << at << " and " << other;
    }
  }
}

}  // namespace

TEST(PrintDialogLayout, CutsNothingInTheSmallestSize) {
  for (const PrintDialogMeasures &measures : {SmallTexts(), LongTexts()}) {
    const PrintDialogLayout layout(measures);
    const PrintDialogFrames frames = layout.FramesIn(layout.MinSize());
    std::vector<LayoutRect> controls = Controls(frames);
    if (measures.notices) controls.push_back(frames.notices);
    ExpectNoOverlap(controls, layout.MinSize());
    EXPECT_GE(frames.pages_hint.width, measures.pages_hint);
    EXPECT_GE(frames.cancel.width, measures.buttons);
    EXPECT_EQ(frames.cancel.width, frames.print.width);
  }
}

TEST(PrintDialogLayout, HasNoMoreThanTheUsualWidthWhereTextsAreShort) {
  EXPECT_EQ(560, PrintDialogLayout(SmallTexts()).MinSize().width);
  EXPECT_LT(560, PrintDialogLayout(LongTexts()).MinSize().width);
}

TEST(PrintDialogLayout, ShowsAllOfAPanelInItsSize) {
  for (const PrintDialogMeasures &measures : {SmallTexts(), LongTexts()}) {
    const PrintDialogLayout layout(measures);
    for (const LayoutSize panel : {LayoutSize{520, 216}, {300, 400}, {900, 40}}) {
      const LayoutSize size = layout.SizeForPanel(panel);
      const LayoutRect area = layout.FramesIn(size).panel_area;
      EXPECT_GE(area.width, panel.width);
      EXPECT_GE(area.height, panel.height);
      EXPECT_EQ(size, Union(size, layout.MinSize()));
    }
  }
}

TEST(PrintDialogLayout, GivesWhatASizeIsLargerByToThePanelAndTheChoosers) {
  const PrintDialogLayout layout(SmallTexts());
  const LayoutSize size = layout.MinSize();
  const PrintDialogFrames small = layout.FramesIn(size);
  const PrintDialogFrames large = layout.FramesIn({size.width + 100, size.height + 50});
  EXPECT_EQ(small.panel_area.width + 100, large.panel_area.width);
  EXPECT_EQ(small.panel_area.height + 50, large.panel_area.height);
  EXPECT_EQ(small.printers.width + 100, large.printers.width);
  EXPECT_EQ(small.presets.width + 100, large.presets.width);
  EXPECT_EQ(small.copies, large.copies);
  EXPECT_EQ(small.print.x + 100, large.print.x);
  EXPECT_EQ(small.print.y + 50, large.print.y);
}

TEST(PrintDialogLayout, GivesThePanelNothingWhereThereIsNoRoomForIt) {
  EXPECT_EQ(0, PrintDialogLayout(SmallTexts()).FramesIn({560, 200}).panel_area.height);
}

TEST(PrintDialogLayout, PutsNoticesAboveEverythingElse) {
  PrintDialogMeasures measures = SmallTexts();
  const LayoutSize without = PrintDialogLayout(measures).MinSize();
  EXPECT_EQ(LayoutRect(), PrintDialogLayout(measures).FramesIn(without).notices);
  double asked = 0;
  measures.notices = [&asked](double width) {
    asked = width;
    return 40;
  };
  const PrintDialogLayout layout(measures);
  const PrintDialogFrames frames = layout.FramesIn({700, 600});
  EXPECT_EQ(frames.notices.width, asked) << "how the text wraps";
  EXPECT_LE(40, frames.notices.height);
  EXPECT_LT(frames.notices.bottom(), frames.printers.y);
  EXPECT_EQ(without.height + frames.printers.y - frames.notices.y, layout.MinSize().height);
}

TEST(PrintDialogLayout, GivesThePrinterOneLineToThree) {
  PrintDialogMeasures measures = SmallTexts();
  for (const auto &[needed, given] :
       {std::pair(0.0, kLineHeight), {30.0, 30.0}, {500.0, 3 * kLineHeight}}) {
    measures.printer_info = [needed = needed](double) { return needed; };
    const PrintDialogFrames frames = PrintDialogLayout(measures).FramesIn({560, 600});
    EXPECT_EQ(given, frames.printer_info.height);
    EXPECT_LT(frames.printer_info.bottom(), frames.presets.y);
  }
}

TEST(PrintDialogLayout, PutsTheBarBelowItsText) {
  PrintDialogMeasures measures = SmallTexts();
  measures.has_progress_bar = true;
  const PrintDialogFrames frames = PrintDialogLayout(measures).FramesIn({560, 480});
  EXPECT_LE(frames.progress_text.bottom(), frames.progress.y + 2) << "letters do not reach so low";
  EXPECT_LT(frames.lower_line.y, frames.progress_text.y);
  EXPECT_LE(frames.progress.bottom(), frames.print.bottom());
  EXPECT_LT(frames.help.right(), frames.progress.x);
  EXPECT_LT(frames.progress.right(), frames.cancel.x);
}

namespace {

PrintDialogMeasures WithPreview() {
  PrintDialogMeasures measures = SmallTexts();
  measures.fold = 110;
  measures.panel = 520;
  measures.has_preview = true;
  return measures;
}

}  // namespace

TEST(PrintDialogLayout, PutsThePreviewBesideAllButTheButtons) {
  const PrintDialogLayout layout(WithPreview());
  const LayoutSize size = layout.SizeForPanel({520, 216});
  const PrintDialogFrames frames = layout.FramesIn(size);
  std::vector<LayoutRect> controls = Controls(frames);
  controls.push_back(frames.fold);
  controls.push_back(frames.preview);
  ExpectNoOverlap(controls, size);
  EXPECT_EQ(frames.preview.x, frames.panel_area.right());
  EXPECT_LE(frames.right_line.right(), frames.preview.x);
  EXPECT_GT(size.width, PrintDialogLayout(SmallTexts()).SizeForPanel({520, 216}).width + 200);
}

TEST(PrintDialogLayout, GivesThePreviewWhatTheWindowIsLarger) {
  const PrintDialogLayout layout(WithPreview());
  const LayoutSize size = layout.MinSize();
  const PrintDialogFrames small = layout.FramesIn(size);
  const PrintDialogFrames large = layout.FramesIn({size.width + 300, size.height + 100});
  EXPECT_EQ(large.preview.width, small.preview.width + 300);
  EXPECT_EQ(large.preview.height, small.preview.height + 100);
  EXPECT_EQ(large.panel_area.width, small.panel_area.width);
}

TEST(PrintDialogLayout, KeepsARowForTheButtonOfThePreview) {
  PrintDialogMeasures measures = LongTexts();
  measures.fold = 260;
  const PrintDialogLayout layout(measures);
  const PrintDialogFrames frames = layout.FramesIn(layout.MinSize());
  EXPECT_LE(frames.help.right(), frames.fold.x);
  EXPECT_LT(frames.fold.right(), frames.progress_text.x);
  EXPECT_GT(frames.progress_text.width, 60);
}
