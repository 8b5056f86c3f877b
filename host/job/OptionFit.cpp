#include "host/job/OptionFit.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/job/PageRanges.h"

namespace {

std::optional<int> WholeNumber(const std::string &text) {
  int number = 0;
  const char *const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (error != std::errc() || end != last || std::to_string(number) != text) return std::nullopt;
  return number;
}

// Whether every choice is a number, one more than the one before.
bool AreConsecutiveNumbers(const std::vector<PPDChoice> &choices) {
  std::optional<int> last;
  return std::ranges::all_of(choices, [&](const PPDChoice &choice) {
    const std::optional<int> number = WholeNumber(choice.keyword);
    const bool follows = number && (!last || (*last < *number && *number - *last == 1));
    last = number;
    return follows;
  });
}

std::string Listed(const std::vector<PPDChoice> &choices) {
  constexpr size_t kShortList = 3;
  constexpr size_t kLongestList = 12;
  constexpr size_t kShownOfLonger = 8;
  if (choices.size() > kShortList && AreConsecutiveNumbers(choices)) {
    return Localized("%1 to %2", {choices.front().keyword, choices.back().keyword});
  }
  const size_t shown = choices.size() > kLongestList ? kShownOfLonger : choices.size();
  std::string list;
  for (size_t at = 0; at < shown; ++at) {
    list += (at == 0 ? "" : ", ") + ToUtf8(choices[at].keyword);
  }
  if (shown == choices.size()) return list;
  return LocalizedCount("%1 and %2 more", {list}, choices.size() - shown);
}

Failure NoChoice(const PPDOption &option, const std::string &value) {
  const std::string wanted = option.keyword + " " + Quoted(value);
  if (option.choices.empty()) return Failure{Localized("this printer has no %1", {wanted})};
  return Failure{Localized("this printer has no %1; it has %2", {wanted, Listed(option.choices)})};
}

// Whether it is a value, whatever comes of it.
Expected<void> Check(const Expected<std::string> &parsed) {
  if (!parsed) return parsed.failure();
  return {};
}

Expected<void> CheckFit(const std::string &keyword, const std::string &value, const PPDFile *ppd,
                        const std::set<std::string> &printer_specific) {
  if (keyword == "copies") return Check(ParseCopies(value));
  if (keyword == "page-ranges") return Check(ParsePageRanges(value));
  if (ppd != nullptr && ppd->HasOption(keyword)) {
    if (ppd->Allows(keyword, value)) return {};
    return NoChoice(*ppd->Option(keyword), value);
  }
  if (ppd != nullptr) {
    const std::string meant = ppd->TakesUnfitCustomValue(keyword, value);
    if (!meant.empty()) return NoChoice(*ppd->Option(meant), value);
  }
  if (!printer_specific.contains(keyword)) return {};
  return Failure{Localized("this printer has no %1", {keyword})};
}

}  // namespace

std::vector<UnfitOption> UnfitOptions(const JobOptions &options, const PPDFile *ppd,
                                      const std::set<std::string> &printer_specific) {
  std::vector<UnfitOption> unfit;
  for (const auto &[keyword, value] : options) {
    Expected<void> fits = CheckFit(keyword, value, ppd, printer_specific);
    if (!fits) unfit.push_back({keyword, value, fits.message()});
  }
  return unfit;
}
