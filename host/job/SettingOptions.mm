#include "host/job/SettingOptions.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/job/SettingValues.h"

namespace {

// None: it cannot be sent, since half of a surrogate pair has no UTF-8, or since it would end at a
// zero character, and be another one. One that is too long for the protocol is an option all the
// same: sending it fails, and so the job, instead of being printed without it.
std::optional<std::string> OptionText(NSString *text) {
  NSData *data = [text dataUsingEncoding:NSUTF8StringEncoding];
  if (data == nil) return std::nullopt;
  const std::string bytes(static_cast<const char *>([data bytes]), [data length]);
  return bytes.find('\0') == std::string::npos ? std::optional(bytes) : std::nullopt;
}

std::optional<std::string> OptionValue(id value) {
  if ([value isKindOfClass:[NSNumber class]]) value = [value stringValue];
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  return OptionText(value);
}

bool IsOptionName(std::string_view name) {
  static constexpr std::string_view kMarks = " =\"'{}\\";
  return !name.empty() && std::ranges::none_of(name, [](unsigned char character) {
    return character < ' ' || character == 0x7f ||
           kMarks.find(static_cast<char>(character)) != std::string_view::npos;
  });
}

// One with a name and a value that can be sent.
std::optional<std::pair<std::string, std::string>> Option(NSString *name, id value) {
  std::optional<std::string> key = OptionText(name);
  std::optional<std::string> text = OptionValue(value);
  if (!key || !IsOptionName(*key) || !text) return std::nullopt;
  return std::pair(*std::move(key), *std::move(text));
}

}  // namespace

Expected<JobOptions> JobOptionsFromSettings(PMPrintSettings settings) {
  Expected<Retained<NSDictionary *>> values = ValuesOf(settings);
  if (!values) return values.failure();
  JobOptions options;
  for (NSString *name in values->get()) {
    if (auto option = Option(name, [values->get() objectForKey:name])) {
      options.insert(*std::move(option));
    }
  }
  return options;
}

std::vector<std::string> TextsThatAreNoOptions(NSDictionary *values) {
  std::vector<std::string> names;
  for (NSString *name in values) {
    id value = [values objectForKey:name];
    const bool is_text =
        [value isKindOfClass:[NSString class]] || [value isKindOfClass:[NSNumber class]];
    if (!is_text || Option(name, value)) continue;
    NSData *data = [name dataUsingEncoding:NSUTF8StringEncoding];
    names.emplace_back(static_cast<const char *>([data bytes]), [data length]);
  }
  std::ranges::sort(names);
  return names;
}

Expected<std::optional<std::string>> JobOptionFromSettings(PMPrintSettings settings,
                                                           const std::string &name) {
  Expected<Retained<id>> value = ValueOf(settings, [NSString stringWithUTF8String:name.c_str()]);
  if (!value) return value.failure();
  return OptionValue(value->get());
}
