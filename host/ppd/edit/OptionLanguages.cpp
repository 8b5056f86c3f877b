#include "host/ppd/edit/OptionLanguages.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <sstream>

#include "host/ppd/edit/PPDText.h"

namespace {

// de, pt_BR, zh-Hans: what keywords can begin with.
bool IsLanguage(std::string_view name) {
  const std::string_view code = name.substr(0, name.find_first_of("_-"));
  return code.size() >= 2 && code.size() <= 3 &&
         std::ranges::all_of(code,
                             [](unsigned char letter) { return std::islower(letter) != 0; }) &&
         std::ranges::all_of(name, [](unsigned char character) {
           return std::isalnum(character) != 0 || character == '_' || character == '-';
         });
}

// LANGUAGE.KEYWORD, as in *de.Translation; without a language the parts are empty.
struct TranslatedKeyword {
  std::string_view language;
  std::string_view keyword;
};

TranslatedKeyword Translated(std::string_view keyword) {
  const size_t dot = keyword.find('.');
  if (dot == std::string_view::npos) return {};
  const std::string_view language = keyword.substr(0, dot);
  return IsLanguage(language) ? TranslatedKeyword{language, keyword.substr(dot + 1)}
                              : TranslatedKeyword{};
}

struct Text {
  std::string name;  // what it translates: "Translation OPTION" or "OPTION CHOICE"
  std::string label;
};
using Texts = std::vector<Text>;

struct Parts {
  std::string lines;  // without translations
  Texts untranslated;
  std::map<std::string, Texts> translations;  // by language
};

// Numbers are the same in all languages, and nobody misses their translation.
bool IsNumber(std::string_view choice) {
  return std::ranges::all_of(choice, [](unsigned char digit) { return std::isdigit(digit) != 0; });
}

Parts PartsOf(std::string_view lines) {
  Parts parts;
  std::string_view open;
  for (const PPDStatement &statement : StatementsOf(lines)) {
    const TranslatedKeyword translated = Translated(statement.keyword);
    if (!translated.language.empty()) {
      parts.translations[std::string(translated.language)].push_back(
          {std::string(translated.keyword) + ' ' + std::string(statement.option),
           std::string(statement.label)});
      continue;
    }
    parts.lines += statement.all;
    const auto add = [&parts](std::string_view what, std::string_view name,
                              std::string_view label) {
      parts.untranslated.push_back(
          {std::string(what) + ' ' + std::string(name), std::string(label.empty() ? name : label)});
    };
    if (statement.keyword == "OpenGroup") {
      // The name is where statements have their value.
      const size_t slash = std::min(statement.value.find('/'), statement.value.size());
      const std::string_view name = statement.value.substr(0, slash);
      add("Translation", name, statement.value.substr(std::min(slash + 1, statement.value.size())));
    } else if (!OptionOpenedBy(statement).empty()) {
      open = statement.option;
      add("Translation", open, statement.label);
    } else if (statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI") {
      open = {};
    } else if (!open.empty() && statement.keyword == open && !IsNumber(statement.option)) {
      add(open, statement.option, statement.label);
    }
  }
  return parts;
}

std::string Normalized(std::string language) {
  std::ranges::replace(language, '-', '_');
  return language;
}

// What the language is read in best; empty: none of these.
const Texts *Nearest(const std::string &wanted, const std::map<std::string, Texts> &translations) {
  const auto find = [&translations](const std::string &name) -> const Texts * {
    const auto found = std::ranges::find_if(
        translations, [&name](const auto &entry) { return Normalized(entry.first) == name; });
    return found == translations.end() ? nullptr : &found->second;
  };
  const std::string language = Normalized(wanted);
  if (const Texts *texts = find(language)) return texts;
  const size_t line = language.find('_');
  if (line != std::string::npos) return find(language.substr(0, line));
  if (language == "no") return find("nb");
  // The country of the same name has the language's usual form: pt_PT.
  std::string country = language;
  std::ranges::transform(country, country.begin(), [](unsigned char letter) {
    return static_cast<char>(std::toupper(letter));
  });
  if (const Texts *texts = find(language + '_' + country)) return texts;
  for (const auto &[name, texts] : translations) {
    if (Normalized(name).starts_with(language + '_')) return &texts;
  }
  return nullptr;
}

}  // namespace

std::string InLanguages(std::string_view languages, std::string_view lines) {
  const Parts parts = PartsOf(lines);
  std::string result = parts.lines;
  std::istringstream list{std::string(languages)};
  std::set<std::string> done;
  for (std::string language; list >> language;) {
    if (!IsLanguage(language) || !done.insert(language).second) continue;
    std::set<std::string> names;
    const auto add = [&](const Text &text) {
      if (!names.insert(text.name).second) return;
      result += '*' + language + '.' + text.name + '/' + text.label + ": \"\"\n";
    };
    if (const Texts *texts = Nearest(language, parts.translations)) {
      std::ranges::for_each(*texts, add);
    }
    std::ranges::for_each(parts.untranslated, add);
  }
  return result;
}
