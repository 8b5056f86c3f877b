// The helper of pdeprint that draws a page of a PDF file. It is a program of its own since
// documents may be anything, and reads what to do from standard input, words with a zero byte
// behind each and one more behind the last, so that it can be ready before there is a page:
//
//   fit OUT FILE PAGE WIDTH HEIGHT   as large as fits into so many pixels
//   at OUT FILE PAGE DPI             so many pixels to an inch
//
// The page is counted from 1. OUT.png is a PNG file, anything else a PPM file.

#include <poppler-document.h>
#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/pages/ProgramStatus.h"

namespace {

constexpr double kPointsPerInch = 72;
// Of a picture. More than any screen has; a large sheet in the resolution of a printer has fewer.
constexpr double kMostPixels = 2e8;

// Pictures in a document may unpack to more than the machine has.
void LimitMemory() {
#if !__has_feature(address_sanitizer) && !__has_feature(thread_sanitizer)
  constexpr rlim_t kMemory = rlim_t{2} << 30;
  const rlimit limits = {kMemory, kMemory};
  setrlimit(RLIMIT_DATA, &limits);
#endif
}

void IgnoreMessage(const std::string &, void *) {}

struct Size {
  double width = 0, height = 0;
};

// As the page is read, in inches.
Size SizeOf(const poppler::page &page) {
  const poppler::rectf box = page.page_rect();
  Size size = {std::max(1., box.width()) / kPointsPerInch,
               std::max(1., box.height()) / kPointsPerInch};
  const poppler::page::orientation_enum orientation = page.orientation();
  if (orientation == poppler::page::landscape || orientation == poppler::page::seascape) {
    std::swap(size.width, size.height);
  }
  return size;
}

poppler::image Draw(const poppler::page &page, double dpi) {
  poppler::page_renderer renderer;
  renderer.set_image_format(poppler::image::format_rgb24);
  renderer.set_render_hint(poppler::page_renderer::antialiasing);
  renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
  return renderer.render_page(&page, dpi, dpi);
}

// Libraries and fonts are looked for when the first page is drawn that has text.
void DrawSomeText() {
  static constexpr char kText[] =
      "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
      "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
      "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]/Contents 4 0 R"
      "/Resources<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>>>endobj\n"
      "4 0 obj<</Length 20>>stream\nBT/F 9 Tf(1)Tj ET   \nendstream endobj\n"
      "trailer<</Root 1 0 R/Size 5>>\n";
  const std::unique_ptr<poppler::document> document(
      poppler::document::load_from_raw_data(kText, sizeof kText - 1));
  const std::unique_ptr<poppler::page> page(document ? document->create_page(0) : nullptr);
  if (page) Draw(*page, kPointsPerInch);
}

// Empty: whoever started this program has ended.
std::vector<std::string> Request() {
  std::vector<std::string> words;
  for (std::string word; std::getline(std::cin, word, '\0'); words.push_back(word)) {
    if (word.empty()) return words;
  }
  return {};
}

int Run(const std::vector<std::string> &arguments) {
  constexpr size_t kFixed = 4;
  const bool fits = arguments.size() == kFixed + 2 && arguments[0] == "fit";
  const bool is_at = arguments.size() == kFixed + 1 && arguments[0] == "at";
  if (!fits && !is_at) return kWrongArguments;
  const std::string &out = arguments[1], &path = arguments[2];
  const int number = std::atoi(arguments[3].c_str());
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(path));
  if (!document) return kDamaged;
  if (document->is_locked()) return kNeedsPassword;
  if (number < 1 || number > document->pages()) return kWrongArguments;
  const std::unique_ptr<poppler::page> page(document->create_page(number - 1));
  if (!page) return kDamaged;
  const Size size = SizeOf(*page);
  double dpi = std::atof(arguments[kFixed].c_str());
  if (fits) dpi = std::min(dpi / size.width, std::atof(arguments.back().c_str()) / size.height);
  if (!(dpi > 0)) return kWrongArguments;
  if (size.width * dpi * size.height * dpi > kMostPixels) return kTooLarge;
  const poppler::image image = Draw(*page, dpi);
  if (!image.is_valid()) return kDamaged;
  const char *format = out.ends_with(".png") ? "png" : "pnm";
  return image.save(out, format, static_cast<int>(std::lround(dpi))) ? kPdfDone : kDamaged;
}

}  // namespace

int main() {
  LimitMemory();
  poppler::set_debug_error_function(IgnoreMessage, nullptr);
  DrawSomeText();
  // The libraries' own ends take their time.
  std::_Exit(Run(Request()));
}
