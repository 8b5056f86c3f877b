#include "host/base/Plural.h"

#include <algorithm>

namespace {

bool IsWithin(size_t number, size_t first, size_t last) {
  return number >= first && number <= last;
}

std::string_view OneOrOther(size_t number) { return number == 1 ? "one" : "other"; }

std::string_view UpToOneOrOther(size_t number) { return number <= 1 ? "one" : "other"; }

std::string_view Only(size_t) { return "other"; }

std::string_view Arabic(size_t number) {
  if (number <= 2) return number == 0 ? "zero" : number == 1 ? "one" : "two";
  if (IsWithin(number % 100, 3, 10)) return "few";
  return IsWithin(number % 100, 11, 99) ? "many" : "other";
}

std::string_view Hebrew(size_t number) { return number == 2 ? "two" : OneOrOther(number); }

std::string_view Czech(size_t number) {
  return IsWithin(number, 2, 4) ? "few" : OneOrOther(number);
}

std::string_view Polish(size_t number) {
  const bool is_few = IsWithin(number % 10, 2, 4) && !IsWithin(number % 100, 12, 14);
  return is_few ? "few" : OneOrOther(number);
}

std::string_view Russian(size_t number) {
  return number % 10 == 1 && number % 100 != 11 ? "one" : Polish(number);
}

std::string_view Romanian(size_t number) {
  if (number == 1) return "one";
  return number == 0 || IsWithin(number % 100, 1, 19) ? "few" : "other";
}

struct Rule {
  std::string_view language;
  std::string_view (*form)(size_t number);
};
constexpr Rule kRules[] = {{"ar", Arabic},         {"cs", Czech},
                           {"fr", UpToOneOrOther}, {"he", Hebrew},
                           {"hr", Russian},        {"id", Only},
                           {"ja", Only},           {"ko", Only},
                           {"pl", Polish},         {"pt_BR", UpToOneOrOther},
                           {"ro", Romanian},       {"ru", Russian},
                           {"sk", Czech},          {"uk", Russian},
                           {"vi", Only},           {"zh-Hans", Only},
                           {"zh-Hant", Only}};

}  // namespace

std::string_view PluralForm(std::string_view language, size_t number) {
  const auto *rule = std::ranges::find(kRules, language, &Rule::language);
  return rule == std::end(kRules) ? OneOrOther(number) : rule->form(number);
}
