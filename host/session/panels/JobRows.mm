#include <utility>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/session/panels/PanelRows.h"
#include "host/session/panels/RowChoices.h"

namespace {

constexpr char kBanners[] = "job-sheets";
constexpr char kNoBanner[] = "none";

// Before the job and behind it.
using Banners = std::pair<std::string, std::string>;

Banners BannersOf(const JobOptions &job) {
  const std::string value = ValueOr(job, kBanners, kNoBanner);
  const size_t comma = value.find(',');
  if (comma == std::string::npos) return {value, kNoBanner};
  return {value.substr(0, comma), value.substr(comma + 1)};
}

PanelRow BannerRow(const JobSession &session, const std::string &caption,
                   std::string Banners::*which) {
  return {.name = caption,
          .caption = caption,
          .option = kBanners,
          .usual = kNoBanner,
          .choices = OfferedChoices(session, kBanners,
                                    {{kNoBanner, Localized("No Banner")},
                                     {"standard", Localized("Standard")},
                                     {"classified", Localized("Classified")},
                                     {"confidential", Localized("Confidential")},
                                     {"secret", Localized("Secret")},
                                     {"topsecret", Localized("Top Secret")},
                                     {"unclassified", Localized("Unclassified")}}),
          .value = [which](const JobOptions &job) { return BannersOf(job).*which; },
          .choose = [which](JobSession &of_job, const std::string &banner) -> Expected<void> {
            Expected<JobOptions> job = of_job.Options();
            if (!job) return job.failure();
            Banners banners = BannersOf(*job);
            banners.*which = banner;
            return of_job.Set(kBanners, banners.first + ',' + banners.second);
          }};
}

PanelRow TimeRow(const JobSession &session) {
  return {.name = "job-hold-until",
          .caption = Localized("Printing Time"),
          .usual = "no-hold",
          .choices = OfferedChoices(session, "job-hold-until",
                                    {{"no-hold", Localized("At Once")},
                                     {"indefinite", Localized("When Released")},
                                     {"day-time", Localized("By Day")},
                                     {"evening", Localized("In the Evening")},
                                     {"night", Localized("At Night")},
                                     {"second-shift", Localized("In the Second Shift")},
                                     {"third-shift", Localized("In the Third Shift")},
                                     {"weekend", Localized("At the Weekend")}})};
}

PanelRow PriorityRow() {
  return {.name = "job-priority",
          .caption = Localized("Priority"),
          .usual = "50",
          .choices = {{"25", Localized("Low")},
                      {"50", Localized("Medium")},
                      {"75", Localized("High")},
                      {"100", Localized("Urgent")}}};
}

PanelRow TypedRow(const std::string &option, const std::string &caption) {
  return {.name = option,
          .caption = caption,
          .choose = [option](JobSession &session, const std::string &text) {
            return session.Set(option, std::string(Trimmed(text)));
          }};
}

}  // namespace

PanelRows JobRows(const JobSession &session) {
  PanelRows rows;
  const OfferedOptions &offered = session.offered();
  const auto lists = [&offered](const char *option) {
    const auto found = offered.find(option);
    return found != offered.end() && found->second.size() > 1;
  };
  if (LaysOutPages(session) && lists(kBanners)) {
    rows.push_back(BannerRow(session, Localized("Banner Before"), &Banners::first));
    rows.push_back(BannerRow(session, Localized("Banner After"), &Banners::second));
  }
  if (lists("job-hold-until")) rows.push_back(TimeRow(session));
  if (offered.contains("job-priority")) rows.push_back(PriorityRow());
  // Only some servers ask for these.
  for (const auto &[option, caption] : {std::pair("job-account-id", Localized("Account")),
                                        {"job-accounting-user-id", Localized("Account User")},
                                        {"job-billing", Localized("Billing")}}) {
    if (offered.contains(option)) rows.push_back(TypedRow(option, caption));
  }
  return rows;
}
