// The helper of pdeprint that draws pages of PDF files. It is a program of its own since documents
// may be anything.
//
//   pdeprint-picture fit FILE PAGE WIDTH HEIGHT OUT   as large as fits into so many pixels; a PPM file
//   pdeprint-picture at FILE PAGE DPI OUT             so many pixels to an inch; a PNG file
//
// The page is counted from 1.

#include <poppler-document.h>
#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

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

int Run(const std::string &way, const std::string &path, int number, char **more, int count) {
  const bool fits = way == "fit" && count == 3;
  if (!fits && !(way == "at" && count == 2)) return kWrongArguments;
  poppler::set_debug_error_function(IgnoreMessage, nullptr);
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(path));
  if (!document) return kDamaged;
  if (document->is_locked()) return kNeedsPassword;
  if (number < 1 || number > document->pages()) return kWrongArguments;
  const std::unique_ptr<poppler::page> page(document->create_page(number - 1));
  if (!page) return kDamaged;
  const Size size = SizeOf(*page);
  double dpi = std::atof(more[0]);
  if (fits) dpi = std::min(dpi / size.width, std::atof(more[1]) / size.height);
  if (!(dpi > 0)) return kWrongArguments;
  if (size.width * dpi * size.height * dpi > kMostPixels) return kTooLarge;
  const poppler::image image = Draw(*page, dpi);
  if (!image.is_valid()) return kDamaged;
  const std::string out = more[count - 1];
  const bool saved =
      fits ? image.save(out, "pnm") : image.save(out, "png", static_cast<int>(std::lround(dpi)));
  return saved ? kPdfDone : kDamaged;
}

}  // namespace

int main(int argc, char **argv) {
  constexpr int kFixed = 4;
  if (argc <= kFixed) return kWrongArguments;
  LimitMemory();
  // The libraries' own ends take as long as the picture.
  std::_Exit(Run(argv[1], argv[2], std::atoi(argv[3]), argv + kFixed, argc - kFixed));
}
