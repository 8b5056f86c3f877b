#include "host/command/PortalsFile.h"

#include <gtest/gtest.h>

namespace {

const char kOurs[] = "[preferred]\norg.freedesktop.impl.portal.Print=pdeprint\n";

}  // namespace

TEST(PortalsFile, OfNothingNamesPrintingAlone) {
  EXPECT_EQ(kOurs, WithPdeprint(""));
  EXPECT_TRUE(PrefersPdeprint(kOurs));
  EXPECT_EQ("", WithoutPdeprint(kOurs));
}

TEST(PortalsFile, WithItEverythingElseStays) {
  const std::string before =
      "# mine\n[other]\norg.freedesktop.impl.portal.Print=x\n\n[preferred]\ndefault=gnome;gtk;\n";
  const std::string with = WithPdeprint(before);
  EXPECT_EQ(
      "# mine\n[other]\norg.freedesktop.impl.portal.Print=x\n\n[preferred]\n"
      "org.freedesktop.impl.portal.Print=pdeprint\ndefault=gnome;gtk;\n",
      with);
  EXPECT_FALSE(PrefersPdeprint(before));
  EXPECT_TRUE(PrefersPdeprint(with));
  EXPECT_EQ(with, WithPdeprint(with));
  EXPECT_EQ(before, WithoutPdeprint(with));
}

// The portal of 1.17 does not look at the order of several.
TEST(PortalsFile, WhoPrintedBeforeIsKeptInAComment) {
  const std::string before =
      "[preferred]\norg.freedesktop.impl.portal.Print = gtk;gnome\ndefault=gtk\n[x]\na=b\n";
  const std::string with = WithPdeprint(before);
  EXPECT_EQ(
      "[preferred]\norg.freedesktop.impl.portal.Print=pdeprint\n"
      "#pdeprint: org.freedesktop.impl.portal.Print = gtk;gnome\ndefault=gtk\n[x]\na=b\n",
      with);
  EXPECT_TRUE(PrefersPdeprint(with));
  EXPECT_EQ(before, WithoutPdeprint(with));
}

TEST(PortalsFile, OfSeveralLinesTheLastOneCounts) {
  const std::string later = std::string(kOurs) + "org.freedesktop.impl.portal.Print=gtk\n";
  EXPECT_FALSE(PrefersPdeprint(later));
  EXPECT_TRUE(PrefersPdeprint(WithPdeprint(later)));
  EXPECT_TRUE(PrefersPdeprint("[preferred]\r\n org.freedesktop.impl.portal.Print = pdeprint; "));
}

// The portal reads no other file once it has found a group with preferences.
TEST(PortalsFile, HasPreferencesWhereItsGroupHasKeys) {
  EXPECT_TRUE(HasPreferences("[preferred]\n\ndefault=gtk"));
  for (const char *without : {"", "[preferred]\n", "[preferred]\n#default=gtk\n",
                              "[other]\ndefault=gtk\n", "default=gtk"}) {
    EXPECT_FALSE(HasPreferences(without)) << without;
  }
}

TEST(PortalsFile, WithoutItNoEmptyGroupStays) {
  EXPECT_EQ("[other]\na=b\n", WithoutPdeprint("[other]\na=b\n" + std::string(kOurs)));
  EXPECT_EQ("[preferred]\ndefault=gtk", WithoutPdeprint("[preferred]\ndefault=gtk"));
}

TEST(PortalsFile, ALastLineWithoutEndGetsOne) {
  EXPECT_EQ("[x]\na=b\n" + std::string(kOurs), WithPdeprint("[x]\na=b"));
}
