#import "tests/preview/SeenPages.h"

#include <gmock/gmock.h>

#import "tests/support/BuiltBundle.h"
#include "tests/support/RawPdf.h"

namespace {

bool IsWhite(Color color) { return color == kWhitePaper; }

Picture PictureOf(NSBitmapImageRep *bitmap) {
  std::string ppm = "P6\n" + std::to_string([bitmap pixelsWide]) + ' ' +
                    std::to_string([bitmap pixelsHigh]) + "\n255\n";
  for (NSInteger y = 0; y < [bitmap pixelsHigh]; ++y) {
    for (NSInteger x = 0; x < [bitmap pixelsWide]; ++x) {
      NSUInteger samples[5] = {};
      [bitmap getPixel:samples atX:x y:y];
      for (int at = 0; at < 3; ++at) ppm += static_cast<char>(samples[at]);
    }
  }
  return Picture(ppm);
}

// The part that is white, but for what is drawn there.
std::optional<Picture> PaperOf(const Picture &all) {
  const std::optional<Box> paper = all.BoundsOf(IsWhite);
  if (!paper) return std::nullopt;
  const int left = static_cast<int>(paper->left * all.width() + 0.5);
  const int right = static_cast<int>(paper->right * all.width() + 0.5);
  const int top = static_cast<int>(paper->top * all.height() + 0.5);
  const int bottom = static_cast<int>(paper->bottom * all.height() + 0.5);
  std::string ppm =
      "P6\n" + std::to_string(right - left) + ' ' + std::to_string(bottom - top) + "\n255\n";
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const Color color = all.at(x, y);
      for (const int sample : {color.red, color.green, color.blue}) {
        ppm += static_cast<char>(sample);
      }
    }
  }
  return Picture(ppm);
}

}  // namespace

bool IsRed(Color color) { return color.red > color.green + 40; }

std::string HeadedPages(int count) {
  std::vector<RawPage> pages;
  for (int page = 1; page <= count; ++page) {
    pages.push_back({"BT /F 60 Tf 100 600 Td (Page " + std::to_string(page) + ") Tj ET"});
  }
  return RawPdf(pages);
}

SeenPages::SeenPages(DialogOptions options, const std::string &document)
    : screen_(With(std::move(options), document)) {
  for (NSView *view in [screen_.view() subviews]) {
    if ([view isKindOfClass:[PreviewView class]]) preview_ = (PreviewView *)view;
  }
  screen_.AwaitReady();
}

DialogOptions SeenPages::With(DialogOptions options, const std::string &document) const {
  options.document = folder_.Write("document", document.empty() ? HeadedPages(3) : document);
  return options;
}

std::optional<Picture> SeenPages::Page() const {
  PreviewCanvas *canvas = [preview_ canvas];
  if (![canvas hasPicture]) return std::nullopt;
  return PaperOf(PictureOf([NSBitmapImageRep imageRepWithData:PictureOfView(canvas)]));
}

// It is asked again and again.
double SeenPages::Red() const {
  @autoreleasepool {
    const std::optional<Picture> page = Page();
    return page ? page->ShareOf(IsRed) : 0;
  }
}

void SeenPages::AwaitRed(const std::function<bool(double)> &enough) {
  HandleEventsUntil([&] { return enough(Red()); });
  EXPECT_TRUE(enough(Red())) << Red();
}

id SeenPages::outlet(NSString *name) {
  return Outlet(screen_.session().panels().front()->panel(), name);
}

void SeenPages::SwitchOnInRed() {
  [screen_.dialog().window() makeFirstResponder:outlet(@"functionValid")];
  PressKeys({"space"});
  screen_.Choose(outlet(@"popUpColor"), @"Red");
  AwaitRed([](double red) { return red > 0.01; });
}
