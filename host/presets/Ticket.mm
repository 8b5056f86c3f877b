#include "host/presets/Ticket.h"

#include "host/base/Localized.h"
#include "host/base/WholeFile.h"
#include "host/job/SettingValues.h"
#include "host/presets/TicketText.h"

namespace {

NSString *String(const std::filesystem::path &path) {
  return [[NSFileManager defaultManager] stringWithFileSystemRepresentation:path.c_str()
                                                                     length:path.native().size()];
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

Expected<PrintSettings> ReadTicket(const std::filesystem::path &path) {
  PrintSettings settings = EmptyPrintSettings();
  if (auto values = ValuesOf(settings.get()); !values) return values.failure();
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

Expected<void> WriteTicket(const std::filesystem::path &path, PMPrintSettings settings) {
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
