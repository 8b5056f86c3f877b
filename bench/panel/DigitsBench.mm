// The digit filter, on texts longer than anybody types: beside the same calls by hand, and beside
// itself on a shorter text.

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

NSString *FilteredByPanel(NSString *text) { return [Controller() BNVCDigitString:text]; }

NSString *FilteredByHand(NSString *text) {
  NSCharacterSet *set = [NSCharacterSet characterSetWithCharactersInString:@"0123456789"];
  NSMutableString *digits = [NSMutableString string];
  for (NSUInteger index = 0; index < [text length]; ++index) {
    @autoreleasepool {
      NSString *character = [text substringWithRange:NSMakeRange(index, 1)];
      NSScanner *scanner = [NSScanner localizedScannerWithString:character];
      [scanner setCharactersToBeSkipped:nil];
      [scanner scanCharactersFromSet:set intoString:nullptr];
      if ([scanner isAtEnd]) [digits appendString:character];
    }
  }
  return digits;
}

void Measure(const char *name, size_t length, NSString *(*filtered)(NSString *)) {
  benchmark::RegisterBenchmark(name, [=](benchmark::State &state) {
    NSString *text = Text(length);
    for (auto _ : state) {
      (void)_;
      @autoreleasepool {
        benchmark::DoNotOptimize(filtered(text));
      }
    }
    [text release];
    state.counters["characters"] = static_cast<double>(length);
  })->MinTime(0.1);
}

const bool registered = [] {
  Measure("digits/ours", 400'000, FilteredByPanel);
  Measure("digits/platform", 400'000, FilteredByHand);
  Measure("digits-linear/long", 1'000'000, FilteredByPanel);
  Measure("digits-linear/short", 100'000, FilteredByPanel);
  return true;
}();

}  // namespace
