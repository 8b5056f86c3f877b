#include <algorithm>

#include "host/job/SettingOptions.h"
#include "host/presets/Ticket.h"
#include "tests/fuzz/Outcome.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/TemporaryFolder.h"

namespace fuzz {

namespace {

NSDictionary *Values(PMPrintSettings settings) {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(settings, &values);
  return [(NSDictionary *)values autorelease];
}

int DepthOf(id value) {
  int depth = 0;
  if ([value isKindOfClass:[NSDictionary class]]) value = [value allValues];
  if (![value isKindOfClass:[NSArray class]]) return 0;
  for (id part in value) depth = std::max(depth, DepthOf(part));
  return depth + 1;
}

std::string Run(std::string_view file) {
  static const TemporaryFolder folder;
  const std::filesystem::path path = folder.Write("ticket.plist", file);
  Expected<PrintSettings> settings = ReadTicket(path);
  if (!settings) return settings.message().empty() ? "refused without a reason" : "";
  (void)JobOptionsFromSettings(settings->get());
  if (const int depth = DepthOf(Values(settings->get())); depth > 100) {
    return "it was read with a depth of " + std::to_string(depth);
  }

  const std::filesystem::path again = folder.path() / "again.plist";
  if (const auto written = WriteTicket(again, settings->get()); !written) {
    return "what was read cannot be written: " + written.message();
  }
  Expected<PrintSettings> reread = ReadTicket(again);
  if (!reread) return "what was written cannot be read: " + reread.message();
  NSDictionary *before = Values(settings->get());
  NSDictionary *after = Values(reread->get());
  if ([before isEqual:after]) return "";
  return std::string("what was read is ") + [[before description] UTF8String] +
         "; written and read again it is " + [[after description] UTF8String];
}

}  // namespace

std::string TryTicket(std::string_view file) {
  return Outcome([file] { return Run(file); });
}

}  // namespace fuzz
