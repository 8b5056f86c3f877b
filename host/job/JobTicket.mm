#include "host/job/JobTicket.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/WholeFile.h"
#include "host/job/SettingValues.h"
#include "host/job/TicketText.h"

namespace {

NSString *String(const std::filesystem::path &path) {
  return [[NSFileManager defaultManager] stringWithFileSystemRepresentation:path.c_str()
                                                                     length:path.native().size()];
}

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

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

// The code unit that is escaped here as \UXXXX, -1 if none is.
int EscapedUnit(std::string_view text) {
  if (text.size() < 6 || text[0] != '\\' || text[1] != 'U') return -1;
  int unit = 0;
  for (const char character : text.substr(2, 4)) {
    const int digit = HexDigit(character);
    if (digit < 0) return -1;
    unit = unit * 16 + digit;
  }
  return unit;
}

// The platform escapes characters beyond the basic plane in a way that it cannot read back.
std::string WithoutEscapedPairs(std::string_view xml) {
  std::string result;
  while (!xml.empty()) {
    const int high = EscapedUnit(xml);
    const int low = high < 0xD800 || high > 0xDBFF ? -1 : EscapedUnit(xml.substr(6));
    if (low < 0xDC00 || low > 0xDFFF) {
      result += xml.front();
      xml.remove_prefix(1);
      continue;
    }
    const int code = 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
    for (const int byte : {0xF0 | code >> 18, 0x80 | (code >> 12 & 0x3F), 0x80 | (code >> 6 & 0x3F),
                           0x80 | (code & 0x3F)}) {
      result += static_cast<char>(byte);
    }
    xml.remove_prefix(12);
  }
  return result;
}

}  // namespace

PrintSettings EmptyPrintSettings() {
  PMPrintSettings settings = nullptr;
  return PrintSettings(PMCreatePrintSettings(&settings) == kPMNoError ? settings : nullptr);
}

Expected<PrintSettings> ReadTicket(const std::filesystem::path &path) {
  PrintSettings settings = EmptyPrintSettings();
  if (auto values = ValuesOf(settings.get()); !values) return Failure{values.message()};
  std::error_code error;
  if (path.empty() ||
      std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found) {
    return settings;
  }
  const auto failure = [&path](const std::string &why) {
    return Failure{Localized("cannot read ticket %1: %2", {path.string(), why})};
  };
  const auto damaged = [&failure](const std::string &why) {
    return failure(Localized("not a property list: %1", {why}));
  };
  if (!std::filesystem::is_regular_file(path, error))
    return failure(Localized("not a regular file"));
  if (std::filesystem::file_size(path, error) > kLargestTicket) {
    return damaged(Localized("the file is larger than 1 MiB"));
  }
  NSData *data = [NSData dataWithContentsOfFile:String(path)];
  if (data == nil) return failure(Localized("no permission, or a reading error"));
  const std::string_view text =
      WithoutByteOrderMark({static_cast<const char *>([data bytes]), [data length]});
  if (auto reason = ReasonAgainstTicketText(text)) return damaged(*reason);
  const std::string document = WithUtf8Declaration(text);
  data = [NSData dataWithBytes:document.data() length:document.size()];

  NSString *why = nil;
  id root = nil;
  @try {
    root = [NSPropertyListSerialization propertyListFromData:data
                                            mutabilityOption:NSPropertyListImmutable
                                                      format:nullptr
                                            errorDescription:&why];
  } @catch (NSException *exception) {
    why = [exception reason];
  }
  if (root == nil)
    return damaged(why == nil ? Localized("the file is damaged or cut off") : [why UTF8String]);
  if (![root isKindOfClass:[NSDictionary class]]) {
    return failure(Localized("the property list is no dictionary of print settings"));
  }
  for (id key in root) {
    Expected<Change> change = SetValue(settings.get(), key, [root objectForKey:key]);
    if (!change) return failure(change.message());
    if (*change == Change::kLocked) return failure(IsLocked(key).message);
  }
  return settings;
}

std::optional<Failure> WriteTicket(const std::filesystem::path &path, PMPrintSettings settings) {
  const auto failure = [&path](const std::string &why) {
    return Failure{Localized("cannot write %1: %2", {path.string(), why})};
  };
  Expected<Retained<NSDictionary *>> values = ValuesOf(settings);
  if (!values) return failure(values.message());
  NSString *why = nil;
  NSData *data = [NSPropertyListSerialization dataFromPropertyList:values->get()
                                                            format:NSPropertyListXMLFormat_v1_0
                                                  errorDescription:&why];
  if (data == nil) {
    return failure(why == nil ? Localized("a value is no property list")
                              : std::string([why UTF8String]));
  }
  return WriteWholeFile(
      path, WithoutEscapedPairs({static_cast<const char *>([data bytes]), [data length]}));
}

Expected<JobOptions> JobOptionsFromSettings(PMPrintSettings settings) {
  Expected<Retained<NSDictionary *>> values = ValuesOf(settings);
  if (!values) return Failure{values.message()};
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
  if (!value) return Failure{value.message()};
  return OptionValue(value->get());
}
