#include "host/job/PageRanges.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

constexpr int kLastPage = std::numeric_limits<int32_t>::max();  // of an integer of IPP
constexpr int kMostCopies = 9999;

struct Range {
  int first;
  int last;
};

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The number that the digits write; none: it is larger than the largest.
std::optional<int> NumberUpTo(int largest, std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || number > largest) return std::nullopt;
  return number;
}

Expected<int> ParsePage(std::string_view text) {
  if (!IsDigits(text)) {
    return Failure{
        Localized("%1 is not a page number; write for example 1-3, 5, 8-", {Quoted(text)})};
  }
  const std::optional<int> page = NumberUpTo(kLastPage, text);
  if (!page) {
    return Failure{Localized("page %1 is too high; the last page can be %2",
                             {Quoted(text), std::to_string(kLastPage)})};
  }
  if (*page == 0) return Failure{Localized("there is no page 0; pages are counted from 1")};
  return *page;
}

Expected<Range> ParseRange(std::string_view text) {
  if (text.empty()) {
    return Failure{Localized("a page number is missing at a comma; write for example 1-3, 5, 8-")};
  }
  const size_t dash = text.find('-');
  const std::string_view from = Trimmed(text.substr(0, dash));
  if (from.empty()) {
    return Failure{
        Localized("a page number is missing at the beginning of %1; write for example 1-3, 5, 8-",
                  {Quoted(text)})};
  }
  Expected<int> first = ParsePage(from);
  if (!first) return first.failure();
  if (dash == std::string_view::npos) return Range{*first, *first};

  const std::string_view to = Trimmed(text.substr(dash + 1));
  if (to.empty()) return Range{*first, kLastPage};
  Expected<int> last = ParsePage(to);
  if (!last) return last.failure();
  if (*last < *first) {
    return Failure{Localized("%1 ends before it begins; write %2",
                             {Quoted(text), std::to_string(*last) + "-" + std::to_string(*first)})};
  }
  return Range{*first, *last};
}

Expected<std::vector<Range>> ParseRanges(std::string_view text) {
  std::vector<Range> ranges;
  for (size_t begin = 0, comma = 0; comma != std::string_view::npos; begin = comma + 1) {
    comma = text.find(',', begin);
    Expected<Range> range = ParseRange(Trimmed(text.substr(begin, comma - begin)));
    if (!range) return range.failure();
    ranges.push_back(*range);
  }
  return ranges;
}

// In rising order; ranges that overlap or follow each other become one.
std::vector<Range> Merged(std::vector<Range> ranges) {
  std::ranges::sort(ranges, {}, &Range::first);
  std::vector<Range> merged;
  for (const Range &range : ranges) {
    if (!merged.empty() && range.first - 1 <= merged.back().last) {
      merged.back().last = std::max(merged.back().last, range.last);
    } else {
      merged.push_back(range);
    }
  }
  return merged;
}

}  // namespace

Expected<std::string> ParsePageRanges(std::string_view text) {
  if (Trimmed(text).empty()) return std::string();
  Expected<std::vector<Range>> ranges = ParseRanges(text);
  if (!ranges) return ranges.failure();
  std::string value;
  for (const Range &range : Merged(std::move(*ranges))) {
    if (!value.empty()) value += ',';
    value += std::to_string(range.first);
    if (range.last > range.first) value += "-" + std::to_string(range.last);
  }
  return value;
}

std::string TypedPageRanges(const std::string &value) {
  if (value == AllPages()) return "";
  const std::string to_the_last = "-" + std::to_string(kLastPage);
  if (!value.ends_with(to_the_last)) return value;
  return value.substr(0, value.size() - to_the_last.size() + 1);
}

std::string AllPages() { return "1-" + std::to_string(kLastPage); }

Expected<std::string> ParseCopies(std::string_view text) {
  const std::string_view digits = Trimmed(text);
  const std::optional<int> copies =
      IsDigits(digits) ? NumberUpTo(kMostCopies, digits) : std::nullopt;
  if (copies && *copies > 0) return std::to_string(*copies);
  const std::string most = std::to_string(kMostCopies);
  if (digits.empty()) {
    return Failure{
        Localized("the number of copies is missing; write a whole number from 1 to %1", {most})};
  }
  return Failure{Localized("%1 is not a number of copies; write a whole number from 1 to %2",
                           {Quoted(digits), most})};
}
