#include "host/session/Repair.h"

#include <optional>

#include "host/base/Localized.h"

namespace {

// None: a value that nobody takes for an option.
std::optional<Expected<std::string>> Fitted(const std::string &key, const StoredValue &stored,
                                            const Fit &fit, bool is_key_of_text) {
  if (stored.kind != StoredValue::Kind::kOther) return fit(key, stored.text);
  if (!is_key_of_text) return std::nullopt;
  return Failure{Localized("its value is no text")};
}

}  // namespace

Expected<Notes> Repair(JobSettings &settings, const Fit &fit,
                       const std::function<bool(const std::string &key)> &is_key_of_text) {
  Expected<StoredValues> values = settings.Values();
  if (!values) return values.failure();
  Notes notes;
  for (const auto &[key, stored] : *values) {
    const bool needs_text = is_key_of_text(key);
    const auto fitted = Fitted(key, stored, fit, needs_text);
    if (!fitted) continue;
    if (!*fitted) notes.push_back(DoesNotFit(key, stored.text, fitted->message()));
    const bool has_form = !needs_text || stored.kind == StoredValue::Kind::kText;
    if (*fitted && **fitted == stored.text && has_form) continue;
    if (auto set = settings.Set(key, *fitted ? **fitted : ""); !set) return set.failure();
  }
  return notes;
}
