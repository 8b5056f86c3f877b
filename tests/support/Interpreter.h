// PostScript jobs, carried out by Ghostscript as by a printer.

#ifndef TESTS_SUPPORT_INTERPRETER_H
#define TESTS_SUPPORT_INTERPRETER_H

#include <compare>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct Color {
  int red = 0, green = 0, blue = 0;  // 0 to 255
  auto operator<=>(const Color &) const = default;
};
inline constexpr Color kBlackInk = {0, 0, 0};
inline constexpr Color kWhitePaper = {255, 255, 255};

// How much brighter the brighter of two colors is, from 1 to 21; from 4.5 on, text of the one is
// easily read on the other.
double Contrast(Color one, Color other);

// A part of a page as fractions of its width and height, from the left and from the top.
struct Box {
  double left = 0, top = 0, right = 1, bottom = 1;
  double width() const { return right - left; }
  double height() const { return bottom - top; }
  double center_x() const { return (left + right) / 2; }
  double center_y() const { return (top + bottom) / 2; }
};

// Pixels as the printer puts them on paper, each of one color: edges are not smoothed.
class Picture {
 public:
  using Predicate = std::function<bool(Color)>;

  Picture() = default;
  // From a file in the binary form of the portable pixmap format. Another ends the test program.
  explicit Picture(const std::string &ppm);

  int width() const { return width_; }
  int height() const { return height_; }
  Color at(int x, int y) const { return pixels_[static_cast<size_t>(y) * width_ + x]; }
  bool operator==(const Picture &) const = default;

  // Where pixels are that satisfy the predicate.
  std::optional<Box> BoundsOf(const Predicate &predicate) const;
  // Which share of the pixels in the box satisfies the predicate, from 0 to 1.
  double ShareOf(const Predicate &predicate, const Box &box = {}) const;
  // The most frequent color but white and black; none where there is no other.
  std::optional<Color> MainColor() const;

 private:
  int width_ = 0, height_ = 0;
  std::vector<Color> pixels_;
};

// A text as it was drawn; characters beyond ASCII are XML character references.
struct DrawnText {
  std::string text;
  std::string font;
  double size = 0;  // in points
  // The line that it stands on, in points from the left and from the top.
  double begin_x = 0, begin_y = 0, end_x = 0, end_y = 0;
  bool operator==(const DrawnText &) const = default;
};

struct PrintedPage {
  double width = 0, height = 0;  // in points
  // From top to bottom. A page that was begun anew still has what was drawn before it was erased.
  std::vector<DrawnText> texts;
  // One for each sheet side that the printer makes of the page: copies of its own are alike.
  std::vector<Picture> pictures;

  const Picture &picture() const { return pictures.front(); }
  // All texts but the number, from top to bottom and from left to right, with nothing in between.
  std::string Words() const;
  bool Says(const std::string &words) const { return Words().find(words) != std::string::npos; }

  // The large text in Helvetica-Bold, an empty one where there is none. Several that differ are
  // joined with "+". Of several drawings of one text that nearest to the middle of the page counts:
  // the others are of pages of other sizes, which were erased.
  DrawnText Number() const;
  // How often one was drawn.
  int NumberDrawings() const;
};

struct Interpretation {
  std::vector<PrintedPage> pages;
  std::string complaint;  // the interpreter's, about errors in the PostScript; empty: none
};

// Carries out one PostScript job.
Interpretation Interpret(const std::string &postscript, int dots_per_inch = 36);

// What printers take as jobs of their own: the parts between the marks for the end of a job.
std::vector<std::string> JobsIn(std::string_view output);

// The pages of all the jobs in what a printer got. A complaint fails the test.
std::vector<PrintedPage> PagesOf(const std::string &output, int dots_per_inch = 36);

// The numbers of these pages, for comparison at one glance: "25 26 27"; "-" for a page without.
std::string NumbersOf(const std::vector<PrintedPage> &pages);

// A PDF file of what this PostScript draws.
std::string PdfOf(const std::string &postscript);

#endif
