#include "host/session/JobSettings.h"

#include <utility>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/SettingOptions.h"

namespace {

NSString *Key(const std::string &key) { return [NSString stringWithUTF8String:key.c_str()]; }

StoredValue Stored(id value) {
  using Kind = StoredValue::Kind;
  const bool is_text = [value isKindOfClass:[NSString class]];
  if (!is_text && ![value isKindOfClass:[NSNumber class]]) return {};
  const char *text = [(is_text ? value : [value stringValue]) UTF8String];
  return {is_text ? Kind::kText : Kind::kNumber, text == nullptr ? "" : text};
}

// That a value which was to be replaced is locked, unless it is that value.
Expected<Notes> NotesOnLocked(PMPrintSettings settings, NSString *key, id wanted) {
  Expected<Retained<id>> now = ValueOf(settings, key);
  if (!now) return now.failure();
  return [now->get() isEqual:wanted] ? Notes() : Notes{IsLocked(key).message};
}

Expected<Notes> Replace(PMPrintSettings settings, NSString *key, id value) {
  Expected<Change> change = SetValue(settings, key, value);
  if (!change) return change.failure();
  return *change == Change::kMade ? Notes() : NotesOnLocked(settings, key, value);
}

}  // namespace

JobSettings::JobSettings() : settings_(EmptyPrintSettings()) {}

Expected<std::string> JobSettings::Value(const std::string &key) const {
  Expected<std::optional<std::string>> value = JobOptionFromSettings(get(), key);
  if (!value) return value.failure();
  return value->value_or("");
}

Expected<StoredValues> JobSettings::Values() const {
  Expected<Retained<NSDictionary *>> values = ValuesOf(get());
  if (!values) return values.failure();
  StoredValues stored;
  for (NSString *key in values->get()) {
    if (const char *name = [key UTF8String]) {
      stored[name] = Stored([values->get() objectForKey:key]);
    }
  }
  return stored;
}

Expected<JobOptions> JobSettings::Options() const { return JobOptionsFromSettings(get()); }

Expected<Change> JobSettings::Set(const std::string &key, const std::string &value) {
  return SetValue(get(), Key(key), value.empty() ? nil : Key(value));
}

Expected<Notes> JobSettings::ReplaceBy(PMPrintSettings settings) {
  Expected<Retained<NSDictionary *>> before = ValuesOf(get());
  if (!before) return before.failure();
  Expected<Retained<NSDictionary *>> values = ValuesOf(settings);
  if (!values) return values.failure();
  Notes notes;
  const auto replace = [&](NSString *key) -> Expected<void> {
    Expected<Notes> more = Replace(get(), key, [values->get() objectForKey:key]);
    if (!more) return more.failure();
    notes.insert(notes.end(), more->begin(), more->end());
    return {};
  };
  for (NSString *key in before->get()) {
    if ([values->get() objectForKey:key] != nil) continue;
    if (auto done = replace(key); !done) return done.failure();
  }
  for (NSString *key in values->get()) {
    if (auto done = replace(key); !done) return done.failure();
  }
  for (const std::string &name : TextsThatAreNoOptions(values->get())) {
    notes.push_back(
        Localized("%1 is not sent to the printer: no option can have this name or this value",
                  {Quoted(name)}));
  }
  return notes;
}
