#include "host/presets/Ticket.h"

#include "host/base/Localized.h"
#include "host/base/WholeFile.h"
#include "host/job/SettingValues.h"
#include "host/presets/EscapedPairs.h"
#include "host/presets/TicketText.h"

namespace {

NSString *String(const std::filesystem::path &path) {
  return [[NSFileManager defaultManager] stringWithFileSystemRepresentation:path.c_str()
                                                                     length:path.native().size()];
}

Expected<std::string> DocumentIn(const std::filesystem::path &path) {
  const auto damaged = [](const Failure &why) {
    return why.Reworded(Localized("not a property list: %1", {why.message}));
  };
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    return Failure{Localized("not a regular file")};
  }
  if (std::filesystem::file_size(path, error) > kLargestTicket) {
    return damaged({Localized("the file is larger than 1 MiB")});
  }
  NSData *data = [NSData dataWithContentsOfFile:String(path)];
  if (data == nil) return Failure{Localized("no permission, or a reading error")};
  Expected<std::string> document =
      TicketDocument({static_cast<const char *>([data bytes]), [data length]});
  if (!document) return damaged(document.failure());
  return document;
}

Expected<Retained<NSDictionary *>> ValuesIn(const std::string &document) {
  NSString *why = nil;
  id root = nil;
  @try {
    root = [NSPropertyListSerialization propertyListFromData:[NSData dataWithBytes:document.data()
                                                                            length:document.size()]
                                            mutabilityOption:NSPropertyListImmutable
                                                      format:nullptr
                                            errorDescription:&why];
  } @catch (NSException *exception) {
    why = [exception reason];
  }
  if (root == nil) {
    return Failure{Localized("not a property list: %1",
                             {why == nil ? Localized("the file is damaged or cut off")
                                         : std::string([why UTF8String])})};
  }
  if (![root isKindOfClass:[NSDictionary class]]) {
    return Failure{Localized("the property list is no dictionary of print settings")};
  }
  return Retained<NSDictionary *>::Share(root);
}

Expected<void> SetValues(PMPrintSettings settings, NSDictionary *values) {
  for (id key in values) {
    Expected<Change> change = SetValue(settings, key, [values objectForKey:key]);
    if (!change) return change.failure();
    if (*change == Change::kLocked) return IsLocked(key);
  }
  return {};
}

Expected<void> ReadInto(PMPrintSettings settings, const std::filesystem::path &path) {
  Expected<std::string> document = DocumentIn(path);
  if (!document) return document.failure();
  Expected<Retained<NSDictionary *>> values = ValuesIn(*document);
  if (!values) return values.failure();
  return SetValues(settings, values->get());
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
  if (auto done = ReadInto(settings.get(), path); !done) {
    return done.failure().Reworded(
        Localized("cannot read ticket %1: %2", {path.string(), done.message()}));
  }
  return settings;
}

Expected<void> WriteTicket(const std::filesystem::path &path, PMPrintSettings settings) {
  const auto failure = [&path](const Failure &why) {
    return why.Reworded(Localized("cannot write %1: %2", {path.string(), why.message}));
  };
  Expected<Retained<NSDictionary *>> values = ValuesOf(settings);
  if (!values) return failure(values.failure());
  NSString *why = nil;
  NSData *data = [NSPropertyListSerialization dataFromPropertyList:values->get()
                                                            format:NSPropertyListXMLFormat_v1_0
                                                  errorDescription:&why];
  if (data == nil) {
    return failure(
        {why == nil ? Localized("a value is no property list") : std::string([why UTF8String])});
  }
  return WriteWholeFile(
      path, WithoutEscapedPairs({static_cast<const char *>([data bytes]), [data length]}));
}
