#include "portal/MappedValues.h"

#include <cups/cups.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

namespace {

using Words = std::initializer_list<std::pair<std::string_view, std::string_view>>;

std::string Text(const Dictionary &words, const char *key) {
  const auto *text = Find<std::string>(words, key);
  return text == nullptr ? "" : *text;
}

// What the table has for the word under the key; empty: it is none of these.
std::string Translated(const Dictionary &words, const char *key, const Words &table) {
  const std::string word = Text(words, key);
  for (const auto &[from, to] : table) {
    if (word == from) return std::string(to);
  }
  return "";
}

template <typename Number>
std::optional<Number> Parsed(std::string_view text) {
  Number number = 0;
  const char *const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (error != std::errc() || end != last) return std::nullopt;
  return number;
}

// Within what a text of one of them may be asked to hold.
constexpr int kLastPage = 1'000'000;

struct Range {
  int first, last;
};

// One range of the portal's, whose pages count from 0.
std::optional<Range> ParsedRange(std::string_view text) {
  const size_t dash = text.find('-');
  const auto first = Parsed<int>(text.substr(0, dash));
  const auto last = dash == std::string_view::npos ? first : Parsed<int>(text.substr(dash + 1));
  if (!first || !last || *first < 0 || *last < *first || *last >= kLastPage) return std::nullopt;
  return Range{*first + 1, *last + 1};
}

std::string Written(const Range &range) {
  const std::string first = std::to_string(range.first);
  return range.last == range.first ? first : first + '-' + std::to_string(range.last);
}

constexpr double kMostMillimeters = 10'000;

bool IsLength(double millimeters) { return millimeters >= 1 && millimeters <= kMostMillimeters; }

std::string CustomSize(double width, double height) {
  if (!IsLength(width) || !IsLength(height)) return "";
  return "Custom." + DecimalText(width) + 'x' + DecimalText(height) + "mm";
}

double Measure(const Dictionary &page_setup, const char *key) {
  const auto *number = Find<double>(page_setup, key);
  return number == nullptr ? 0 : *number;
}

bool IsPaperName(std::string_view name) {
  constexpr size_t kLongest = 80;
  return !name.empty() && name.size() <= kLongest && std::ranges::all_of(name, [](char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_' || character == '-' ||
           character == '.';
  });
}

// "iso_a4" with its size, as the print system wants it; whoever has one already keeps it.
std::string WithSize(const std::string &name, double width, double height) {
  const auto parts = std::ranges::count(name, '_');
  if (!IsPaperName(name) || parts == 0 || name.starts_with("custom_")) return "";
  if (parts >= 2) return name;
  if (!IsLength(width) || !IsLength(height)) return "";
  return name + '_' + DecimalText(width) + 'x' + DecimalText(height) + "mm";
}

// "iso_a4_210x297mm"; the printer's own names have no size behind them.
bool IsStandardName(std::string_view name) { return std::ranges::count(name, '_') >= 2; }

// Paper of this size that the print system has a name for; null: none.
const pwg_media_t *KnownPaper(const Paper &paper) {
  const auto hundredths = [](double number) { return static_cast<int>(std::lround(number * 100)); };
  const pwg_media_t *found = pwgMediaForSize(hundredths(paper.width), hundredths(paper.height));
  // Others are answered, too, with names that are made up.
  return found == nullptr || std::string_view(found->pwg).starts_with("custom_") ? nullptr : found;
}

}  // namespace

std::string TakeCopies(const Dictionary &settings) {
  constexpr int kMost = 9999;
  const auto copies = Parsed<int>(Text(settings, "n-copies"));
  return copies && *copies >= 1 && *copies <= kMost ? std::to_string(*copies) : "";
}

std::string TakeCollating(const Dictionary &settings) {
  return Translated(settings, "collate", {{"true", "true"}, {"false", "false"}});
}

std::string TakeRanges(const Dictionary &settings) {
  constexpr size_t kMost = 1000;
  if (Text(settings, "print-pages") != "ranges") return "";
  const std::string text = Text(settings, "page-ranges");
  std::vector<Range> ranges;
  for (size_t begin = 0, comma = 0; comma != std::string::npos; begin = comma + 1) {
    comma = text.find(',', begin);
    const auto range = ParsedRange(std::string_view(text).substr(begin, comma - begin));
    if (!range || ranges.size() == kMost) return "";
    ranges.push_back(*range);
  }
  std::string written;
  for (const Range &range : ranges) written += (written.empty() ? "" : ",") + Written(range);
  return written;
}

std::string TakePageSet(const Dictionary &settings) {
  return Translated(settings, "page-set", {{"all", "all"}, {"odd", "odd"}, {"even", "even"}});
}

std::string TakeOrder(const Dictionary &settings) {
  return Translated(settings, "reverse", {{"true", "reverse"}, {"false", "normal"}});
}

std::string TakeNumberUp(const Dictionary &settings) {
  return Translated(settings, "number-up",
                    {{"1", "1"}, {"2", "2"}, {"4", "4"}, {"6", "6"}, {"9", "9"}, {"16", "16"}});
}

std::string TakeNumberUpLayout(const Dictionary &settings) {
  return Translated(settings, "number-up-layout",
                    {{"lrtb", "lrtb"},
                     {"lrbt", "lrbt"},
                     {"rltb", "rltb"},
                     {"rlbt", "rlbt"},
                     {"tblr", "tblr"},
                     {"tbrl", "tbrl"},
                     {"btlr", "btlr"},
                     {"btrl", "btrl"}});
}

std::string TakeSides(const Dictionary &settings) {
  return Translated(settings, "duplex",
                    {{"simplex", "one-sided"},
                     {"horizontal", "two-sided-long-edge"},
                     {"vertical", "two-sided-short-edge"}});
}

std::string TakeColor(const Dictionary &settings) {
  return Translated(settings, "use-color", {{"true", "color"}, {"false", "monochrome"}});
}

std::string TakeQuality(const Dictionary &settings) {
  return Translated(settings, "quality",
                    {{"draft", "3"}, {"low", "3"}, {"normal", "4"}, {"high", "5"}});
}

std::string TakePaperFormat(const Dictionary &settings) {
  const double width = Parsed<double>(Text(settings, "paper-width")).value_or(0);
  const double height = Parsed<double>(Text(settings, "paper-height")).value_or(0);
  return WithSize(Text(settings, "paper-format"), width, height);
}

std::string TakePaperSize(const Dictionary &settings) {
  return CustomSize(Parsed<double>(Text(settings, "paper-width")).value_or(0),
                    Parsed<double>(Text(settings, "paper-height")).value_or(0));
}

std::string TakePpdPaper(const Dictionary &page_setup) {
  const std::string name = Text(page_setup, "PPDName");
  return IsPaperName(name) ? name : "";
}

std::string TakeSetUpPaper(const Dictionary &page_setup) {
  return WithSize(Text(page_setup, "Name"), Measure(page_setup, "Width"),
                  Measure(page_setup, "Height"));
}

std::string TakeSetUpSize(const Dictionary &page_setup) {
  return CustomSize(Measure(page_setup, "Width"), Measure(page_setup, "Height"));
}

std::optional<Value> GivePages(const Value *sent, const Chosen &) {
  const auto *pages = sent == nullptr ? nullptr : std::get_if<std::string>(sent);
  if (pages != nullptr && (*pages == "selection" || *pages == "current")) return *pages;
  return "all";
}

std::optional<Value> GiveSides(const Value *sent, const Chosen &chosen) {
  constexpr std::pair<std::string_view, std::string_view> kSides[] = {
      {"one-sided", "simplex"},
      {"two-sided-long-edge", "horizontal"},
      {"two-sided-short-edge", "vertical"},
      {"None", "simplex"},
      {"DuplexNoTumble", "horizontal"},
      {"DuplexTumble", "vertical"}};
  for (const char *option : {"Duplex", "sides"}) {
    const auto found = chosen.settings.find(option);
    if (found == chosen.settings.end()) continue;
    for (const auto &[value, word] : kSides) {
      if (found->second == value) return std::string(word);
    }
  }
  return sent == nullptr ? std::nullopt : std::optional(*sent);
}

std::string PaperName(const Paper &paper) {
  if (IsStandardName(paper.name)) return paper.name;
  if (const pwg_media_t *known = KnownPaper(paper)) return known->pwg;
  const std::string size = DecimalText(paper.width) + 'x' + DecimalText(paper.height) + "mm";
  return "custom_" + size + '_' + size;
}

std::string PpdPaperName(const Paper &paper) {
  if (paper.name.starts_with("Custom.")) return "";
  if (!IsStandardName(paper.name)) return paper.name;
  const pwg_media_t *known = KnownPaper(paper);
  return known == nullptr || known->ppd == nullptr ? "" : known->ppd;
}

std::string ShownPaperName(const Paper &paper) {
  const std::string name = PpdPaperName(paper);
  return name.empty() ? DecimalText(paper.width) + " x " + DecimalText(paper.height) + " mm" : name;
}

std::string DecimalText(double number) {
  // Hundredths of a millimeter are more than printers know.
  const auto hundredths = std::llround(number * 100);
  std::string text = std::to_string(hundredths / 100);
  const auto rest = hundredths % 100;
  if (rest == 0) return text;
  text += rest < 10 ? ".0" : ".";
  text += std::to_string(rest);
  if (text.back() == '0') text.pop_back();
  return text;
}
