#import "bench/panel/Job.h"

#include <cstdlib>
#include <iostream>

ppd_file_t *NumberingPrinter() {
  static ppd_file_t *const ppd = ppdOpenFile(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd");
  if (ppd == nullptr) {
    std::cerr << "the built PPD file cannot be opened\n";
    std::exit(1);
  }
  return ppd;
}

TestHost *NewJob() {
  TestHost *job = [TestHost hostWithPPD:NumberingPrinter()];
  NSDictionary *chosen = @{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Large",
    @"VQBNDensity" : @"Dark",
    @"VQBNColor" : @"Blue",
    @"VQStartNumber" : @"25",
  };
  for (NSString *key in chosen) [job setValue:[chosen objectForKey:key] forSetting:key];
  return job;
}

velmoraBNViewControllerRV2 *ControllerOf(id<PDEPanel> panel) {
  return [(id)panel valueForKey:@"viewController"];
}
