// What was measured, kept in files between the programs that measure and the one that prints.

#ifndef BENCH_RESULTS_SAMPLES_H
#define BENCH_RESULTS_SAMPLES_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

// One value a round: rounds alternate between the sides, so that values of one round were taken
// under the same load.
using Samples = std::vector<double>;

// By the name of the measure and the side, such as "panel-view" and "ours". Seconds or bytes.
using Measures = std::map<std::string, std::map<std::string, Samples>>;

// Both end the program with a message where the file cannot be written or read.
void WriteMeasures(const Measures &measures, const std::filesystem::path &path);
// Adds what the file holds.
void ReadMeasures(const std::filesystem::path &path, Measures &measures);

// The middle one, or the mean of the two in the middle. There must be one at least.
double Median(Samples samples);

// Of the quotients of each round: what slows a whole round down slows both sides.
double MedianRatio(const Samples &over, const Samples &under);

#endif
