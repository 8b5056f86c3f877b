// Prints what was measured beside the goals.
//   bench_table FILE...

#include <cmath>
#include <cstdio>
#include <iostream>
#include <string>

#include "bench/results/Samples.h"

namespace {

enum class Unit { kTime, kTimePerCharacter, kMemory };

struct Row {
  const char *measure;
  const char *ours;
  const char *platform;
  const char *text;
  Unit unit;
  double goal;  // the largest ratio; 0: none
};

constexpr Row kRows[] = {
    {"panel-view", "ours", "platform", "first panelView / its layout loaded for an empty owner",
     Unit::kTime, 1.10},
    {"refusal", "ours", "platform", "a printer refused / its attribute and a string compared",
     Unit::kTime, 1.5},
    {"edit", "ours", "platform", "one edit of the start number / two setStringValue:", Unit::kTime,
     2.0},
    {"digits", "ours", "platform", "digit filter, each character / the same calls by hand",
     Unit::kTimePerCharacter, 0},
    {"digits-linear", "long", "short", "digit filter, each of 10^6 characters / each of 10^5",
     Unit::kTimePerCharacter, 1.25},
    {"restore", "ours", "platform", "restoring all five settings / the same calls by hand",
     Unit::kTime, 0},
    {"save", "ours", "platform", "saving them / the same calls by hand", Unit::kTime, 0},
    {"summary", "ours", "platform", "the summary / the same calls by hand", Unit::kTime, 0},
    {"window", "pdeprint", "gtk3", "pdeprint show, to its panel / GTK 3, to the queue's options",
     Unit::kTime, 0.35},
    {"window", "pdeprint", "qt5-first", "pdeprint show, to its panel / Qt 5, to the first painting",
     Unit::kTime, 1.0},
    {"window", "pdeprint", "bare", "pdeprint show, to its panel / the layout in a bare window",
     Unit::kTime, 1.3},
    {"memory", "pdeprint", "gtk4", "peak memory of pdeprint show / of GTK 4's print dialog",
     Unit::kMemory, 0.5},
    {"check", "ours", "platform", "pdeprint check, generic PPD files / opened by libcups alone",
     Unit::kTime, 1.2},
    {"print", "ours", "platform", "pdeprint print / lp, the same job", Unit::kTime, 1.5},
    {"numbers", "behind", "copy", "the filter, numbers behind 5,000 pages / copied by qpdf",
     Unit::kTime, 1.4},
    {"numbers", "over", "copy", "the filter, numbers over 5,000 pages / copied by qpdf",
     Unit::kTime, 1.5},
    {"numbers-memory", "behind", "copy", "its peak memory, numbers behind / copied by qpdf",
     Unit::kMemory, 1.3},
    {"underlay", "behind", "qpdf", "the filter, behind / qpdf --underlay with ready numbers",
     Unit::kTime, 0.3},
    {"underlay", "behind", "pdftk", "the filter, behind / pdftk multibackground, ready numbers",
     Unit::kTime, 0.2},
    {"linear", "most", "many", "the filter, each of 50,000 pages / each of 5,000", Unit::kTime,
     1.25},
    {"off", "filter", "cat", "the filter, switched off, 512 MiB / cat", Unit::kTime, 1.5},
    {"automatic", "filter", "gstoraster", "the filter, Automatic / gstoraster at 300 dpi",
     Unit::kTime, 0.15},
    {"one-page", "filter", "cat", "the filter, one page / cat", Unit::kTime, 0},
    {"preview", "behind", "pdftoppm", "preview of a changed setting, page 1 of 1,000 / pdftoppm",
     Unit::kTime, 1.5},
    {"preview", "automatic", "pdftoppm", "the same, placement Automatic / pdftoppm", Unit::kTime,
     0},
    {"panel-view", "menus-filled", "platform",
     "none of ours: the layout with its menus filled / alone", Unit::kTime, 0},
    {"window", "bare-quick", "qt5-first", "none of ours: the quickest bare window / Qt 5, as above",
     Unit::kTime, 0},
    {"print", "bundle-loaded", "platform", "none of ours: a program that loads the bundle / lp",
     Unit::kTime, 0},
    {"print", "ours", "bundle-loaded", "pdeprint print / a program that loads the bundle",
     Unit::kTime, 0},
};

std::string WithDigits(double value, const char *unit) {
  char text[40];
  const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : 2;
  snprintf(text, sizeof text, "%.*f %s", decimals, value, unit);
  return text;
}

std::string TimeText(double seconds) {
  constexpr std::pair<double, const char *> kUnits[] = {{1, "s"}, {1e-3, "ms"}, {1e-6, "us"}};
  for (const auto &[size, name] : kUnits) {
    if (seconds >= size) return WithDigits(seconds / size, name);
  }
  return WithDigits(seconds / 1e-9, "ns");
}

std::string ValueText(double value, Unit unit) {
  return unit == Unit::kMemory ? WithDigits(value / (1 << 20), "MiB") : TimeText(value);
}

}  // namespace

int main(int argc, char **argv) {
  Measures measures;
  for (int i = 1; i < argc; ++i) ReadMeasures(argv[i], measures);
  printf("| %-61s | %-9s | %-9s | %-5s | %-7s | %-3s |\n", "measure", "ours", "platform", "ratio",
         "goal", "met");
  printf("|%s|----------:|----------:|------:|---------|-----|\n", std::string(63, '-').c_str());
  for (const Row &row : kRows) {
    const Samples &ours = measures[row.measure][row.ours];
    const Samples &platform = measures[row.measure][row.platform];
    if (ours.empty() || ours.size() != platform.size()) {
      std::cerr << "not measured: " << row.text << '\n';
      return 1;
    }
    // What is compared with the goal is what is shown.
    const double ratio = std::round(MedianRatio(ours, platform) * 100) / 100;
    printf("| %-61s | %9s | %9s | %5.2f | ", row.text, ValueText(Median(ours), row.unit).c_str(),
           ValueText(Median(platform), row.unit).c_str(), ratio);
    if (row.goal == 0) {
      printf("%-7s | %-3s |\n", "", "");
    } else {
      printf("<= %-4g | %-3s |\n", row.goal, ratio <= row.goal ? "yes" : "no");
    }
  }
  return 0;
}
