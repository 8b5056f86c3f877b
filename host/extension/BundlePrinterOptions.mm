#include "host/extension/BundlePrinterOptions.h"

#include <algorithm>
#include <cctype>

#include "host/base/Localized.h"
#include "host/extension/Guarded.h"

namespace {

// The dictionary's text under this key; empty: none.
std::string TextIn(id dictionary, NSString *key) {
  if (![dictionary isKindOfClass:[NSDictionary class]]) return "";
  id text = [dictionary objectForKey:key];
  return [text isKindOfClass:[NSString class]] ? Words(text) : "";
}

// As marks in a PPD file can hold it.
bool IsIdentifier(const std::string &text) {
  return !text.empty() && text.size() <= 128 &&
         std::all_of(text.begin(), text.end(), [](unsigned char character) {
           return std::isalnum(character) != 0 || character == '.' || character == '-' ||
                  character == '_';
         });
}

// The lines of a resource, each ending with LF; empty: the dictionary names none.
Expected<std::string> Lines(NSBundle *bundle, NSDictionary *named, NSString *kind) {
  id name = [named objectForKey:kind];
  if (name == nil) return std::string();
  const std::string key = std::string("PDEPrinterOptions, ") + [kind UTF8String];
  if (![name isKindOfClass:[NSString class]]) {
    return Failure{Localized("%1 is no file name", {key})};
  }
  NSString *path = [bundle pathForResource:[name stringByDeletingPathExtension]
                                    ofType:[name pathExtension]];
  NSData *data = path == nil ? nil : [NSData dataWithContentsOfFile:path];
  if (data == nil) return Failure{Localized("it has no resource %1 (%2)", {Words(name), key})};
  std::string lines(static_cast<const char *>([data bytes]), [data length]);
  const bool is_text = std::all_of(lines.begin(), lines.end(), [](char character) {
    return character == '\n' || character == '\t' || (character >= ' ' && character <= '~');
  });
  if (!is_text || lines.empty()) {
    return Failure{Localized("its resource %1 is no text of ASCII characters", {Words(name)})};
  }
  if (!lines.ends_with('\n')) lines += '\n';
  return lines;
}

Expected<std::optional<PrinterOptions>> Read(const ExtensionBundle &extension) {
  NSBundle *bundle = extension.bundle();
  id named = [bundle objectForInfoDictionaryKey:@"PDEPrinterOptions"];
  if (named == nil) return std::optional<PrinterOptions>();
  if (![named isKindOfClass:[NSDictionary class]]) {
    return Failure{Localized("PDEPrinterOptions in its Info.plist is no dictionary")};
  }
  PrinterOptions options;
  options.name = extension.Name();
  options.bundle = Words([bundle bundleIdentifier]);
  if (!IsIdentifier(options.bundle)) {
    return Failure{
        Localized("its CFBundleIdentifier must be letters, digits, dots, hyphens and underscores")};
  }
  id support = [bundle objectForInfoDictionaryKey:@"PDESupportAttribute"];
  options.support_keyword = TextIn(support, @"Keyword");
  options.support_value = TextIn(support, @"Value");
  Expected<std::string> color = Lines(bundle, named, @"Color");
  if (!color) return color.failure();
  Expected<std::string> monochrome = Lines(bundle, named, @"Monochrome");
  if (!monochrome) return monochrome.failure();
  options.color = std::move(*color);
  options.monochrome = std::move(*monochrome);
  return std::optional<PrinterOptions>(std::move(options));
}

}  // namespace

Expected<std::optional<PrinterOptions>> PrinterOptionsOf(const ExtensionBundle &bundle) {
  Expected<std::optional<PrinterOptions>> result = std::optional<PrinterOptions>();
  if (auto raised = WhatRaises([&] { result = Read(bundle); })) {
    result = Failure{Localized("it raised %1", {*raised})};
  }
  if (result) return result;
  return result.failure().Reworded(
      Localized("the bundle %1 cannot give its printer options: %2",
                {Words([bundle.bundle() bundlePath]), result.message()}));
}
