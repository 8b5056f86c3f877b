// Ways out of conflicts.

#include <random>
#include <set>

#include "host/ppd/CupsOptions.h"
#include "host/ppd/Marks.h"
#include "tests/host/ppd/ThreeOptions.h"

TEST(PPDResolution, IsEmptyWithoutConflicts) {
  EXPECT_EQ(JobOptions{}, OpenText(NumberingPPDText(true)).Resolution({{"Duplex", "None"}}, ""));
}

TEST(PPDResolution, ChangesTheOtherOption) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  EXPECT_EQ((JobOptions{{"MediaType", "Plain"}}),
            ppd.Resolution(kBothSidesOfTransparencies, "Duplex"));
  EXPECT_EQ((JobOptions{{"Duplex", "None"}}),
            ppd.Resolution(kBothSidesOfTransparencies, "MediaType"));
}

TEST(PPDResolution, ChangesOneOfTheOptionsIfNoneIsToBeKept) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  for (const char *keep : {"", "VQBNSize", "copies", "VQAbsent"}) {
    const std::optional<JobOptions> changes = ppd.Resolution(kBothSidesOfTransparencies, keep);
    ASSERT_TRUE(changes) << keep;
    EXPECT_EQ(1u, changes->size()) << keep;
    EXPECT_EQ(Lines{}, Described(ppd.Conflicts(Changed(kBothSidesOfTransparencies, *changes))));
  }
}

TEST(PPDResolution, KeepsWhatANameOfEveryQueueStandsFor) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  EXPECT_EQ(
      (JobOptions{{"MediaType", "Plain"}}),
      ppd.Resolution({{"sides", "two-sided-long-edge"}, {"MediaType", "Transparency"}}, "sides"));
  const PPDFile sizes = OpenText(ThreeOptions("*UIConstraints: *PageSize A3 *VQ1 A\n"));
  for (const char *media : {"A3", "A3,Transparency"}) {
    EXPECT_EQ((JobOptions{{"VQ1", "Off"}}),
              sizes.Resolution({{"media", media}, {"VQ1", "A"}}, "media"))
        << media;
  }
}

TEST(PPDResolution, OverridesANameOfEveryQueue) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  EXPECT_EQ((JobOptions{{"Duplex", "None"}}),
            ppd.Resolution({{"sides", "two-sided-long-edge"}, {"MediaType", "Transparency"}},
                           "MediaType"));
}

TEST(PPDResolution, FollowsTheResolverOfTheFile) {
  const PPDFile ppd =
      OpenText(ThreeOptions(std::string(kNewConstraint) + "*cupsUIResolver vq: \"*VQ2 B\"\n"));
  EXPECT_EQ((JobOptions{{"VQ2", "B"}}), ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}}, "VQ1"));
}

TEST(PPDResolution, GoesBackToTheDefaultsWhereTheResolverDoesNotHelp) {
  for (const char *resolver :
       {"", "*cupsUIResolver vq: \"*VQ2 A\"\n", "*cupsUIResolver vq: \"*VQ2 Absent\"\n",
        "*cupsUIResolver vq: \"*VQ1 Off\"\n"}) {
    const PPDFile ppd = OpenText(ThreeOptions(std::string(kNewConstraint) + resolver));
    EXPECT_EQ((JobOptions{{"VQ2", "Off"}}), ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}}, "VQ1"))
        << resolver;
  }
}

TEST(PPDResolution, OfDefaultsChangesNoMoreThanItMust) {
  const std::string lines = std::string(kNewConstraint) + "*cupsUIResolver vq: \"*VQ2 A\"\n";
  const PPDFile ppd = OpenText(ThreeOptions(lines));
  const JobOptions job = {{"VQ1", "A"}, {"VQ2", "A"}};
  EXPECT_EQ((JobOptions{{"VQ2", "Off"}}), ppd.Resolution(job, ""));
  EXPECT_EQ((JobOptions{{"VQ1", "Off"}}), ppd.Resolution(job, "VQ2"));
}

TEST(PPDResolution, OfDefaultsLeavesOptionsAloneThatHaveNone) {
  const PPDFile ppd = OpenText(
      ThreeOptions(std::string(kNoDefault) +
                   "*cupsUIConstraints vq: \"*VQ1 A *VQ4 A\"\n*cupsUIResolver vq: \"*VQ4 A\"\n"));
  EXPECT_EQ((JobOptions{{"VQ1", "Off"}}), ppd.Resolution({{"VQ1", "A"}, {"VQ4", "A"}}, ""));
}

TEST(PPDResolution, KeepsAnOptionThatHasItsDefault) {
  const PPDFile ppd = OpenText(ThreeOptions(
      "*cupsUIConstraints vq: \"*VQ1 Off *VQ2 A\"\n*cupsUIResolver vq: \"*VQ1 A *VQ2 B\"\n"));
  EXPECT_EQ((JobOptions{{"VQ2", "B"}}), ppd.Resolution({{"VQ2", "A"}}, "VQ1"));
}

TEST(PPDResolution, KeepsAnOptionThatHasNoChoice) {
  const PPDFile ppd = OpenText(ThreeOptions(std::string(kNoDefault) + kNewConstraint +
                                            "*cupsUIResolver vq: \"*VQ4 A *VQ2 B\"\n"));
  EXPECT_EQ((JobOptions{{"VQ2", "B"}}), ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}}, "VQ4"));
}

TEST(PPDResolution, EndsSeveralConflictsAtOnce) {
  const PPDFile ppd =
      OpenText(ThreeOptions("*UIConstraints: *VQ1 A *VQ2 A\n"
                            "*UIConstraints: *VQ1 A *VQ3 A\n"));
  EXPECT_EQ((JobOptions{{"VQ2", "Off"}, {"VQ3", "Off"}}),
            ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}, {"VQ3", "A"}}, "VQ1"));
}

TEST(PPDResolution, ChangesThePageSizeAndNotThePageRegion) {
  const PPDFile ppd = OpenText(ThreeOptions("*UIConstraints: *PageRegion A3 *VQ1 A\n"));
  EXPECT_EQ((JobOptions{{"PageSize", "A4"}}),
            ppd.Resolution({{"PageSize", "A3"}, {"VQ1", "A"}}, "VQ1"));
  EXPECT_EQ((JobOptions{{"VQ1", "Off"}}),
            ppd.Resolution({{"PageSize", "A3"}, {"VQ1", "A"}}, "PageSize"));
}

TEST(PPDResolution, IsThereNoneWhereOnlyTheKeptOptionCouldChange) {
  const PPDFile alone = OpenText(ThreeOptions("*cupsUIConstraints: \"*VQ1 A\"\n"));
  EXPECT_EQ(std::nullopt, alone.Resolution({{"VQ1", "A"}}, "VQ1"));
  const PPDFile every =
      OpenText(ThreeOptions("*UIConstraints: *VQ1 A *VQ2 A\n"
                            "*UIConstraints: *VQ1 A *VQ2 B\n"
                            "*UIConstraints: *VQ1 A *VQ2 Off\n"));
  EXPECT_EQ(std::nullopt, every.Resolution({{"VQ1", "A"}}, "VQ1"));
}

TEST(PPDResolution, NeverChangesInstalledHardware) {
  const PPDFile ppd = OpenText(ThreeOptions(std::string(kTray) +
                                            "*cupsUIConstraints tray: \"*VQTray False *VQ1 A\"\n"
                                            "*cupsUIResolver tray: \"*VQTray True *VQ1 Off\"\n"));
  EXPECT_EQ(Lines{"VQTray=False/VQ1=A"}, Described(ppd.Conflicts({{"VQ1", "A"}})));
  EXPECT_EQ(std::nullopt, ppd.Resolution({{"VQ1", "A"}}, "VQ1"));
  EXPECT_EQ((JobOptions{{"VQ1", "Off"}}), ppd.Resolution({{"VQ1", "A"}}, ""));
}

TEST(PPDResolution, DoesNotDependOnThePageSizeOfTheJobBefore) {
  const PPDFile ppd =
      OpenText(ThreeOptions(std::string(kNewConstraint) +
                            "*cupsUIResolver vq: \"*VQ2 B\"\n"
                            "*UIConstraints: *PageSize A3 *VQ1 A\n*DefaultPageSize: Unknown\n"));
  EXPECT_EQ(1u, ppd.Conflicts({{"PageSize", "A3"}, {"VQ1", "A"}}).size());
  EXPECT_EQ((JobOptions{{"VQ2", "B"}}), ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}}, "VQ1"));
}

TEST(PPDResolution, EndsTheConflictsOrIsNone) {
  const PPDFile ppd = OpenText(ThreeOptions(
      "*UIConstraints: *VQ1 A *VQ2\n*UIConstraints: *VQ2 B *VQ3 A\n"
      "*cupsUIConstraints r: \"*VQ1 B *VQ2 *InputSlot Manual\"\n*cupsUIResolver r: \"*VQ1 A\"\n"
      "*cupsUIConstraints: \"*PageSize A3 *VQ1\"\n"));
  const std::vector<PPDOption> options = ppd.Options();
  std::mt19937 random(2);
  int resolved = 0;
  for (int round = 0; round < 300; ++round) {
    JobOptions job;
    for (const PPDOption &option : options) {
      if (random() % 2 == 0)
        job[option.keyword] = option.choices[random() % option.choices.size()].keyword;
    }
    const std::string keep = options[random() % options.size()].keyword;
    if (ppd.Conflicts(job).empty()) continue;
    const std::optional<JobOptions> changes = ppd.Resolution(job, keep);
    if (!changes) continue;
    ++resolved;
    ASSERT_FALSE(changes->empty());
    ASSERT_FALSE(changes->contains(keep));
    ASSERT_EQ(Lines{}, Described(ppd.Conflicts(Changed(job, *changes))));
  }
  EXPECT_GT(resolved, 50);
}
