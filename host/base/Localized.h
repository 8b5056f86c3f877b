// The program's own texts in the user's language.

#ifndef HOST_BASE_LOCALIZED_H
#define HOST_BASE_LOCALIZED_H

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

// Texts by the English ones.
using Translation = std::unordered_map<std::string, std::string>;

// The text in the language in use; the English one where the translation has none. Any thread may
// ask. Sources give the English text as a literal: scripts/check-strings looks for them.
std::string Localized(const char *text);
// The same with its parts in the places %1, %2...
std::string Localized(const char *text, std::initializer_list<std::string> parts);
// The same with a number as its last part, in the form that the language has for the number: the
// text under "TEXT|FORM" where the translation has it (Plural.h).
std::string LocalizedCount(const char *text, std::initializer_list<std::string> parts,
                           size_t number);

// The text with its parts in the places %1 to %9; a place without a part stays. What looks like a
// place in a part is none.
std::string Filled(std::string_view text, std::initializer_list<std::string> parts);

// Begins to use the translation, null for English, in all threads, and answers the one before. It
// must live as long as texts are asked for. At the beginning texts are English.
const Translation *UseTranslation(const Translation *translation);

// While the object lives, texts are those of the translation in all threads.
class TextsOf {
 public:
  explicit TextsOf(const Translation *translation) : before_(UseTranslation(translation)) {}
  ~TextsOf() { UseTranslation(before_); }
  TextsOf(const TextsOf &) = delete;
  TextsOf &operator=(const TextsOf &) = delete;

 private:
  const Translation *before_;
};

// What the work answers, with English texts: for reports that scripts read.
template <typename Work>
auto InEnglish(Work work) {
  const TextsOf english(nullptr);
  return work();
}

#endif
