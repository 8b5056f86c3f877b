#include "bench/results/Samples.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>

namespace {

[[noreturn]] void GiveUp(const std::filesystem::path &path, const char *what) {
  std::cerr << "cannot " << what << ' ' << path.string() << '\n';
  std::exit(1);
}

}  // namespace

void WriteMeasures(const Measures &measures, const std::filesystem::path &path) {
  std::ofstream file(path);
  file.precision(std::numeric_limits<double>::max_digits10);
  for (const auto &[measure, sides] : measures) {
    for (const auto &[side, samples] : sides) {
      for (const double sample : samples) file << measure << ' ' << side << ' ' << sample << '\n';
    }
  }
  if (!file.flush()) GiveUp(path, "write");
}

void ReadMeasures(const std::filesystem::path &path, Measures &measures) {
  std::ifstream file(path);
  std::string measure;
  std::string side;
  double sample = 0;
  while (file >> measure >> side >> sample) measures[measure][side].push_back(sample);
  if (!file.eof()) GiveUp(path, "read");
}

double Median(Samples samples) {
  std::ranges::sort(samples);
  const size_t middle = samples.size() / 2;
  if (samples.size() % 2 == 1) return samples[middle];
  return (samples[middle - 1] + samples[middle]) / 2;
}

double MedianRatio(const Samples &over, const Samples &under) {
  Samples ratios;
  std::ranges::transform(over, under, std::back_inserter(ratios),
                         [](double above, double below) { return above / below; });
  return Median(std::move(ratios));
}
