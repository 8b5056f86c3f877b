#include "printer/generator/PropertyList.h"

#import <Foundation/Foundation.h>

std::string DictionaryAsJSON(const std::filesystem::path &path) {
  @autoreleasepool {
    NSString *text = [NSString stringWithContentsOfFile:[NSString stringWithUTF8String:path.c_str()]
                                               encoding:NSUTF8StringEncoding
                                                  error:nullptr];
    id content = nil;
    @try {
      content = path.extension() == ".strings" ? [text propertyListFromStringsFileFormat]
                                               : [text propertyList];
    } @catch (NSException *) {
      // As the platform tells of damaged text.
    }
    if (![content isKindOfClass:[NSDictionary class]]) return {};
    NSData *json = [NSJSONSerialization dataWithJSONObject:content options:0 error:nullptr];
    return {static_cast<const char *>([json bytes]), [json length]};
  }
}
