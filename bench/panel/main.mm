// Measures the panel's own work beside the platform's share of it.
//   panel_bench ROUNDS FILE [OPTION OF THE BENCHMARK LIBRARY...]

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "bench/programs/LeftBehind.h"
#include "bench/results/Samples.h"
#import "tests/support/TestProcess.h"

namespace {

// Benchmarks are named MEASURE/SIDE.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context &) override { return true; }

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred) {
        std::cerr << run.benchmark_name() << ": " << run.error_message << '\n';
        std::exit(1);
      }
      const std::string &name = run.run_name.function_name;
      const size_t slash = name.find('/');
      const auto characters = run.counters.find("characters");
      const double work = characters == run.counters.end() ? 1 : characters->second.value;
      // Manual time is kept as real time.
      const bool is_manual = run.run_name.time_type == "manual_time";
      const double time = is_manual ? run.real_accumulated_time : run.cpu_accumulated_time;
      measures_[name.substr(0, slash)][name.substr(slash + 1)].push_back(
          time / static_cast<double>(run.iterations) / work);
    }
  }

  const Measures &measures() const { return measures_; }

 private:
  Measures measures_;
};

}  // namespace

int main(int argc, char **argv) {
  SpeakEnglish(argv);
  benchmark::Initialize(&argc, argv);
  if (argc != 3) {
    std::cerr << "usage: panel_bench ROUNDS FILE\n";
    return 2;
  }
  const LeftBehind left_behind;
  StartApplication();
  // One after the other in each round, and the round again: the sides alternate.
  Collector collector;
  for (int round = std::atoi(argv[1]); round > 0; --round) {
    benchmark::RunSpecifiedBenchmarks(&collector);
  }
  WriteMeasures(collector.measures(), argv[2]);
  return 0;
}
