#import "settinginfo/velmoraBNCommonInfoRV2.h"

#import "tests/support/ClassShape.h"
#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"

namespace {

struct Accessor {
  NSString *operation;
  NSString *section;
  NSString *entry;
};

const Accessor kAccessors[] = {
    {@"defaultValid", @"DefaultValue", @"Valid"},
    {@"defaultSize", @"DefaultValue", @"Size"},
    {@"defaultDensity", @"DefaultValue", @"Density"},
    {@"defaultColor", @"DefaultValue", @"Color"},
    {@"defaultStartNumber", @"DefaultValue", @"StartNumber"},
    {@"startNumberMin", @"DefaultValue", @"StartNumberMin"},
    {@"startNumberMax", @"DefaultValue", @"StartNumberMax"},
    {@"popUpItemsForSize", @"PopUpItem", @"Size"},
    {@"popUpItemsForDensity", @"PopUpItem", @"Density"},
    {@"popUpItemsForColor", @"PopUpItem", @"Color"},
    {@"panelKindID", @"ID", @"PanelKind"},
    {@"ticketKeyValid", @"TicketKey", @"Valid"},
    {@"ticketKeySize", @"TicketKey", @"Size"},
    {@"ticketKeyDensity", @"TicketKey", @"Density"},
    {@"ticketKeyColor", @"TicketKey", @"Color"},
    {@"ticketKeyStartNumber", @"TicketKey", @"StartNumber"},
    {@"minLabelForIntegerValueRange", @"Wording", @"MinLabelForValueRange"},
    {@"maxLabelForIntegerValueRange", @"Wording", @"MaxLabelForValueRange"},
    {@"prefixForLocalizeSize", @"Wording", @"PrefixForSize"},
    {@"prefixForLocalizeDensity", @"Wording", @"PrefixForDensity"},
    {@"prefixForLocalizeColor", @"Wording", @"PrefixForColor"},
};

// Setting info with these five sections and nothing in them.
NSMutableDictionary *EmptySections() {
  NSMutableDictionary *info = [NSMutableDictionary dictionary];
  for (const Accessor &accessor : kAccessors) {
    [info setObject:[NSMutableDictionary dictionary] forKey:accessor.section];
  }
  return info;
}

// Setting info in which every entry has the value that the function makes for it.
template <typename ValueFor>
NSMutableDictionary *EntriesWith(ValueFor value_for) {
  NSMutableDictionary *info = EmptySections();
  for (const Accessor &accessor : kAccessors) {
    [[info objectForKey:accessor.section] setObject:value_for(accessor) forKey:accessor.entry];
  }
  return info;
}

NSString *PathOf(const Accessor &accessor) {
  return [NSString stringWithFormat:@"%@.%@", accessor.section, accessor.entry];
}

id Ask(velmoraBNCommonInfoRV2 *info, const Accessor &accessor) {
  return [info performSelector:NSSelectorFromString(accessor.operation)];
}

void ExpectAllAbsent(id setting_info) {
  Job job(kColorDevice, setting_info);
  ASSERT_TRUE(job.info() != nil);
  for (const Accessor &accessor : kAccessors) {
    SCOPED_TRACE([accessor.operation UTF8String]);
    EXPECT_EQUAL_OBJECTS(nil, Ask(job.info(), accessor));
  }
}

void ExpectNotMade(NSBundle *bundle) {
  TestPPD ppd(kColorDevice);
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  interposed::Clear();
  velmoraBNCommonInfoRV2 *info = (velmoraBNCommonInfoRV2 *)host;
  const long left = InstancesLeft([velmoraBNCommonInfoRV2 class], [&] {
    EXPECT_EQ(0, ReferencesLeft(host, [&] {
                EXPECT_EQ(0, ReferencesLeft(bundle, [&] {
                            info = [[velmoraBNCommonInfoRV2 alloc] initWithCallback:[host callback]
                                                                             bundle:bundle];
                          }));
              }));
  });
  EXPECT_TRUE(info == nil);
  EXPECT_EQ(0, left);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

}  // namespace

OBJC_TEST(CommonInfoConstants, AreTheStoredValuesOfTheSwitch) {
  EXPECT_EQUAL_OBJECTS(@"On", BNCIFunctionOn);
  EXPECT_EQUAL_OBJECTS(@"Off", BNCIFunctionOff);
}

OBJC_TEST(CommonInfoConstants, NameTheColorAttribute) {
  EXPECT_EQUAL_OBJECTS(@"Black", BNCIMonoDefaultColor);
  EXPECT_EQUAL_OBJECTS(@"ColorDevice", BNCIPpdKeyColorDevice);
  EXPECT_EQUAL_OBJECTS(@"True", BNCIPpdValDeviceTypeColor);
  EXPECT_EQUAL_OBJECTS(@"False", BNCIPpdValDeviceTypeMono);
}

OBJC_TEST(CommonInfoConstants, NameTheResourceAndItsSections) {
  EXPECT_EQUAL_OBJECTS(@"BackgroundNumberingRV2-SettingInfo", BNCISettingInfoName);
  EXPECT_EQUAL_OBJECTS(@"plist", BNCIPlistResourceType);
  EXPECT_EQUAL_OBJECTS(@"PopUpItem", BNCIPlistMainKeyPopUpItem);
  EXPECT_EQUAL_OBJECTS(@"DefaultValue", BNCIPlistMainKeyDefaultValue);
  EXPECT_EQUAL_OBJECTS(@"TicketKey", BNCIPlistMainKeyTicketKey);
  EXPECT_EQUAL_OBJECTS(@"ID", BNCIPlistMainKeyId);
  EXPECT_EQUAL_OBJECTS(@"Wording", BNCIPlistMainKeyWording);
}

OBJC_TEST(CommonInfoConstants, NameTheEntriesOfTheSections) {
  EXPECT_EQUAL_OBJECTS(@"PanelKind", BNCIPlistSubKeyPanelKind);
  EXPECT_EQUAL_OBJECTS(@"Valid", BNCIPlistSubKeyValid);
  EXPECT_EQUAL_OBJECTS(@"Size", BNCIPlistSubKeySize);
  EXPECT_EQUAL_OBJECTS(@"Density", BNCIPlistSubKeyDensity);
  EXPECT_EQUAL_OBJECTS(@"Color", BNCIPlistSubKeyColor);
  EXPECT_EQUAL_OBJECTS(@"StartNumber", BNCIPlistSubKeyStartNumber);
  EXPECT_EQUAL_OBJECTS(@"StartNumberMin", BNCIPlistSubKeyStartNumberMin);
  EXPECT_EQUAL_OBJECTS(@"StartNumberMax", BNCIPlistSubKeyStartNumberMax);
  EXPECT_EQUAL_OBJECTS(@"MinLabelForValueRange", BNCIPlistSubKeyMinLabelForValueRange);
  EXPECT_EQUAL_OBJECTS(@"MaxLabelForValueRange", BNCIPlistSubKeyMaxLabelForValueRange);
  EXPECT_EQUAL_OBJECTS(@"PrefixForSize", BNCIPlistSubKeyPrefixForSize);
  EXPECT_EQUAL_OBJECTS(@"PrefixForDensity", BNCIPlistSubKeyPrefixForDensity);
  EXPECT_EQUAL_OBJECTS(@"PrefixForColor", BNCIPlistSubKeyPrefixForColor);
}

OBJC_TEST(CommonInfoClass, HasThreeFieldsWithoutSetters) {
  Class cls = [velmoraBNCommonInfoRV2 class];
  EXPECT_TRUE([cls superclass] == [NSObject class]);
  EXPECT_EQ((Strings{"_settingInfoDictionary NSDictionary", "_bundle NSBundle",
                     "_callback velmoraBNPdeCallbackRV2"}),
            FieldsOf(cls));
  EXPECT_FALSE(HasSetterOf(cls, @[ @"settingInfoDictionary", @"bundle", @"callback" ]));
}

OBJC_TEST(CommonInfoClass, ReleasesTheDictionaryThenTheBundleThenTheCallback) {
  EXPECT_EQ((Strings{"_settingInfoDictionary", "_bundle", "_callback"}),
            FieldsReleasedAtTeardown([velmoraBNCommonInfoRV2 class]));
}

OBJC_TEST(CommonInfoCreation, KeepsWhatItIsGivenAndTheWholeResource) {
  NSMutableDictionary *setting_info = ShippedSettingInfo();
  [setting_info setObject:@"kept" forKey:@"Unknown"];
  Job job(kColorDevice, setting_info);
  EXPECT_TRUE((id)job.info().callback == (id)job.host());
  EXPECT_TRUE(job.info().bundle == job.bundle());
  EXPECT_EQUAL_OBJECTS(setting_info, job.info().settingInfoDictionary);
  EXPECT_TRUE(job.info().settingInfoDictionary == job.info().settingInfoDictionary);
}

OBJC_TEST(CommonInfoCreation, RetainsCallbackAndBundleOnceAndGivesThemBack) {
  Job job(kColorDevice);
  velmoraBNCommonInfoRV2 *info = nil;
  auto make = [&] {
    info = [[velmoraBNCommonInfoRV2 alloc] initWithCallback:[job.host() callback]
                                                     bundle:job.bundle()];
  };
  EXPECT_EQ(1, ReferencesLeft(job.host(), make));
  EXPECT_EQ(-1, ReferencesLeft(job.host(), [&] { [info release]; }));
  EXPECT_EQ(1, ReferencesLeft(job.bundle(), make));
  EXPECT_EQ(-1, ReferencesLeft(job.bundle(), [&] { [info release]; }));
}

OBJC_TEST(CommonInfoCreation, AsksNothingOfTheDialogYet) {
  TestPPD ppd(kColorDevice);
  TestBundle bundle(ShippedSettingInfo());
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  interposed::Clear();
  [[[velmoraBNCommonInfoRV2 alloc] initWithCallback:[host callback]
                                             bundle:bundle.get()] autorelease];
  EXPECT_EQ(0, host->ppdFileCalls);
  EXPECT_EQ(0, host->printSettingsCalls);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(CommonInfoCreation, FailsWithoutCallback) {
  Job job(kColorDevice);
  velmoraBNCommonInfoRV2 *info = job.info();
  EXPECT_EQ(0, InstancesLeft([velmoraBNCommonInfoRV2 class], [&] {
              EXPECT_EQ(0, ReferencesLeft(job.bundle(), [&] {
                          info = [[velmoraBNCommonInfoRV2 alloc] initWithCallback:nil
                                                                           bundle:job.bundle()];
                        }));
            }));
  EXPECT_TRUE(info == nil);
}

OBJC_TEST(CommonInfoCreation, FailsWithoutBundle) { ExpectNotMade(nil); }

OBJC_TEST(CommonInfoCreation, FailsSilentlyWithoutTheResource) {
  TestBundle bundle(nil);
  ExpectNotMade(bundle.get());
}

OBJC_TEST(CommonInfoCreation, FailsSilentlyWhenTheRootIsNoDictionary) {
  for (id root in @[ @[ ShippedSettingInfo() ], @[], @"DefaultValue" ]) {
    SCOPED_TRACE([[root description] UTF8String]);
    TestBundle bundle(root);
    ExpectNotMade(bundle.get());
  }
}

OBJC_TEST(CommonInfoCreation, FailsSilentlyWhenTheFileIsNoPropertyList) {
  TestBundle bundle(@{});
  NSString *path = [bundle.get() pathForResource:BNCISettingInfoName ofType:BNCIPlistResourceType];
  ASSERT_TRUE([@"<?xml version=\"1.0\"?><plist><dict>" writeToFile:path atomically:NO]);
  ExpectNotMade(bundle.get());
}

OBJC_TEST(CommonInfoLookup, EveryAccessorReadsItsOwnEntry) {
  Job job(kColorDevice, EntriesWith(PathOf));
  for (const Accessor &accessor : kAccessors) {
    SCOPED_TRACE([accessor.operation UTF8String]);
    EXPECT_EQUAL_OBJECTS(PathOf(accessor), Ask(job.info(), accessor));
  }
}

OBJC_TEST(CommonInfoLookup, AnswersTheStoredObjectWhateverItsType) {
  for (id value in @[ @"text", @7, @[ @"item" ], @[], @{@"key" : @"value"} ]) {
    Job job(kColorDevice, EntriesWith([&](const Accessor &) { return value; }));
    for (const Accessor &accessor : kAccessors) {
      SCOPED_TRACE([accessor.operation UTF8String]);
      id stored = [[job.info().settingInfoDictionary objectForKey:accessor.section]
          objectForKey:accessor.entry];
      EXPECT_EQUAL_OBJECTS(value, stored);
      EXPECT_TRUE(stored == Ask(job.info(), accessor));
    }
  }
}

OBJC_TEST(CommonInfoLookup, AnswersNilForAnAbsentEntry) { ExpectAllAbsent(EmptySections()); }

OBJC_TEST(CommonInfoLookup, AnswersNilForAnAbsentSection) { ExpectAllAbsent(@{}); }

OBJC_TEST(CommonInfoLookup, TakesASectionOfAnotherTypeForAbsent) {
  for (id section in @[ @"Valid", @[], @[ @{@"Valid" : @"On"} ], @7, [NSData data] ]) {
    SCOPED_TRACE([[section description] UTF8String]);
    NSMutableDictionary *setting_info = EmptySections();
    for (NSString *name in [setting_info allKeys]) [setting_info setObject:section forKey:name];
    ExpectAllAbsent(setting_info);
  }
}

OBJC_TEST(CommonInfoLookup, OneAbsentEntryAffectsNoOther) {
  for (const Accessor &removed : kAccessors) {
    NSMutableDictionary *setting_info = EntriesWith(PathOf);
    [[setting_info objectForKey:removed.section] removeObjectForKey:removed.entry];
    Job job(kColorDevice, setting_info);
    for (const Accessor &accessor : kAccessors) {
      SCOPED_TRACE([[@"without " stringByAppendingString:PathOf(removed)] UTF8String]);
      EXPECT_EQUAL_OBJECTS(&accessor == &removed ? nil : PathOf(accessor),
                           Ask(job.info(), accessor));
    }
  }
}

OBJC_TEST(CommonInfoLookup, ResolvesSectionAndEntryOneAfterTheOther) {
  ExpectAllAbsent(@{@"DefaultValue.Valid" : @"On", @"ID.PanelKind" : @"kind"});
}

OBJC_TEST(CommonInfoLookup, PanelKindIsNotTheEntryIDOfASectionPanelKind) {
  NSDictionary *const section = @{@"ID" : @"kind"};
  Job job(kColorDevice, @{@"PanelKind" : section});
  EXPECT_EQUAL_OBJECTS(nil, [job.info() panelKindID]);
}

OBJC_TEST(CommonInfoColor, BlackNeedsNoEntryInTheResource) {
  Job job(kMonoDevice, EmptySections());
  EXPECT_EQUAL_OBJECTS(@"Black", [job.info() defaultColor]);
  EXPECT_EQUAL_OBJECTS(@[ @"Black" ], [job.info() popUpItemsForColor]);
}

OBJC_TEST(CommonInfoColor, OtherAccessorsDoNotDependOnColor) {
  Job job(kMonoDevice, EntriesWith(PathOf));
  for (const Accessor &accessor : kAccessors) {
    if ([accessor.operation isEqualToString:@"defaultColor"] ||
        [accessor.operation isEqualToString:@"popUpItemsForColor"]) {
      continue;
    }
    EXPECT_EQUAL_OBJECTS(PathOf(accessor), Ask(job.info(), accessor));
  }
  EXPECT_EQ(0, job.host()->ppdFileCalls);
}

OBJC_TEST(CommonInfoPPD, FindsTheValueOfTheFirstInstanceWhateverItsOptionPart) {
  Job job("*Feature Z/Translated: \"first\"\n*Feature A: \"second\"\n");
  EXPECT_EQUAL_OBJECTS(@"first", [job.info() BNCIPpdFindAttribute:@"Feature"]);
  EXPECT_EQ((Strings{"ppd Feature"}), interposed::Calls());
}

OBJC_TEST(CommonInfoPPD, AnswersNilWithoutAttributeOrFile) {
  Job job("*Feature: \"value\"\n");
  EXPECT_EQUAL_OBJECTS(nil, [job.info() BNCIPpdFindAttribute:@"Other"]);
  job.host()->ppd = nullptr;
  EXPECT_EQUAL_OBJECTS(nil, [job.info() BNCIPpdFindAttribute:@"Feature"]);
}

OBJC_TEST(CommonInfoPPD, AsksForTheFileOnEveryCall) {
  Job job("*Feature: \"before\"\n");
  TestPPD changed("*Feature: \"after\"\n");
  EXPECT_EQUAL_OBJECTS(@"before", [job.info() BNCIPpdFindAttribute:@"Feature"]);
  job.host()->ppd = changed.get();
  EXPECT_EQUAL_OBJECTS(@"after", [job.info() BNCIPpdFindAttribute:@"Feature"]);
  EXPECT_EQ(2, job.host()->ppdFileCalls);
}

OBJC_TEST(CommonInfoPrintSettings, AreTheDialogsOfThisMoment) {
  Job job(kColorDevice);
  EXPECT_TRUE([job.info() currentPrintSettings] == job.host()->settings);
  job.DropSettings();
  EXPECT_TRUE([job.info() currentPrintSettings] == nullptr);
  EXPECT_EQ(2, job.host()->printSettingsCalls);
}

OBJC_TEST(CommonInfoIsReady, AlwaysSaysYes) {
  Job job("", @{});
  job.DropSettings();
  job.host()->ppd = nullptr;
  EXPECT_TRUE([job.info() isReady]);
}

OBJC_TEST(CommonInfoLocalizedString, AnswersTheTextOfTheDefaultTable) {
  Job job(kColorDevice, @{}, "\"Size_Small\" = \"Petite\";");
  EXPECT_EQUAL_OBJECTS(@"Petite", [job.info() localizedString:@"Size_Small"]);
}

OBJC_TEST(CommonInfoLocalizedString, AnswersTheKeyWhereTheTableHasNone) {
  Job job(kColorDevice, @{}, "\"Size_Small\" = \"Petite\";");
  EXPECT_EQUAL_OBJECTS(@"size_small", [job.info() localizedString:@"size_small"]);
}

OBJC_TEST(CommonInfoLocalizedString, AnswersTheKeyInABundleWithoutTable) {
  Job job(kColorDevice, @{});
  EXPECT_EQUAL_OBJECTS(@"Size_Small", [job.info() localizedString:@"Size_Small"]);
}

OBJC_TEST(CommonInfo, LogsNothing) {
  Job job(kColorDevice, @{@"DefaultValue" : @"no section"});
  for (const Accessor &accessor : kAccessors) Ask(job.info(), accessor);
  [job.info() localizedString:@"absent"];
  [job.info() BNCIPpdFindAttribute:@"absent"];
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
  EXPECT_FALSE(interposed::Calls("ppd").empty());
}
