#include "host/dialog/TypedOption.h"

#include "tests/host/session/SessionOfJob.h"

namespace {

// What the job option is set to after this was typed; "" is not set, "?" a failure.
std::string Taken(const TypedOption &option, const std::string &text, const JobOptions &defaults,
                  const JobOptions &set = {}) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, defaults));
  for (const auto &[name, value] : set) EXPECT_TRUE(session.Set(name, value));
  const Expected<std::string> value = option.parse(text);
  if (!value || !option.Set(*value, session)) return "?";
  const JobOptions own = SettingsOf(session);
  const auto found = own.find(option.name);
  return found == own.end() ? "" : found->second;
}

}  // namespace

OBJC_TEST(TypedOption, ShowsWhatTheJobHasOrTheUsual) {
  EXPECT_EQ("1", kCopiesOption.TextIn({}));
  EXPECT_EQ("3", kCopiesOption.TextIn({{"copies", "3"}}));
  EXPECT_EQ("", kPagesOption.TextIn({{"copies", "3"}}));
  EXPECT_EQ("2-4,7-7", kPagesOption.TextIn({{"page-ranges", "2-4,7-7"}}));
}

OBJC_TEST(TypedOption, ShowsNoTextWhereAllPagesAreAskedFor) {
  EXPECT_EQ("", kPagesOption.TextIn({{"page-ranges", kPagesOption.instead()}}));
}

OBJC_TEST(TypedOption, SetsWhatTheJobDoesNotHaveAlready) {
  EXPECT_EQ("3", Taken(kCopiesOption, " 3 ", {}));
  EXPECT_EQ("2-4", Taken(kPagesOption, "2-4", {}));
  EXPECT_EQ("", Taken(kCopiesOption, "1", {})) << "the usual";
  EXPECT_EQ("", Taken(kCopiesOption, "2", {{"copies", "2"}})) << "the queue's default";
  EXPECT_EQ("1", Taken(kCopiesOption, "1", {{"copies", "2"}}));
  EXPECT_EQ("1", Taken(kCopiesOption, "1", {}, {{"copies", "2"}}));
}

OBJC_TEST(TypedOption, TakesTheOptionAwayWhereNothingIsTyped) {
  EXPECT_EQ("", Taken(kPagesOption, "", {}, {{"page-ranges", "2-4"}}));
}

OBJC_TEST(TypedOption, AsksForAllPagesWhereTheQueueHasFewer) {
  EXPECT_EQ(kPagesOption.instead(), Taken(kPagesOption, "", {{"page-ranges", "1-2"}}));
  EXPECT_EQ(kPagesOption.instead(),
            Taken(kPagesOption, " ", {{"page-ranges", "1-2"}}, {{"page-ranges", "5-5"}}));
}

OBJC_TEST(TypedOption, RefusesWhatCannotBeRead) {
  EXPECT_EQ("?", Taken(kCopiesOption, "", {}));
  EXPECT_EQ("?", Taken(kCopiesOption, "0", {}));
  EXPECT_EQ("?", Taken(kPagesOption, "5-3", {}));
}

OBJC_TEST(TypedOption, LeavesALockedOptionAsItIsAndSaysSo) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  PMPrintSettingsSetValue(session.settings(), (CFStringRef) @"copies", (CFTypeRef) @"2", true);
  EXPECT_TRUE(kCopiesOption.Set("2", session)) << "nothing is changed";
  EXPECT_NE("", MessageOf(kCopiesOption.Set("3", session)));
  EXPECT_EQ("2", SettingsOf(session)["copies"]);
}
