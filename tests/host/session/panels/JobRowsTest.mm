#include "tests/host/session/panels/RowsOfJob.h"

OBJC_TEST(JobRows, AreThoseThatTheQueueOffers) {
  EXPECT_EQ((Names{"Banner Before", "Banner After", "job-hold-until", "job-priority"}),
            RowsOfJob(JobRows, ColorPPD()).names());
  EXPECT_EQ(Names(), RowsOfJob(JobRows, ColorPPD(), {}).names()) << "a printer from a file";
  OfferedOptions offered = kOffered;
  offered.erase("number-up");
  EXPECT_EQ((Names{"job-hold-until", "job-priority"}),
            RowsOfJob(JobRows, std::nullopt, offered).names())
      << "nobody makes a banner for a queue that lays nothing out";
}

OBJC_TEST(JobRows, ABannerIsChosenForEachEndOfTheJob) {
  RowsOfJob panel(JobRows, ColorPPD(), kOffered, {{"job-sheets", "none,standard"}});
  EXPECT_EQ("none", panel.Value("Banner Before"));
  EXPECT_EQ("standard", panel.Value("Banner After"));
  EXPECT_TRUE(panel.Choose("Banner Before", "house"));
  EXPECT_EQ("house,standard", panel.session.Value("job-sheets"));
  EXPECT_TRUE(panel.Choose("Banner After", "none"));
  EXPECT_EQ("house,none", panel.session.Value("job-sheets"));
  EXPECT_TRUE(panel.session.CheckPrintable());
}

OBJC_TEST(JobRows, OneBannerIsThatBeforeTheJob) {
  const RowsOfJob panel(JobRows, ColorPPD(), kOffered, {{"job-sheets", "standard"}});
  EXPECT_EQ("standard", panel.Value("Banner Before"));
  EXPECT_EQ("none", panel.Value("Banner After"));
}

OBJC_TEST(JobRows, WhatTheServerHasOfItsOwnGoesByItsName) {
  const RowsOfJob panel(JobRows, ColorPPD());
  EXPECT_EQ("house", panel["Banner Before"].TextOf("house"));
  EXPECT_EQ("Standard", panel["Banner Before"].TextOf("standard"));
  EXPECT_EQ("22:30", panel["job-hold-until"].TextOf("22:30"));
}

OBJC_TEST(JobRows, AccountsAreAskedForWhereTheServerTakesThem) {
  OfferedOptions offered = kOffered;
  offered["job-account-id"] = {};
  offered["job-billing"] = {};
  RowsOfJob panel(JobRows, ColorPPD(), offered);
  EXPECT_EQ((Names{"Banner Before", "Banner After", "job-hold-until", "job-priority",
                   "job-account-id", "job-billing"}),
            panel.names());
  EXPECT_EQ("", panel.Value("job-account-id"));
  EXPECT_TRUE(panel.Choose("job-account-id", " 4711 "));
  EXPECT_EQ("4711", panel.session.Value("job-account-id"));
  EXPECT_TRUE(panel.Choose("job-account-id", " "));
  EXPECT_FALSE(panel.session.OwnOptions()->contains("job-account-id"));
}
