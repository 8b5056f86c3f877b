#include "host/pages/LayoutOptions.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace {

// Names that every queue takes, but for the last two, with which some printers are told the copies.
constexpr std::string_view kCopies[] = {"collate", "copies", "multiple-document-handling", "Copies",
                                        "JCLCopies"};

constexpr std::string_view kLayout[] = {"booklet",
                                        "booklet-signature",
                                        "columns",
                                        "cpi",
                                        "crop-to-fit",
                                        "document-format",
                                        "fill",
                                        "fit-to-page",
                                        "fitplot",
                                        "landscape",
                                        "lpi",
                                        "mirror",
                                        "natural-scaling",
                                        "number-up",
                                        "number-up-layout",
                                        "orientation-requested",
                                        "output-order",
                                        "outputorder",
                                        "page-border",
                                        "page-bottom",
                                        "page-delivery",
                                        "page-label",
                                        "page-left",
                                        "page-ranges",
                                        "page-right",
                                        "page-set",
                                        "page-top",
                                        "position",
                                        "ppi",
                                        "prettyprint",
                                        "print-scaling",
                                        "scaling",
                                        "wrap"};

bool IsAmong(const auto &names, const std::string &name) {
  return std::ranges::find(names, name) != std::end(names);
}

bool IsOrder(const std::string &name) {
  return name == "outputorder" || name == "output-order" || name == "page-delivery";
}

std::string Escaped(const std::string &value) {
  if (value.starts_with('{')) return value;  // values in a value
  std::string escaped;
  for (const char character : value) {
    const bool ends_value = std::isspace(static_cast<unsigned char>(character)) != 0 ||
                            character == '\\' || character == '"' || character == '\'';
    if (ends_value) escaped += '\\';
    escaped += character;
  }
  return escaped;
}

}  // namespace

JobOptions OptionsOfLaidOut(const JobOptions &options) {
  JobOptions left = options;
  std::erase_if(left, [](const auto &option) {
    return IsAmong(kCopies, option.first) || IsAmong(kLayout, option.first);
  });
  left["copies"] = "1";
  return left;
}

JobOptions OptionsForCopies(const JobOptions &options) {
  JobOptions left = options;
  std::erase_if(left, [](const auto &option) {
    return IsAmong(kLayout, option.first) && !IsOrder(option.first);
  });
  return left;
}

bool IsRaw(const JobOptions &options) {
  const auto format = options.find("document-format");
  return options.contains("raw") ||
         (format != options.end() && format->second == "application/vnd.cups-raw");
}

std::string OptionText(const JobOptions &options) {
  std::string text;
  for (const auto &[name, value] : options) {
    text += (text.empty() ? "" : " ") + name + '=' + Escaped(value);
  }
  return text;
}
