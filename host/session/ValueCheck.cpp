#include "host/session/ValueCheck.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/job/CommonOptions.h"
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

// Until when a queue may hold a job, besides the times that it lists: HH:MM or HH:MM:SS.
constexpr char kTimeOfDay[] = "HH:MM";

bool IsTimeOfDay(std::string_view text) {
  constexpr std::string_view kHighest = "23:59:59";
  if (text.size() != kHighest.size() && text.size() != sizeof kTimeOfDay - 1) return false;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool is_digit = text[at] >= '0' && text[at] <= '9';
    if (at % 3 == 2 ? text[at] != ':' : !is_digit) return false;
    if (at % 3 == 0 && text.substr(at, 2) > kHighest.substr(at, 2)) return false;
  }
  return true;
}

// A sheet before the job, or one before and one behind: "standard", "none,standard".
constexpr char kBanners[] = "job-sheets";

std::vector<std::string> Parts(const std::string &value) {
  const size_t comma = value.find(',');
  if (comma == std::string::npos) return {value};
  return {value.substr(0, comma), value.substr(comma + 1)};
}

bool AreListed(const std::vector<std::string> &list, const std::vector<std::string> &values) {
  return std::ranges::all_of(values, [&list](const std::string &value) {
    return std::ranges::find(list, value) != list.end();
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

Failure HasOtherChoices(const PPDOption &option, const std::string &value) {
  const std::string wanted = option.keyword + " " + Quoted(value);
  if (option.choices.empty()) return Failure{Localized("this printer has no %1", {wanted})};
  return Failure{Localized("this printer has no %1; it has %2", {wanted, Listed(option.choices)})};
}

Failure HasNo(const std::string &what) {
  return Failure{Localized("this printer has no %1", {what})};
}

}  // namespace

ValueCheck::ValueCheck(const PPDFile *ppd, std::vector<Setting> settings,
                       std::set<std::string> claimed, std::set<std::string> printer_specific,
                       OfferedOptions offered)
    : ppd_(ppd),
      settings_(std::move(settings)),
      claimed_(std::move(claimed)),
      printer_specific_(std::move(printer_specific)),
      offered_(std::move(offered)) {}

const Setting *ValueCheck::SettingOf(const std::string &key) const {
  const auto found = std::ranges::find(settings_, key, &Setting::key);
  return found == settings_.end() ? nullptr : &*found;
}

bool ValueCheck::Knows(const std::string &key) const {
  return IsKeyOfText(key) || offered_.contains(key) || IsCommonOption(key);
}

bool ValueCheck::IsKeyOfText(const std::string &key) const {
  return SettingOf(key) != nullptr || claimed_.contains(key) ||
         (ppd_ != nullptr && ppd_->HasOption(key));
}

Expected<std::string> ValueCheck::FittingPanels(const std::string &key,
                                                const std::string &value) const {
  const Setting *setting = SettingOf(key);
  return setting == nullptr ? value : setting->Check(value);
}

std::string ValueCheck::NoteOfReplacing(const std::string &key, const std::string &value) const {
  const auto substitute = ppd_ == nullptr ? std::nullopt : ppd_->SubstituteFor(key, value);
  if (!substitute) return "";
  return Localized("this printer cannot do %1; it is now %2", {key + '=' + value, *substitute});
}

Expected<std::string> ValueCheck::Fitting(const std::string &key, const std::string &value) const {
  if (key == "copies") return ParseCopies(value);
  Expected<std::string> fitting =
      key == "page-ranges" ? ParsePageRanges(value) : FittingPanels(key, value);
  if (!fitting) return fitting;
  if (ppd_ != nullptr) fitting = ppd_->SubstituteFor(key, *fitting).value_or(*fitting);
  if (auto has = CheckPrinterHas(key, *fitting); !has) return has.failure();
  if (fitting->empty()) return Failure{Localized("it must have a value")};
  if (ToUtf8(*fitting) != *fitting) return Failure{Localized("it is not UTF-8")};
  return fitting;
}

Expected<void> ValueCheck::CheckQueueLists(const std::string &key, const std::string &value) const {
  const auto offered = offered_.find(key);
  if (offered == offered_.end() || offered->second.empty() || value.empty()) return {};
  if (AreListed(offered->second, key == kBanners ? Parts(value) : std::vector{value})) return {};
  const bool takes_time = key == "job-hold-until";
  if (takes_time && IsTimeOfDay(value)) return {};
  PPDOption option{.keyword = key};
  for (const std::string &listed : offered->second) option.choices.push_back({listed, listed});
  if (takes_time) option.choices.push_back({kTimeOfDay, kTimeOfDay});
  return HasOtherChoices(option, value);
}

Expected<void> ValueCheck::CheckPrinterHas(const std::string &key, const std::string &value) const {
  if (ppd_ != nullptr && ppd_->HasOption(key)) {
    if (ppd_->Allows(key, value)) return {};
    return HasOtherChoices(*ppd_->Option(key), value);
  }
  if (ppd_ != nullptr) {
    const std::string meant = ppd_->TakesUnfitCustomValue(key, value);
    if (!meant.empty()) return HasOtherChoices(*ppd_->Option(meant), value);
  }
  if (claimed_.contains(key)) return {};
  if (auto listed = CheckQueueLists(key, value); !listed) return listed;
  if (SettingOf(key) != nullptr || printer_specific_.contains(key)) return HasNo(key);
  return {};
}
