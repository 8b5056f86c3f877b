// What a program takes of the machine.

#ifndef BENCH_FILTER_COST_H
#define BENCH_FILTER_COST_H

#include <string>
#include <vector>

struct Cost {
  double seconds;  // of a processor, with all programs that it started and waited for
  double memory;   // the most that one of them had, in bytes
};

// Runs the command to its end, with its output in this file; one that fails ends this program.
Cost CostOf(std::vector<std::string> command, const std::string &out);

#endif
