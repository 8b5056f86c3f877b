#include "host/extension/SettingInfo.h"

#include <gmock/gmock.h>

#include "tests/host/extension/BundleFolder.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestBundle.h"

using testing::HasSubstr;

namespace {

const Setting kNumber = {"StartNumber", "VQStartNumber", {}, 1, 999};
const Setting kItem = {"Size", "VQBNSize", {"Small", "Medium", "Large"}, 0, 0};

// The value as it is stored; "refused" where it is.
std::string Stored(const Setting &setting, std::string_view value) {
  Expected<std::string> stored = setting.Check(value);
  if (stored) return *stored;
  EXPECT_EQ(setting.Demand(), stored.message());
  return "refused";
}

NSBundle *Bundle(const BundleFolder &folder) {
  return [NSBundle bundleWithPath:[NSString stringWithUTF8String:folder.path().string().c_str()]];
}

// A bundle whose Info.plist names this setting info.
struct InfoBundle : BundleFolder {
  explicit InfoBundle(NSDictionary *setting_info) : BundleFolder("PDESettingInfo = Choices;") {
    NSData *data = [NSPropertyListSerialization dataFromPropertyList:setting_info
                                                              format:NSPropertyListXMLFormat_v1_0
                                                    errorDescription:nullptr];
    Add("Resources/Choices.plist", {static_cast<const char *>([data bytes]), [data length]});
  }
};

std::string ReasonAgainst(NSBundle *bundle) {
  Expected<std::vector<Setting>> settings = SettingsOfBundle(bundle);
  return settings ? "" : settings.message();
}

}  // namespace

TEST(Setting, NumbersAreAllowedWithinTheirBounds) {
  EXPECT_EQ("1", Stored(kNumber, "1"));
  EXPECT_EQ("25", Stored(kNumber, "25"));
  EXPECT_EQ("999", Stored(kNumber, "999"));
  EXPECT_EQ("refused", Stored(kNumber, "0"));
  EXPECT_EQ("refused", Stored(kNumber, "1000"));
  EXPECT_EQ("refused", Stored(kNumber, "-1"));
}

TEST(Setting, NumbersAreStoredWithoutLeadingZeros) {
  EXPECT_EQ("7", Stored(kNumber, "007"));
  EXPECT_EQ("999", Stored(kNumber, "0000000000000000000000000000999"));
  EXPECT_EQ("refused", Stored(kNumber, "000"));
}

TEST(Setting, HugeNumbersAreRefused) {
  EXPECT_EQ("refused", Stored(kNumber, "99999999999999999999"));
  EXPECT_EQ("refused", Stored(kNumber, "4294967297"));
  EXPECT_EQ("refused", Stored(kNumber, "18446744073709551617"));
  EXPECT_EQ("refused", Stored(kNumber, "-99999999999999999999"));
  EXPECT_EQ("refused", Stored(kNumber, std::string(10'000, '9')));
}

TEST(Setting, WhatIsNoWholeNumberIsRefused) {
  for (const char *value : {"", "+5", "1.5", "1,5", "5.0", "1e2", "0x10", " 5", "5 ", " ", "\t5",
                            "5\n", "5-", "--5", "five", "５", "٥", "5five", "1 000"}) {
    EXPECT_EQ("refused", Stored(kNumber, value)) << value;
  }
  EXPECT_EQ("refused", Stored(kNumber, std::string_view("5\0", 2)));
}

TEST(Setting, BoundsMayBeNegative) {
  const Setting setting = {"Offset", "VQOffset", {}, -10, 10};
  EXPECT_EQ("-10", Stored(setting, "-10"));
  EXPECT_EQ("-7", Stored(setting, "-007"));
  EXPECT_EQ("0", Stored(setting, "-0"));
  EXPECT_EQ("refused", Stored(setting, "-11"));
}

TEST(Setting, ItemsAreAllowedAsTheyAreWritten) {
  EXPECT_EQ("Small", Stored(kItem, "Small"));
  EXPECT_EQ("Large", Stored(kItem, "Large"));
  for (const char *value : {"", "small", "LARGE", "Large ", " Large", "Larg", "Huge", "1"}) {
    EXPECT_EQ("refused", Stored(kItem, value)) << value;
  }
}

TEST(Setting, NamesWhatIsAllowed) {
  EXPECT_EQ("it must be a whole number from 1 to 999", kNumber.Demand());
  EXPECT_EQ("it must be one of Small, Medium, Large", kItem.Demand());
  EXPECT_EQ("it must be Black", (Setting{"Color", "VQBNColor", {"Black"}, 0, 0}).Demand());
}

OBJC_TEST(SettingsOfBundle, AreThoseOfTheBuiltBundle) {
  NSBundle *bundle = [NSBundle bundleWithPath:@BINARY_DIRECTORY "/BackgroundNumbering.plugin"];
  Expected<std::vector<Setting>> settings = SettingsOfBundle(bundle);
  ASSERT_TRUE(settings) << settings.message();
  std::vector<std::string> lines;
  for (const Setting &setting : *settings) {
    lines.push_back(setting.name + " " + setting.key + ": " + setting.Demand());
  }
  const std::vector<std::string> expected = {
      "Color VQBNColor: it must be one of Black, Red, Green, Blue, Cyan, Magenta, Yellow",
      "Density VQBNDensity: it must be one of Light, Medium, Dark",
      "Size VQBNSize: it must be one of Small, Medium, Large",
      "StartNumber VQStartNumber: it must be a whole number from 1 to 999",
      "Valid VQBackgroundNumbering: it must be one of On, Off",
  };
  EXPECT_EQ(expected, lines);
}

OBJC_TEST(SettingsOfBundle, NeedBothBoundsForARange) {
  InfoBundle folder(
      @{@"TicketKey" : @{@"Number" : @"VQNumber"},
        @"DefaultValue" : @{@"NumberMin" : @"3"}});
  Expected<std::vector<Setting>> settings = SettingsOfBundle(Bundle(folder));
  ASSERT_TRUE(settings) << settings.message();
  EXPECT_EQ("it must be one of On, Off", settings->front().Demand());
}

OBJC_TEST(SettingsOfBundle, AnEmptyListOfItemsAllowsNothing) {
  InfoBundle folder(@{@"TicketKey" : @{@"Size" : @"VQBNSize"}, @"PopUpItem" : @{@"Size" : @[]}});
  Expected<std::vector<Setting>> settings = SettingsOfBundle(Bundle(folder));
  if (settings) EXPECT_EQ("refused", Stored(settings->front(), "0"));
}

OBJC_TEST(SettingsOfBundle, CannotBeToldWithoutSettingInfo) {
  const std::string reason =
      " names no setting info; its settings can only be changed on its panel";
  for (const char *entries : {"", "PDESettingInfo = Absent;"}) {
    BundleFolder folder(entries);
    EXPECT_EQ("the bundle " + folder.path().string() + reason, ReasonAgainst(Bundle(folder)));
  }
}

OBJC_TEST(SettingsOfBundle, CannotBeToldFromSettingInfoThatListsNone) {
  for (NSDictionary *info : @[
         @{},
         @{@"TicketKey" : @{}}, @{@"TicketKey" : @"text"},
         @{@"PopUpItem" : @{@"Size" : @[ @"Small" ]}}
       ]) {
    InfoBundle folder(info);
    EXPECT_EQ("the bundle " + folder.path().string() + ": its setting info lists no settings",
              ReasonAgainst(Bundle(folder)));
  }
}

OBJC_TEST(SettingsOfBundle, CannotBeToldFromDamagedSettingInfo) {
  BundleFolder folder("PDESettingInfo = Damaged;");
  folder.Add("Resources/Damaged.plist", "<plist><dict><key>");
  EXPECT_NE("", ReasonAgainst(Bundle(folder)));
}

// Nothing in a bundle that the dialog does not know may end the dialog.
OBJC_TEST(SettingsOfBundle, CannotBeToldFromValuesOfTheWrongKind) {
  NSNumber *number = [NSNumber numberWithInt:5];
  for (NSDictionary *info : @[
         @{@"TicketKey" : @{@"Size" : number}},
         @{@"TicketKey" : @{@"Size" : @"VQBNSize"},
           @"PopUpItem" : @{@"Size" : @[ number ]}},
         @{@"TicketKey" : @{@"Size" : @"VQBNSize"},
           @"PopUpItem" : @{@"Size" : @"Small"}},
         @{@"TicketKey" : @{@"N" : @"VQN"},
           @"DefaultValue" : @{@"NMin" : @[], @"NMax" : @[]}}
       ]) {
    InfoBundle folder(info);
    const std::string reason = ReasonAgainst(Bundle(folder));
    EXPECT_THAT(reason, HasSubstr(folder.path().string()));
  }
}
