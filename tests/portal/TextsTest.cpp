#include "portal/Texts.h"

#include <gtest/gtest.h>

TEST(CleanText, IsOneLineWithoutBlanksAround) {
  EXPECT_EQ("Annual report 2026", CleanText("  Annual\n\treport \r\n 2026\u2028"));
  EXPECT_EQ("", CleanText("\n \x7f\u0085"));
}

TEST(CleanText, LosesWhatNobodySees) {
  EXPECT_EQ("fdp.exe", CleanText("\u202e\u200bfdp\u2066.e\u00adxe\ufeff"));
}

TEST(CleanText, KeepsTextsOfAllLanguages) {
  EXPECT_EQ("Übersicht 報告 تقرير 🖨", CleanText("Übersicht 報告 تقرير 🖨"));
}

TEST(CleanText, IsUtf8WhateverComes) { EXPECT_EQ("\u00ff\u00e9", CleanText("\xff\xe9")); }

TEST(CleanText, IsCutShortBetweenCharacters) {
  std::string text;
  for (int count = 0; count < 300; ++count) text += "é";
  const std::string clean = CleanText(text);
  EXPECT_EQ(200 + std::string("\u2026").size(), clean.size());
  EXPECT_TRUE(clean.ends_with("é\u2026"));
  EXPECT_LT(CleanText(std::string(10'000'000, 'x')).size(), 210U);
}

TEST(CleanLabel, HasNoMarksOfMnemonics) {
  EXPECT_EQ("Print", CleanLabel("_Print"));
  EXPECT_EQ("Print_all", CleanLabel("Print__all"));
  EXPECT_EQ("Print_", CleanLabel("Print_"));
}

TEST(CleanParent, IsAWindowOfX) {
  EXPECT_EQ("x11:a00007", CleanParent("x11:a00007"));
  EXPECT_EQ("x11:A00007", CleanParent("x11:0xA00007"));
  for (const char *other :
       {"", "x11:", "x11:xyz", "x11:0x", "x11:1234567890", "wayland:abc", "x11:1 --ppd", "X11:1"}) {
    EXPECT_EQ("", CleanParent(other)) << other;
  }
}

TEST(IsApplicationName, IsTrueForNamesOfDesktopFilesAlone) {
  EXPECT_TRUE(IsApplicationName("org.gnome.Evince"));
  EXPECT_TRUE(IsApplicationName("my-app_2"));
  for (const char *other : {"", ".hidden", "../x", "a/b", "a b", "-x"}) {
    EXPECT_FALSE(IsApplicationName(other)) << other;
  }
}

TEST(IsQueueName, IsTrueForWhatTheServerTakes) {
  EXPECT_TRUE(IsQueueName("Office"));
  EXPECT_TRUE(IsQueueName("Büro-2"));
  for (const char *other : {"", "-d", "a b", "a/b", "a#b", "a\"b", "a'b", "a\\b"}) {
    EXPECT_FALSE(IsQueueName(other)) << other;
  }
  EXPECT_FALSE(IsQueueName(std::string(128, 'x')));
}
