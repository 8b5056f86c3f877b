#include "host/base/Localized.h"

#include <atomic>
#include <optional>
#include <span>
#include <vector>

#include "host/base/Plural.h"

namespace {

std::atomic<const Translation *> translation_in_use = nullptr;

std::optional<std::string> Translated(const std::string &text) {
  const Translation *translation = translation_in_use;
  if (translation == nullptr) return std::nullopt;
  const auto found = translation->find(text);
  if (found == translation->end()) return std::nullopt;
  return found->second;
}

std::string WithParts(std::string_view text, std::span<const std::string> parts) {
  std::string filled;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool is_place = text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' &&
                          static_cast<size_t>(text[at + 1] - '1') < parts.size();
    if (is_place) {
      filled += parts[static_cast<size_t>(text[++at] - '1')];
    } else {
      filled += text[at];
    }
  }
  return filled;
}

}  // namespace

const Translation *UseTranslation(const Translation *translation) {
  return translation_in_use.exchange(translation);
}

std::string Localized(const char *text) { return Translated(text).value_or(text); }

std::string Localized(const char *text, std::initializer_list<std::string> parts) {
  return Filled(Localized(text), parts);
}

std::string LocalizedCount(const char *text, std::initializer_list<std::string> parts,
                           size_t number) {
  const std::string_view form = PluralForm(Localized("en"), number);
  const auto translated = Translated(std::string(text) + "|" + std::string(form));
  std::vector<std::string> all(parts);
  all.push_back(std::to_string(number));
  return WithParts(translated.value_or(Localized(text)), all);
}

std::string Filled(std::string_view text, std::initializer_list<std::string> parts) {
  return WithParts(text, {parts.begin(), parts.size()});
}
