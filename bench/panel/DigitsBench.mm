// The digit filter, on texts longer than anybody types.

#include <vector>

#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"

namespace {

// A digit now and then.
NSString *Text(size_t length) {
  constexpr char16_t kPattern[] = u"12 pages, from 345 on; 6 a sheet ";
  std::vector<unichar> characters(length);
  for (size_t i = 0; i < length; ++i) characters[i] = kPattern[i % (std::size(kPattern) - 1)];
  return [[NSString alloc] initWithCharacters:characters.data() length:length];
}

velmoraBNViewControllerRV2 *Controller() {
  static id<PDEPanel> const panel = [NewPanel(NewJob()) retain];
  return ControllerOf(panel);
}

void MeasureLength(size_t length) {
  const std::string measure = "digits-" + std::to_string(length);
  const auto count = [length](benchmark::State &state) {
    state.counters["characters"] = static_cast<double>(length);
  };
  benchmark::RegisterBenchmark((measure + "/ours").c_str(), [=](benchmark::State &state) {
    NSString *text = Text(length);
    velmoraBNViewControllerRV2 *controller = Controller();
    for (auto _ : state) {
      (void)_;
      @autoreleasepool {
        benchmark::DoNotOptimize([controller BNVCDigitString:text]);
      }
    }
    [text release];
    count(state);
  })->MinTime(0.1);
  // Of characters in memory into memory that is there.
  benchmark::RegisterBenchmark((measure + "/platform").c_str(), [=](benchmark::State &state) {
    NSString *text = Text(length);
    std::vector<unichar> characters(length);
    std::vector<unichar> digits(length);
    [text getCharacters:characters.data() range:NSMakeRange(0, length)];
    for (auto _ : state) {
      (void)_;
      size_t found = 0;
      for (const unichar character : characters) {
        if (character >= u'0' && character <= u'9') digits[found++] = character;
      }
      benchmark::DoNotOptimize(found);
      benchmark::ClobberMemory();
    }
    [text release];
    count(state);
  })->MinTime(0.1);
}

const bool registered = [] {
  for (const size_t length : {100'000, 400'000, 1'000'000, 10'000'000}) MeasureLength(length);
  return true;
}();

}  // namespace
