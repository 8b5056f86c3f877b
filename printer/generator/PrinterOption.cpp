#include "printer/generator/PrinterOption.h"

#include <algorithm>

namespace {

// The limits of PPD files, in bytes.
constexpr size_t kLongestKeyword = 40;
constexpr size_t kLongestText = 80;
constexpr size_t kLongestLine = 255;

bool IsPlain(unsigned char character) {
  return character >= ' ' && character < 127 &&
         std::string_view("/:<>\"").find(static_cast<char>(character)) == std::string_view::npos;
}

void CheckKeyword(const std::string &keyword) {
  const auto is_allowed = [](unsigned char character) {
    return character > ' ' && IsPlain(character) && character != '.';
  };
  if (keyword.empty() || keyword.size() > kLongestKeyword ||
      !std::ranges::all_of(keyword, is_allowed)) {
    throw SourceError("\"" + keyword +
                      "\" cannot be a keyword of a PPD file: 1 to 40 characters, no blank, period, "
                      "slash, colon, quotation mark, angle bracket");
  }
}

std::string TextOf(const PrinterChoice &choice, const Texts &texts, const std::string &language) {
  return choice.text.empty() ? choice.keyword : texts.Text(language, choice.text);
}

std::string CodeLine(const std::string &start, const std::string &code) {
  if (code.find('"') != std::string::npos) {
    throw SourceError("the PostScript of " + start + " has a quotation mark");
  }
  if (code.find('\n') == std::string::npos) return start + ": \"" + code + "\"\n";
  return start + ": \"\n" + code + "\"\n*End\n";
}

void CheckLines(const std::string &lines) {
  for (size_t begin = 0; begin < lines.size();) {
    const size_t end = lines.find('\n', begin);
    if (end - begin > kLongestLine) {
      throw SourceError("longer than a line of a PPD file may be: " +
                        lines.substr(begin, kLongestKeyword) + "...");
    }
    begin = end + 1;
  }
}

}  // namespace

std::string EncodedText(const std::string &text) {
  if (text.size() > kLongestText) {
    throw SourceError("longer than 80 bytes, which is all that PPD files take: " + text);
  }
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string encoded;
  bool in_hexadecimal = false;
  for (const unsigned char character : text) {
    if (IsPlain(character) == in_hexadecimal) encoded += in_hexadecimal ? '>' : '<';
    in_hexadecimal = !IsPlain(character);
    if (in_hexadecimal) {
      encoded += {kDigits[character / 16], kDigits[character % 16]};
    } else {
      encoded += static_cast<char>(character);
    }
  }
  return in_hexadecimal ? encoded + ">" : encoded;
}

std::string Lines(const PrinterOption &option, const Texts &texts) {
  CheckKeyword(option.keyword);
  const std::string name = "*" + option.keyword;
  std::string lines = "*OpenUI " + name + "/" + EncodedText(texts.Text("", option.text)) +
                      ": PickOne\n" + "*OrderDependency: " + std::to_string(option.order) +
                      " AnySetup " + name + "\n" + "*Default" + option.keyword + ": " +
                      option.default_choice + "\n";
  bool has_default = false;
  for (const PrinterChoice &choice : option.choices) {
    CheckKeyword(choice.keyword);
    has_default |= choice.keyword == option.default_choice;
    lines += CodeLine(name + " " + choice.keyword + "/" + EncodedText(TextOf(choice, texts, "")),
                      choice.code);
  }
  if (!has_default) {
    throw SourceError("the default of " + option.keyword + ", " + option.default_choice +
                      ", is not one of its choices");
  }
  lines += "*CloseUI: " + name + "\n";
  CheckLines(lines);
  return lines;
}

std::string Translation(const PrinterOption &option, const Texts &texts,
                        const std::string &language) {
  std::string lines = "*" + language + ".Translation " + option.keyword + "/" +
                      EncodedText(texts.Text(language, option.text)) + ": \"\"\n";
  for (const PrinterChoice &choice : option.choices) {
    if (choice.text.empty()) continue;
    lines += "*" + language + "." + option.keyword + " " + choice.keyword + "/" +
             EncodedText(TextOf(choice, texts, language)) + ": \"\"\n";
  }
  CheckLines(lines);
  return lines;
}

std::string GroupTranslation(const std::string &group, const Texts &texts,
                             const std::string &language) {
  return "*" + language + ".Translation " + group + "/" + EncodedText(texts.Text(language, group)) +
         ": \"\"\n";
}
