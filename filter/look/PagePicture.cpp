#include "filter/look/PagePicture.h"

#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <algorithm>
#include <cmath>

#include "numbering/Layout.h"
#include "numbering/Stripes.h"

namespace {

// In pixels.
constexpr double kShortSide = 150;
constexpr double kLongestSide = 2000;
// Of each digit. Lines of text leave more than that.
constexpr double kLeastVisible = .65;

// A color that pages rarely have. Red and blue are alike, in whatever order they come.
constexpr int kRed = 254, kGreen = 1;
constexpr poppler::argb kPaper = 0xfffe01fe;

class Picture {
 public:
  explicit Picture(const poppler::page &page) {
    poppler::page_renderer renderer;
    renderer.set_paper_color(kPaper);
    renderer.set_image_format(poppler::image::format_rgb24);
    // A pixel is more than a letter: how much of it is ink counts.
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    const poppler::rectf box = page.page_rect();
    const double width = std::max(1., box.width()), height = std::max(1., box.height());
    const double scale =
        std::min(kShortSide / std::min(width, height), kLongestSide / std::max(width, height));
    image_ = renderer.render_page(&page, 72 * scale, 72 * scale);
  }

  bool IsThere() const { return image_.is_valid() && width() > 0 && height() > 0; }
  int width() const { return image_.width(); }
  int height() const { return image_.height(); }
  // How much of the pixel is paper, from 0 to 1: as little ink as makes this color of the paper's.
  double Paper(int x, int y) const {
    const auto *pixel = reinterpret_cast<const unsigned char *>(image_.const_data()) +
                        static_cast<ptrdiff_t>(y) * image_.bytes_per_row() + 3 * x;
    const int ink = std::max({kRed - pixel[0], pixel[1] - kGreen, kRed - pixel[2], 0});
    const bool is_other = pixel[0] > kRed || pixel[1] < kGreen || pixel[2] > kRed;
    return is_other ? 0 : 1 - static_cast<double>(ink) / kRed;
  }

 private:
  poppler::image image_;
};

// The digit's pixels, row by row.
double VisibleShare(const Picture &picture, const numbering::Digit &digit, double pen,
                    const numbering::Place &place) {
  const double scale = place.font_size / numbering::kUnitsPerEm;
  const double cosine = scale * std::cos(place.angle), sine = scale * std::sin(place.angle);
  double all = 0, paper = 0;
  for (const auto &[begin, end] : numbering::StripesOf(digit, -place.angle, 1 / scale)) {
    const double height = place.y + (begin.x + pen) * sine + begin.y * cosine;
    const int y = picture.height() - 1 - static_cast<int>(std::floor(height));
    if (y < 0 || y >= picture.height()) continue;
    const double from = place.x + (begin.x + pen) * cosine - begin.y * sine;
    const double to = place.x + (end.x + pen) * cosine - end.y * sine;
    const int last = std::min(picture.width() - 1, static_cast<int>(std::max(from, to)));
    for (int x = std::max(0, static_cast<int>(std::min(from, to))); x <= last; ++x) {
      ++all;
      paper += picture.Paper(x, y);
    }
  }
  return all == 0 ? 0 : paper / all;
}

}  // namespace

bool HidesNumber(const poppler::page &page, const std::string &digits, double size) {
  const Picture picture(page);
  if (!picture.IsThere()) return true;
  const numbering::Place place =
      numbering::PlaceOf(digits, picture.width(), picture.height(), size);
  double pen = 0;
  for (const char character : digits) {
    const numbering::Digit &digit = numbering::DigitOf(character);
    if (VisibleShare(picture, digit, pen, place) < kLeastVisible) return true;
    pen += digit.advance;
  }
  return false;
}
