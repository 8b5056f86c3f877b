// A job with a manager of its tickets.

#ifndef TESTS_TICKETS_MANAGERJOB_H
#define TESTS_TICKETS_MANAGERJOB_H

#import "tests/tickets/TicketTest.h"

using Manager = velmoraBNPrintTicketManagerRV2;

// Setting info with short keys and prefixes, and defaults that differ from each other.
inline NSMutableDictionary *Info() {
  NSMutableDictionary *info = ShippedSettingInfo();
  NSDictionary *keys =
      @{@"Valid" : @"V", @"Size" : @"S", @"Density" : @"D", @"Color" : @"C", @"StartNumber" : @"N"};
  NSDictionary *defaults = @{
    @"Valid" : @"Off",
    @"Size" : @"Large",
    @"Density" : @"Dark",
    @"Color" : @"Red",
    @"StartNumber" : @"5"
  };
  [[info objectForKey:@"TicketKey"] addEntriesFromDictionary:keys];
  [[info objectForKey:@"DefaultValue"] addEntriesFromDictionary:defaults];
  return info;
}

struct ManagerJob : Job {
  explicit ManagerJob(const std::string &ppd_lines = kColorDevice, id setting_info = Info())
      : Job(ppd_lines, setting_info,
            "\"Color_Red\" = \"Rouge\"; \"Size_Small\" = \"Petite\"; \"Size_Large\" = "
            "\"Grande\";") {}
};

inline NSDictionary *DefaultSettings() {
  return @{@"V" : @"Off", @"S" : @"Large", @"D" : @"Dark", @"C" : @"Red", @"N" : @"5"};
}

inline Manager *Make(velmoraBNCommonInfoRV2 *info) {
  return [[[Manager alloc] initWithCommonInfo:info] autorelease];
}

inline Manager *Made(const Job &job) {
  Manager *manager = Make(job.info());
  interposed::Clear();
  return manager;
}

#endif
