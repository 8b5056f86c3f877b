// The outlines that the project carries are those of the font they are said to be of.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "tests/support/TemporaryFolder.h"

#ifdef MAKE_DIGITS
#include "tests/support/RunProgram.h"

namespace {

// Lines are broken as the project's sources are.
std::string WithoutSpace(std::string text) {
  std::erase_if(text, [](unsigned char character) { return std::isspace(character); });
  size_t comma = 0;
  while ((comma = text.find(",}", comma)) != std::string::npos) text.erase(comma, 1);
  return text;
}

}  // namespace

TEST(Digits, AreThoseOfTheFont) {
  std::string font;
  for (const char *folder : {"liberation2", "liberation"}) {
    const auto file = std::filesystem::path("/usr/share/fonts/truetype") / folder;
    if (exists(file / "LiberationSans-Bold.ttf")) font = file / "LiberationSans-Bold.ttf";
    if (!font.empty()) break;
  }
  ASSERT_NE(font, "") << "the package fonts-liberation2 is missing";
  const RunResult result = RunProgram({MAKE_DIGITS, font});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(WithoutSpace(result.out),
            WithoutSpace(ContentOf(SOURCE_DIRECTORY "/numbering/Digits.cpp")));
}

TEST(Digits, WhatIsNoFontIsTold) {
  const RunResult result = RunProgram({MAKE_DIGITS, SOURCE_DIRECTORY "/README.md"});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("usage: make-digits FONT"), std::string::npos) << result.err;
}
#endif

TEST(Digits, TheirLicenseIsBesideThem) {
  const std::string license = ContentOf(SOURCE_DIRECTORY "/numbering/OFL.txt");
  EXPECT_NE(license.find("SIL OPEN FONT LICENSE Version 1.1"), std::string::npos);
  EXPECT_NE(license.find("Copyright (c) 2012 Red Hat, Inc."), std::string::npos);
}
