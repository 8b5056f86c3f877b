#include "numbering/Choices.h"

#include <gtest/gtest.h>

using numbering::Choices;
using numbering::Choose;
using numbering::Placement;

TEST(Choices, AreThoseThatAnOptionNames) {
  Choices choices;
  EXPECT_TRUE(Choose(choices, "VQBackgroundNumbering", "On"));
  EXPECT_TRUE(Choose(choices, "VQBNSize", "Large"));
  EXPECT_TRUE(Choose(choices, "VQBNDensity", "Light"));
  EXPECT_TRUE(Choose(choices, "VQBNColor", "Cyan"));
  EXPECT_TRUE(Choose(choices, "VQStartNumber", "999"));
  EXPECT_TRUE(Choose(choices, "VQBNPlacement", "Over"));
  EXPECT_TRUE(choices.on);
  EXPECT_EQ(choices.size, 1);
  EXPECT_EQ(choices.density, .18);
  EXPECT_EQ(choices.ink.keyword, "Cyan");
  EXPECT_EQ(choices.start, 999);
  EXPECT_EQ(choices.placement, Placement::Over);
}

TEST(Choices, WithoutAnyNothingIsNumbered) { EXPECT_FALSE(Choices().on); }

TEST(Choices, SwitchingOffTakesBackSwitchingOn) {
  Choices choices;
  Choose(choices, "VQBackgroundNumbering", "On");
  EXPECT_TRUE(Choose(choices, "VQBackgroundNumbering", "Off"));
  EXPECT_FALSE(choices.on);
}

TEST(Choices, ArePutInAnyCaseAsThePrintSystemTakesThem) {
  Choices choices;
  EXPECT_TRUE(Choose(choices, "vqbackgroundnumbering", "ON"));
  EXPECT_TRUE(Choose(choices, "VQBNSIZE", "small"));
  EXPECT_TRUE(choices.on);
  EXPECT_EQ(choices.size, .36);
}

TEST(Choices, WhatIsNoneChangesNothing) {
  Choices choices;
  choices.start = 7;
  for (const char *text : {"", "0", "1000", "025", "+5", " 5", "5 ", "5x", "99999999999999"}) {
    EXPECT_FALSE(Choose(choices, "VQStartNumber", text)) << text;
  }
  EXPECT_EQ(choices.start, 7);
  EXPECT_FALSE(Choose(choices, "VQBackgroundNumbering", "True"));
  EXPECT_FALSE(Choose(choices, "VQBNSize", "Huge"));
  EXPECT_FALSE(Choose(choices, "VQBNDensity", ""));
  EXPECT_FALSE(Choose(choices, "VQBNColor", "Purple"));
  EXPECT_FALSE(Choose(choices, "VQBNPlacement", "Beside"));
  EXPECT_FALSE(Choose(choices, "PageSize", "A4"));
  EXPECT_FALSE(choices.on);
}

TEST(Choices, NumbersGoOnBeyondTheLargestStart) {
  Choices choices;
  choices.start = 999;
  EXPECT_EQ(choices.NumberOf(0), 999u);
  EXPECT_EQ(choices.NumberOf(2), 1001u);
}
