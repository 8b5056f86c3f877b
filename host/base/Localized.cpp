#include "host/base/Localized.h"

#include <atomic>

namespace {

std::atomic<const Translation *> translation_in_use = nullptr;

}  // namespace

const Translation *UseTranslation(const Translation *translation) {
  return translation_in_use.exchange(translation);
}

std::string Localized(const char *text) {
  const Translation *translation = translation_in_use;
  if (translation == nullptr) return text;
  const auto found = translation->find(text);
  return found == translation->end() ? text : found->second;
}

std::string Localized(const char *text, std::initializer_list<std::string> parts) {
  return Filled(Localized(text), parts);
}

std::string Filled(std::string_view text, std::initializer_list<std::string> parts) {
  std::string filled;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool is_place = text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' &&
                          static_cast<size_t>(text[at + 1] - '1') < parts.size();
    if (is_place) {
      filled += parts.begin()[text[++at] - '1'];
    } else {
      filled += text[at];
    }
  }
  return filled;
}
