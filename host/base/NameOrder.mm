#include "host/base/NameOrder.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Retained.h"

namespace {

Retained<NSString *> String(std::string_view text) {
  return Retained<NSString *>::Adopt([[NSString alloc] initWithBytes:text.data()
                                                              length:text.size()
                                                            encoding:NSUTF8StringEncoding]);
}

NSLocale *LocaleOfTexts() {
  std::string language = Localized("en");
  // The platform raises for zh-Hans.
  std::ranges::replace(language, '-', '_');
  NSString *identifier = [NSString stringWithUTF8String:language.c_str()];
  return [[[NSLocale alloc] initWithLocaleIdentifier:identifier] autorelease];
}

}  // namespace

bool NameComesBefore(std::string_view name, std::string_view other) {
  NSComparisonResult order = NSOrderedSame;
  @autoreleasepool {
    const Retained<NSString *> text = String(name);
    const Retained<NSString *> other_text = String(other);
    // Nil is the same as everything.
    if (text.get() != nil && other_text.get() != nil) {
      order = [text.get() compare:other_text.get()
                          options:NSNumericSearch
                            range:NSMakeRange(0, [text.get() length])
                           locale:LocaleOfTexts()];
    }
  }
  return order == NSOrderedSame ? name < other : order == NSOrderedAscending;
}
