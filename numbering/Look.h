// How numbers look: what each choice means, and what all of them have in common. Whoever draws
// takes it from here: the printer's PostScript is made from it, and PDF pages are drawn by it.

#ifndef NUMBERING_LOOK_H
#define NUMBERING_LOOK_H

#include <array>
#include <string_view>
#include <vector>

namespace numbering {

struct NamedValue {
  std::string_view keyword;
  double value;
};

// How large, 1 being the largest.
inline constexpr NamedValue kSizes[] = {{"Small", .36}, {"Medium", .64}, {"Large", 1}};

// How much ink. Black text must stay legible on black at the greatest.
inline constexpr NamedValue kDensities[] = {{"Light", .18}, {"Medium", .32}, {"Dark", .5}};

struct Ink {
  std::string_view keyword;
  std::array<double, 3> rgb;
  double strength;  // how strong it must be to look as dense as black does

  bool IsGray() const { return rgb[0] == rgb[1] && rgb[1] == rgb[2]; }
};

inline constexpr Ink kInks[] = {{"Black", {0, 0, 0}, 1},   {"Red", {1, 0, 0}, 1.1},
                                {"Green", {0, 1, 0}, 1.3}, {"Blue", {0, 0, 1}, .9},
                                {"Cyan", {0, 1, 1}, 1.4},  {"Magenta", {1, 0, 1}, 1.1},
                                {"Yellow", {1, 1, 0}, 1.9}};

enum class Placement {
  Behind,    // the page is painted over the number
  Over,      // the number lies on the page, in stripes with gaps that let the page through
  Automatic  // behind where the page lets it show, over where the page would hide it
};

struct NamedPlacement {
  std::string_view keyword;
  Placement placement;
};

inline constexpr NamedPlacement kPlacements[] = {
    {"Behind", Placement::Behind}, {"Over", Placement::Over}, {"Automatic", Placement::Automatic}};

// The largest share of the paper's width and height that a number takes, and the share of its short
// side that is the largest font size.
inline constexpr double kLargestExtent = .9;
inline constexpr double kLargestFontSize = .7;

// Stripes rise to the right by 45 degrees. Where one follows the next, in points along the paper's
// edge, and how much of that is ink; the ink is stronger, since it covers less.
inline constexpr double kStripePeriod = 3;
inline constexpr double kStripeShare = .3;
inline constexpr double kStripeStrength = 1.4;

// The components of the ink as it is painted: one for gray, or red, green and blue; 0 is full
// color, as in PostScript and PDF.
std::vector<double> PaintOf(const Ink &ink, double density, bool over);

}  // namespace numbering

#endif
