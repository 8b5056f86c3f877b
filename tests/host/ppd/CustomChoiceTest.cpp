#include "host/ppd/CustomChoice.h"

#include <gtest/gtest.h>

#include "host/ppd/PPDFile.h"
#include "tests/support/TestPPD.h"

namespace {

constexpr char kCustomPageSize[] =
    "*CustomPageSize True: \"pop pop pop <</PageSize[5 -2 roll]>>setpagedevice\"\n"
    "*ParamCustomPageSize Width: 1 points 100 900\n"
    "*ParamCustomPageSize Height: 2 points 200 1200\n"
    "*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
    "*ParamCustomPageSize HeightOffset: 4 points 0 0\n"
    "*ParamCustomPageSize Orientation: 5 int 0 0\n";

// An option that takes custom values of one parameter with this type and these limits.
std::string WithParameter(const std::string &type_and_limits) {
  return "*OpenUI *VQTest/Test: PickOne\n*DefaultVQTest: A\n*VQTest A/A: \"\"\n*CloseUI: *VQTest\n"
         "*CustomVQTest True: \"pop\"\n*ParamCustomVQTest Value: 1 " +
         type_and_limits + "\n";
}

class CustomChoice : public testing::Test {
 protected:
  static bool Allows(const std::string &lines, const std::string &option,
                     const std::string &choice) {
    TestPPD ppd(lines);
    Expected<PPDFile> opened = PPDFile::Open(ppd.path());
    return opened && opened->Allows(option, choice);
  }
  static bool Allows(const std::string &type_and_limits, const std::string &choice) {
    return Allows(WithParameter(type_and_limits), "VQTest", choice);
  }
};

}  // namespace

TEST_F(CustomChoice, IsAllowedOnlyWhereTheFileSaysSo) {
  EXPECT_FALSE(Allows("", "PageSize", "Custom.300x400"));
  EXPECT_TRUE(Allows(kCustomPageSize, "PageSize", "Custom.300x400"));
  EXPECT_FALSE(Allows(kCustomPageSize + WithParameter("int 1 9"), "VQAbsent", "Custom.5"));
}

TEST_F(CustomChoice, OfPageSizesTakesUnits) {
  for (const char *size :
       {"Custom.300x400", "Custom.300.5x400pt", "Custom.8.5x11in", "Custom.1x1ft",
        "Custom.210x297mm", "Custom.21x29.7cm", "Custom..2x.2m"}) {
    EXPECT_TRUE(Allows(kCustomPageSize, "PageSize", size)) << size;
  }
}

TEST_F(CustomChoice, OfPageSizesHasTwoLengthsAndAUnit) {
  for (const char *size :
       {"Custom", "Custom.", "Custom.300", "Custom.300x", "Custom.x400", "Custom.300x400xx",
        "Custom.300x400 ", "Custom.300X400", "Custom.-300x400", "Custom.300x-400", "Custom.nanx400",
        "Custom.infx400", "Custom.300mmx400mm", "custom.300x400"}) {
    EXPECT_FALSE(Allows(kCustomPageSize, "PageSize", size)) << size;
  }
}

TEST_F(CustomChoice, OfPageSizesIsWithinTheLimits) {
  EXPECT_TRUE(Allows(kCustomPageSize, "PageSize", "Custom.100x200"));
  EXPECT_TRUE(Allows(kCustomPageSize, "PageSize", "Custom.900x1200"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageSize", "Custom.99x300"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageSize", "Custom.300x199"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageSize", "Custom.901x300"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageSize", "Custom.300x1201"));
}

TEST_F(CustomChoice, OfPageSizesMayBeRoundedToPoints) {
  const std::string a4 =
      "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 100 595\n"
      "*ParamCustomPageSize Height: 2 points 200 842\n";
  EXPECT_TRUE(Allows(a4, "PageSize", "Custom.210x297mm"));
  EXPECT_FALSE(Allows(a4, "PageSize", "Custom.211x297mm"));
}

TEST_F(CustomChoice, OfPageRegionsIsAsOfPageSizes) {
  EXPECT_TRUE(Allows(kCustomPageSize, "PageRegion", "Custom.300x400"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageRegion", "Custom.300"));
}

TEST_F(CustomChoice, OfPageSizesWithoutLimitsIsAnySize) {
  const std::string no_limits = "*CustomPageSize True: \"pop\"\n";
  EXPECT_TRUE(Allows(no_limits, "PageSize", "Custom.9000x9000"));
  for (const char *size : {"Custom.0x9000", "Custom.9000x0", "Custom.infxinf", "Custom.nanxnan"}) {
    EXPECT_FALSE(Allows(no_limits, "PageSize", size)) << size;
  }
}

TEST_F(CustomChoice, IsNotListed) {
  TestPPD ppd(kCustomPageSize);
  Expected<PPDFile> opened = PPDFile::Open(ppd.path());
  ASSERT_TRUE(opened);
  const std::optional<PPDOption> option = opened->Option("PageSize");
  ASSERT_TRUE(option);
  ASSERT_EQ(1u, option->choices.size());
  EXPECT_EQ("A4", option->choices.front().keyword);
}

TEST_F(CustomChoice, MayBeTheDefault) {
  TestPPD ppd(std::string(kCustomPageSize) + "*DefaultPageSize: Custom.300x400\n");
  Expected<PPDFile> opened = PPDFile::Open(ppd.path());
  ASSERT_TRUE(opened);
  EXPECT_EQ("Custom.300x400", opened->Option("PageSize")->default_choice);
}

TEST_F(CustomChoice, OfWholeNumbers) {
  EXPECT_TRUE(Allows("int 1 999", "Custom.1"));
  EXPECT_TRUE(Allows("int 1 999", "Custom.999"));
  for (const char *choice : {"Custom.0", "Custom.1000", "Custom.1.5", "Custom.", "Custom.x",
                             "Custom.5x", "Custom.99999999999", "Custom"}) {
    EXPECT_FALSE(Allows("int 1 999", choice)) << choice;
  }
}

TEST_F(CustomChoice, OfRealNumbers) {
  for (const char *type : {"real 0.5 2.5", "curve 0.5 2.5", "invcurve 0.5 2.5"}) {
    EXPECT_TRUE(Allows(type, "Custom.1.25")) << type;
    EXPECT_FALSE(Allows(type, "Custom.0.25")) << type;
    EXPECT_FALSE(Allows(type, "Custom.2.75")) << type;
    EXPECT_FALSE(Allows(type, "Custom.1x")) << type;
  }
}

TEST_F(CustomChoice, OfLengths) {
  EXPECT_TRUE(Allows("points 10 720", "Custom.10in"));
  EXPECT_FALSE(Allows("points 10 720", "Custom.11in"));
  EXPECT_FALSE(Allows("points 10 720", "Custom.5"));
  EXPECT_FALSE(Allows("points 10 720", "Custom.1yd"));
}

TEST_F(CustomChoice, OfTextsIsWithinTheirLengths) {
  for (const char *type : {"string 2 4", "password 2 4"}) {
    EXPECT_TRUE(Allows(type, "Custom.ab")) << type;
    EXPECT_TRUE(Allows(type, "Custom.a c4")) << type;
    EXPECT_FALSE(Allows(type, "Custom.a")) << type;
    EXPECT_FALSE(Allows(type, "Custom.abcde")) << type;
  }
  EXPECT_TRUE(Allows("passcode 2 4", "Custom.1234"));
  EXPECT_FALSE(Allows("passcode 2 4", "Custom.12a4"));
  EXPECT_FALSE(Allows("passcode 2 4", "Custom.12345"));
}

TEST_F(CustomChoice, OfTextsWithoutAGreatestLengthIsAnythingButEmpty) {
  EXPECT_TRUE(Allows("string 0 0", "Custom.abc"));
  EXPECT_FALSE(Allows("string 0 0", "Custom."));
}

TEST_F(CustomChoice, WithoutParametersIsAnything) {
  EXPECT_TRUE(
      Allows("*OpenUI *VQTest/Test: PickOne\n*VQTest A/A: \"\"\n*CloseUI: *VQTest\n"
             "*CustomVQTest True: \"pop\"\n",
             "VQTest", "Custom.abc"));
}

// libcups sends it as a string of PostScript and leaves backslashes as they are.
TEST_F(CustomChoice, OfTextsHasNoBackslash) {
  for (const char *type : {"string 0 99", "password 0 99"}) {
    EXPECT_TRUE(Allows(type, "Custom.1) showpage (\n%!PS <41> /x")) << type;
    EXPECT_FALSE(Allows(type, "Custom.a\\")) << type;
    EXPECT_FALSE(Allows(type, "Custom.a\\b")) << type;
    EXPECT_FALSE(Allows(type, "{Value='a\\\\'}")) << type;
  }
}

// There libcups sends it as it is.
TEST_F(CustomChoice, OfTextsOutsideOfThePostScriptHasNothingThatCouldEndIt) {
  const std::string lines = WithParameter("string 0 99");
  const std::string end = "*CloseUI";
  std::vector<std::string> files;
  for (const std::string section : {"JCLSetup", "ExitServer"}) {
    files.push_back(lines + "*NonUIOrderDependency: 10 " + section + " *CustomVQTest\n");
    files.push_back(lines);
    files.back().insert(lines.find(end), "*OrderDependency: 10 " + section + " *VQTest\n");
  }
  for (const std::string &file : files) {
    EXPECT_TRUE(Allows(file, "VQTest", "Custom.Ann's 2nd job, größer: a_b-c.d")) << file;
    for (const std::string mark : {"\"", "\\", "(", ")", "<", ">", "[", "]", "{", "}", "/", "%",
                                   "\n", "\r", "\t", "\x1b", "\x7f"}) {
      EXPECT_FALSE(Allows(file, "VQTest", "Custom.a" + mark + "b")) << file << mark;
    }
  }
}

TEST_F(CustomChoice, InBracesGivesParametersValuesThatFit) {
  EXPECT_TRUE(Allows("int 1 9", "{Value=5}"));
  EXPECT_TRUE(Allows("string 1 9", "{Value=\"a b\"}"));
  for (const char *choice : {"{Value=10}", "{Value=5) showpage}", "{Value=5 Other=5}", "{Other=5}",
                             "{Value}", "{Value=}", "{5}", "{Value=5", "{}", "{", "{{Value=5}}"}) {
    EXPECT_FALSE(Allows("int 1 9", choice)) << choice;
  }
  EXPECT_FALSE(Allows("int 1 9", "{Value=5 Value=10}"));
  EXPECT_FALSE(Allows(kCustomPageSize, "PageRegionX", "{Value=5}"));
}

TEST_F(CustomChoice, InBracesGivesSeveralParametersTheirValues) {
  const std::string lines = WithParameter("int 1 9") + "*ParamCustomVQTest Second: 2 string 1 9\n";
  EXPECT_TRUE(Allows(lines, "VQTest", "{Value=5 Second=text}"));
  EXPECT_FALSE(Allows(lines, "VQTest", "{Value=5 Second=\"too long a text\"}"));
}

TEST_F(CustomChoice, MayBeMeantInAnyCaseOfLetters) {
  for (const char *choice : {"Custom.5", "custom.5", "CUSTOM.", "{Value=5}", "{"}) {
    EXPECT_TRUE(MayBeTakenForCustomChoice(choice)) << choice;
  }
  for (const char *choice : {"Custom", "5", "", "xCustom.5", "_Custom"}) {
    EXPECT_FALSE(MayBeTakenForCustomChoice(choice)) << choice;
  }
}

// libcups calls it _Custom, and so do jobs.
TEST_F(CustomChoice, IsNoneThatTheFileItselfLists) {
  const std::string lines =
      "*OpenUI *VQTest/Test: PickOne\n*VQTest Custom/Mine: \"\"\n*CloseUI: *VQTest\n";
  EXPECT_TRUE(Allows(lines, "VQTest", "_Custom"));
  EXPECT_FALSE(Allows(lines, "VQTest", "Custom"));
  EXPECT_FALSE(Allows(lines, "VQTest", "Custom.5"));
}
