// The numbers that the printer draws and those in PDF pages, beside each other.

#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/NumberedPdf.h"
#include "tests/support/RawPdf.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct Look {
  const char *size, *density, *color;
  int number;
  bool landscape;
  const char *placement;
};

std::ostream &operator<<(std::ostream &stream, const Look &look) {
  return stream << look.size << ' ' << look.density << ' ' << look.color << ' ' << look.number
                << (look.landscape ? " landscape " : " portrait ") << look.placement;
}

std::vector<Look> Looks() {
  std::vector<Look> looks;
  for (const char *size : {"Small", "Medium", "Large"}) {
    for (const int number : {5, 83, 358, 2068}) {
      for (const bool landscape : {false, true}) {
        looks.push_back({size, "Medium", "Black", number, landscape, "Behind"});
        looks.push_back({size, "Medium", "Black", number, landscape, "Over"});
      }
    }
  }
  for (const char *density : {"Light", "Medium", "Dark"}) {
    for (const char *color : {"Black", "Red", "Green", "Blue", "Cyan", "Magenta", "Yellow"}) {
      looks.push_back({"Medium", density, color, 58, false, "Behind"});
      looks.push_back({"Medium", density, color, 58, false, "Over"});
    }
  }
  return looks;
}

// What each option of the built PPD file does.
class Code {
 public:
  Code() : ppd_(ppdOpenFile(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd")) {}
  ~Code() { ppdClose(ppd_); }
  std::string Of(const char *option, const char *choice) const {
    ppd_option_t *found = ppdFindOption(ppd_, option);
    ppd_choice_t *chosen = found == nullptr ? nullptr : ppdFindChoice(found, choice);
    EXPECT_NE(chosen, nullptr) << option << choice;
    return chosen == nullptr ? "" : chosen->code + std::string("\n");
  }

 private:
  ppd_file_t *ppd_;
};

std::string PostScript(const std::vector<Look> &looks) {
  const Code code;
  std::string job = "%!PS\n";
  for (const Look &look : looks) {
    job += code.Of("VQBackgroundNumbering", "Off");
    job += look.landscape ? "<</PageSize[842 595]>>setpagedevice\n"
                          : "<</PageSize[595 842]>>setpagedevice\n";
    job += code.Of("VQBNSize", look.size) + code.Of("VQBNDensity", look.density) +
           code.Of("VQBNColor", look.color) + code.Of("VQBNPlacement", look.placement) +
           "userdict /VelmoraStart " + std::to_string(look.number) + " put\n" +
           code.Of("VQBackgroundNumbering", "On") + "showpage\n";
  }
  return job;
}

std::string Pdf(const Look &look) {
  numbering::Choices choices = ChoicesWith(look.number);
  Choose(choices, "VQBNSize", look.size);
  Choose(choices, "VQBNDensity", look.density);
  Choose(choices, "VQBNColor", look.color);
  const char *box = look.landscape ? "/MediaBox [0 0 842 595]" : "/MediaBox [0 0 595 842]";
  return NumberedPdf(RawPdf({{"", box}}), look.placement == std::string("Over"), choices);
}

// Of squares of this many pixels, how dark each is: stripes need not lie at the same places.
std::vector<double> Darkness(const Picture &picture, int square) {
  std::vector<double> darkness;
  for (int y = 0; y + square <= picture.height(); y += square) {
    for (int x = 0; x + square <= picture.width(); x += square) {
      double sum = 0;
      for (int dy = 0; dy < square; ++dy) {
        for (int dx = 0; dx < square; ++dx) {
          const Color color = picture.at(x + dx, y + dy);
          sum += 765 - color.red - color.green - color.blue;
        }
      }
      darkness.push_back(sum / square / square);
    }
  }
  return darkness;
}

// How much of the ink lies elsewhere, from 0 to 1.
double Difference(const Picture &one, const Picture &other, int square) {
  const std::vector<double> left = Darkness(one, square), right = Darkness(other, square);
  double all = 0, different = 0;
  for (size_t at = 0; at < left.size(); ++at) {
    all += left[at] + right[at];
    different += std::abs(left[at] - right[at]);
  }
  return all == 0 ? 1 : different / all;
}

bool IsInk(Color color) { return color != kWhitePaper; }

}  // namespace

TEST(SameAsPostScript, PixelsOfEveryLook) {
  const std::vector<Look> looks = Looks();
  std::vector<std::string> files;
  for (const Look &look : looks) files.push_back(Pdf(look));
  const std::vector<Picture> pdf = PicturesOf(files, 72),
                             printed = PicturesOf({PostScript(looks)}, 72);
  ASSERT_EQ(pdf.size(), looks.size());
  ASSERT_EQ(printed.size(), looks.size());
  for (size_t at = 0; at < looks.size(); ++at) {
    SCOPED_TRACE(testing::Message() << looks[at]);
    EXPECT_EQ(pdf[at].MainColor(), printed[at].MainColor());
    // The fonts differ a little.
    EXPECT_LT(Difference(pdf[at], printed[at], 6), .1);
    const auto one = pdf[at].BoundsOf(IsInk), other = printed[at].BoundsOf(IsInk);
    ASSERT_TRUE(one && other);
    for (const double difference : {one->left - other->left, one->top - other->top,
                                    one->right - other->right, one->bottom - other->bottom}) {
      EXPECT_NEAR(difference, 0, .02);
    }
  }
}
