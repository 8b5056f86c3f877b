#include "host/session/panels/PanelRow.h"

#include <algorithm>

#include "host/job/CommonOptions.h"

namespace {

NSString *Searchable(const std::string &text) {
  NSString *string = [NSString stringWithUTF8String:text.c_str()];
  return string == nil ? @"" : string;
}

bool Contains(const std::string &text, NSString *part) {
  const NSStringCompareOptions any_letters = NSCaseInsensitiveSearch;
  return [Searchable(text) rangeOfString:part options:any_letters].location != NSNotFound;
}

Expected<void> SetAlone(JobSession &session, const std::string &option, const std::string &value) {
  Expected<JobOptions> own = session.OwnOptions();
  if (!own) return own.failure();
  if (auto done = session.Set(option, value); !done) return done;
  for (const auto &[name, other] : *own) {
    if (name == option || !IsSameThing(name, option)) continue;
    if (auto done = session.Set(name, ""); !done) return done;
  }
  return {};
}

}  // namespace

std::string PanelRow::ValueIn(const JobOptions &job) const {
  return value ? value(job) : ValueOr(job, Option(), usual);
}

Expected<void> PanelRow::Choose(JobSession &session, const std::string &chosen) const {
  return choose ? choose(session, chosen) : SetAlone(session, Option(), chosen);
}

std::string PanelRow::WhyGray(const JobOptions &job) const { return why_gray ? why_gray(job) : ""; }

std::string PanelRow::TextOf(const std::string &keyword) const {
  const auto found = std::ranges::find(choices, keyword, &PPDChoice::keyword);
  return found == choices.end() ? keyword : found->text;
}

bool PanelRow::Has(const std::string &text) const {
  NSString *part = Searchable(text);
  if ([part length] == 0 || Contains(caption, part) || Contains(group, part)) return true;
  return std::ranges::any_of(
      choices, [part](const PPDChoice &choice) { return Contains(choice.text, part); });
}

PanelRow RowOfPrinterOption(const PPDOption &option) {
  return {.name = option.keyword,
          .caption = option.text,
          .usual = option.default_choice,
          .choices = option.choices,
          .group = option.group,
          .choose = [keyword = option.keyword](JobSession &session, const std::string &choice) {
            return session.ChangeOption(keyword, choice);
          }};
}

Expected<JobOptions> JobAsItStands(const JobSession &session) {
  Expected<JobOptions> choices = session.Choices();
  if (!choices) return choices;
  Expected<JobOptions> options = session.Options();
  if (!options) return options;
  choices->merge(*options);
  return choices;
}

std::string ValueOr(const JobOptions &job, const std::string &key, const std::string &otherwise) {
  const auto found = job.find(key);
  return found == job.end() ? otherwise : found->second;
}
