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

// What an entry of the Info.plist names.
class NamedResources {
 public:
  // The failure: it is no dictionary.
  static Expected<NamedResources> Of(NSBundle *bundle, NSString *entry) {
    id named = [bundle objectForInfoDictionaryKey:entry];
    if (named != nil && ![named isKindOfClass:[NSDictionary class]]) {
      return Failure{Localized("%1 in its Info.plist is no dictionary", {Words(entry)})};
    }
    return NamedResources(bundle, entry, named);
  }

  bool IsThere() const { return named_ != nil; }

  Expected<OptionLines> Lines() const {
    Expected<std::string> color = LinesFor(@"Color");
    if (!color) return color.failure();
    Expected<std::string> monochrome = LinesFor(@"Monochrome");
    if (!monochrome) return monochrome.failure();
    return OptionLines{std::move(*color), std::move(*monochrome)};
  }

  // The package that has it; empty: not told.
  std::string Package() const { return TextIn(named_, @"Package"); }

  bool Names(NSString *key) const { return [named_ objectForKey:key] != nil; }

  // The name of a program that the print system knows; a path is none.
  Expected<std::string> Program(NSString *key) const {
    std::string program = TextIn(named_, key);
    if (IsIdentifier(program) && program[0] != '.' && program[0] != '-') return program;
    return Failure{Localized("%1 is no file name", {Words(entry_) + ", " + Words(key)})};
  }

 private:
  NamedResources(NSBundle *bundle, NSString *entry, NSDictionary *named)
      : bundle_(bundle), entry_(entry), named_(named) {}

  // Each ending with LF; empty: none are named.
  Expected<std::string> LinesFor(NSString *kind) const {
    id name = [named_ objectForKey:kind];
    if (name == nil) return std::string();
    const std::string key = Words(entry_) + ", " + Words(kind);
    if (![name isKindOfClass:[NSString class]]) {
      return Failure{Localized("%1 is no file name", {key})};
    }
    NSString *path = [bundle_ pathForResource:[name stringByDeletingPathExtension]
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

  NSBundle *bundle_;
  NSString *entry_;
  NSDictionary *named_;
};

Expected<std::optional<PrinterOptions>> Read(const ExtensionBundle &extension) {
  NSBundle *bundle = extension.bundle();
  const Expected<NamedResources> printer = NamedResources::Of(bundle, @"PDEPrinterOptions");
  if (!printer) return printer.failure();
  const Expected<NamedResources> document = NamedResources::Of(bundle, @"PDEDocumentFilter");
  if (!document) return document.failure();
  if (!printer->IsThere() && !document->IsThere()) return std::optional<PrinterOptions>();
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
  Expected<OptionLines> lines = printer->Lines();
  if (!lines) return lines.failure();
  options.printer = std::move(*lines);
  if (document->IsThere()) {
    Expected<std::string> program = document->Program(@"Program");
    if (!program) return program.failure();
    options.document_filter = std::move(*program);
    options.document_package = document->Package();
    if (document->Names(@"Pictures")) {
      program = document->Program(@"Pictures");
      if (!program) return program.failure();
      options.picture_filter = std::move(*program);
    }
    lines = document->Lines();
    if (!lines) return lines.failure();
    options.document = std::move(*lines);
  }
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
