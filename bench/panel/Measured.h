// Registers one side of a measure: what the work takes of the processor, for which other programs
// do not count.

#ifndef BENCH_PANEL_MEASURED_H
#define BENCH_PANEL_MEASURED_H

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>

#import <Foundation/Foundation.h>

// Each iteration has an autorelease pool of its own, in the time of both sides.
template <typename Work>
void Measure(const std::string &name, Work work) {
  const auto work_once = [work] {
    @autoreleasepool {
      work();
    }
  };
  benchmark::RegisterBenchmark(name.c_str(), [work_once](benchmark::State &state) {
    work_once();  // what is made once
    for (auto _ : state) {
      (void)_;
      work_once();
    }
  })->MinTime(0.1);
}

inline double ProcessorSeconds() {
  timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// `prepare` and `clear` are not in the time.
template <typename Prepare, typename Work, typename Clear>
void MeasureAlone(const std::string &name, Prepare prepare, Work work, Clear clear) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State &state) {
                                 for (auto _ : state) {
                                   (void)_;
                                   @autoreleasepool {
                                     prepare();
                                     const double begin = ProcessorSeconds();
                                     @autoreleasepool {
                                       work();
                                     }
                                     state.SetIterationTime(ProcessorSeconds() - begin);
                                     clear();
                                   }
                                 }
                               })
      ->UseManualTime()
      ->MinTime(0.1);
}

#endif
