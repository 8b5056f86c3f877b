#import "tickets/velmoraBNPrintTicketPopUpRV2.h"

#import "tests/tickets/TicketTest.h"

namespace {

using Ticket = velmoraBNPrintTicketPopUpRV2;

const char kStrings[] =
    "\"S_Small\" = \"Petite\"; \"S_Large\" = \"Grande\"; \"S_Red\" = \"Rouge\"; "
    "\"S_Black\" = \"Noir\"; \"Small\" = \"wrong\"; \"Petite\" = \"wrong\";";

Ticket *Make(const Job &job, NSString *default_value, NSString *key, NSString *prefix = @"S_") {
  return [[[Ticket alloc] initWithDefaultValue:default_value
                                     ticketKey:key
                                    commonInfo:job.info()
                                        prefix:prefix] autorelease];
}

// A ticket under the key "K", with the default "Small".
Ticket *MadeSize(const Job &job, NSArray *targets) {
  Ticket *ticket = Make(job, @"Small", @"K");
  [ticket registerTargetInstances:targets];
  interposed::Clear();
  return ticket;
}

// A ticket under the key of the color, as another string of the same characters.
Ticket *MadeColor(const Job &job, NSArray *targets, NSString *default_value = @"Black") {
  Ticket *ticket =
      Make(job, default_value, [NSMutableString stringWithString:[job.info() ticketKeyColor]]);
  [ticket registerTargetInstances:targets];
  interposed::Clear();
  return ticket;
}

struct LocalizedJob : Job {
  explicit LocalizedJob(const std::string &ppd_lines)
      : Job(ppd_lines, ShippedSettingInfo(), kStrings) {}
};

}  // namespace

OBJC_TEST(PrintTicketPopUpClass, AddsThePrefix) {
  EXPECT_TRUE([Ticket superclass] == [velmoraBNPrintTicketRV2 class]);
  EXPECT_EQ((Strings{"_prefix NSString"}), FieldsOf([Ticket class]));
  EXPECT_FALSE(HasSetterOf([Ticket class], @[ @"prefix" ]));
}

OBJC_TEST(PrintTicketPopUpClass, ReleasesThePrefixBeforeWhatTheBaseTicketHolds) {
  EXPECT_EQ((Strings{"_prefix", "_defaultValue", "_key", "_commonInfo", "_targetInstances"}),
            FieldsReleasedAtTeardown([Ticket class]));
}

OBJC_TEST(PrintTicketPopUpCreation, KeepsTheVeryPrefixOnceAndGivesItBack) {
  Job job(kColorDevice);
  NSMutableString *prefix = [NSMutableString stringWithString:@"S_"];
  Ticket *ticket = nil;
  EXPECT_EQ(1,
            ReferencesLeft(prefix, [&] { ticket = [Make(job, @"Small", @"K", prefix) retain]; }));
  EXPECT_TRUE(ticket.prefix == prefix);
  EXPECT_EQ(-1, ReferencesLeft(prefix, [&] { [ticket release]; }));
}

OBJC_TEST(PrintTicketPopUpCreation, StoresTheDefaultLikeEveryTicket) {
  Job job(kColorDevice);
  EXPECT_TRUE(Make(job, @"Small", @"K") != nil);
  EXPECT_EQ((Strings{"get K", "set K=Small"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpCreation, FailsWithoutPrefixButTheJobHasItsDefault) {
  Job job(kColorDevice);
  Ticket *ticket = (Ticket *)job.info();
  EXPECT_EQ(0, InstancesLeft([Ticket class], [&] {
              EXPECT_EQ(0, ReferencesLeft(job.info(), [&] {
                          ticket = [[Ticket alloc] initWithDefaultValue:@"Small"
                                                              ticketKey:@"K"
                                                             commonInfo:job.info()
                                                                 prefix:nil];
                        }));
            }));
  EXPECT_TRUE(ticket == nil);
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"Small"}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketPopUpCreation, FailsWhereTheBaseTicketFails) {
  Job job(kColorDevice);
  EXPECT_EQ(0, InstancesLeft([Ticket class], [&] {
              EXPECT_TRUE(Make(job, nil, @"K") == nil);
              EXPECT_TRUE(Make(job, @"Small", nil) == nil);
            }));
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketPopUpSave, WritesTheRawValueNotTheTitle) {
  LocalizedJob job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Small", @"Large" ]);
  [menu selectItemAtIndex:1];
  EXPECT_EQUAL_OBJECTS(@"Grande", [menu titleOfSelectedItem]);
  [MadeSize(job, @[ menu ]) saveTicket];
  EXPECT_EQ((Strings{"set K=Large"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpSave, ReadsTheFirstTargetOnly) {
  Job job(kColorDevice);
  Strings record;
  RecordingTarget *first = [RecordingTarget targetNamed:"first" record:&record];
  RecordingTarget *second = [RecordingTarget targetNamed:"second" record:&record];
  first->shownText = @"Large";
  [MadeSize(job, (@[ first, second ])) saveTicket];
  EXPECT_EQ((Strings{"first selectedItem", "first representedObject"}), record);
  EXPECT_EQUAL_OBJECTS(@"Large", job[@"K"]);
}

OBJC_TEST(PrintTicketPopUpSave, WithoutSelectionRemovesTheKey) {
  Job job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Small", @"Large" ]);
  [menu selectItem:nil];
  ASSERT_TRUE([menu selectedItem] == nil);
  Ticket *ticket = MadeSize(job, @[ menu ]);
  [ticket saveTicket];
  EXPECT_EQ((Strings{"set K=nil"}), interposed::Calls());
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
  EXPECT_EQUAL_OBJECTS(@"S_Small", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketPopUpSave, WithoutTargetsDoesNothing) {
  Job job(kColorDevice);
  [MadeSize(job, @[]) saveTicket];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpSave, IgnoresAWriteThatFails) {
  Job job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Large" ]);
  Ticket *ticket = MadeSize(job, @[ menu ]);
  interposed::FailWrites(1);
  [ticket saveTicket];
  EXPECT_EQUAL_OBJECTS(@"Small", job[@"K"]);
}

OBJC_TEST(PrintTicketPopUpRestore, SelectsTheItemOfTheStoredValueByItsLocalizedTitle) {
  LocalizedJob job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Small", @"Large" ]);
  Ticket *ticket = MadeSize(job, @[ menu ]);
  job.Store(@"K", @"Large");
  EXPECT_EQUAL_OBJECTS(@"S_Large", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"Large", [[menu selectedItem] representedObject]);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpRestore, SelectsInEveryTargetFirstToLast) {
  LocalizedJob job(kColorDevice);
  Strings record;
  Ticket *ticket = MadeSize(job, @[
    [RecordingTarget targetNamed:"first" record:&record], [RecordingTarget targetNamed:"second"
                                                                                record:&record]
  ]);
  [ticket restoreTicketFailSafe];
  EXPECT_EQ((Strings{"first selectItemWithTitle Petite", "second selectItemWithTitle Petite"}),
            record);
}

OBJC_TEST(PrintTicketPopUpRestore, TakesTheDefaultWhereNothingIsStoredAndWritesNothing) {
  LocalizedJob job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Large", @"Small" ]);
  Ticket *ticket = MadeSize(job, @[ menu ]);
  job.Store(@"K", nil);
  EXPECT_EQUAL_OBJECTS(@"S_Small", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"Petite", [menu titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketPopUpRestore, TakesTheDefaultWhenTheReadFails) {
  Job job(kColorDevice);
  Ticket *ticket = MadeSize(job, @[]);
  job.Store(@"K", @"Large");
  interposed::FailReads(1);
  EXPECT_EQUAL_OBJECTS(@"S_Small", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketPopUpRestore, PutsNothingBetweenPrefixAndValue) {
  Job job(kColorDevice);
  Ticket *ticket = Make(job, @"50%", @"K", @"%@-");
  EXPECT_EQUAL_OBJECTS(@"%@-50%", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketPopUpRestore, KeepsAStoredValueThatNoItemHas) {
  Job job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Small", @"Large" ]);
  Ticket *ticket = MadeSize(job, @[ menu ]);
  job.Store(@"K", @"Huge");
  EXPECT_EQUAL_OBJECTS(@"S_Huge", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"Huge", job[@"K"]);
  EXPECT_EQ(2, [menu numberOfItems]);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpRestore, OfTheColorWithoutColorFirstStoresBlackThenShowsIt) {
  LocalizedJob job(kMonoDevice);
  NSString *key = [job.info() ticketKeyColor];
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Red", @"Black" ]);
  Ticket *ticket = MadeColor(job, @[ menu ]);
  job.Store(key, @"Red");
  EXPECT_EQUAL_OBJECTS(@"S_Black", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"Black", job[key]);
  EXPECT_EQUAL_OBJECTS(@"Noir", [menu titleOfSelectedItem]);
  EXPECT_EQ((Strings{"ppd ColorDevice", "set VQBNColor=Black", "get VQBNColor"}),
            interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpRestore, OfTheColorWithColorShowsTheStoredValue) {
  LocalizedJob job(kColorDevice);
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Black", @"Red" ]);
  Ticket *ticket = MadeColor(job, @[ menu ]);
  job.Store([job.info() ticketKeyColor], @"Red");
  EXPECT_EQUAL_OBJECTS(@"S_Red", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"Rouge", [menu titleOfSelectedItem]);
  EXPECT_EQ((Strings{"ppd ColorDevice", "get VQBNColor"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpRestore, OfTheColorShowsTheStoredValueWhenTheCorrectionFails) {
  Job job(kMonoDevice);
  Ticket *ticket = MadeColor(job, @[]);
  job.Store([job.info() ticketKeyColor], @"Red");
  interposed::FailWrites(kPMItemIsLocked);
  EXPECT_EQUAL_OBJECTS(@"S_Red", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketPopUpRestoreDefaults, SelectsTheDefaultInEveryTargetAndWritesNothing) {
  LocalizedJob job(kMonoDevice);
  Strings record;
  NSPopUpButton *menu = PopUp(job, @"S_", @[ @"Large", @"Small" ]);
  Ticket *ticket = MadeSize(job, @[
    [RecordingTarget targetNamed:"first" record:&record], menu,
    [RecordingTarget targetNamed:"third" record:&record]
  ]);
  job.Store(@"K", @"Large");
  [ticket restoreDefaults];
  EXPECT_EQ((Strings{"first selectItemWithTitle Petite", "third selectItemWithTitle Petite"}),
            record);
  EXPECT_EQUAL_OBJECTS(@"Small", [[menu selectedItem] representedObject]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpRestoreDefaults, OfTheColorDoesNotVerify) {
  Job job(kMonoDevice);
  [MadeColor(job, @[]) restoreDefaults];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpVerify, OfTheColorWithoutColorStoresTheDefaultWhateverIsStored) {
  for (NSString *stored in @[ @"Red", @"Black", @"Unknown", @"" ]) {
    Job job(kMonoDevice);
    Ticket *ticket = MadeColor(job, @[]);
    job.Store([job.info() ticketKeyColor], stored);
    [ticket verifyTicket];
    EXPECT_EQUAL_OBJECTS(@"Black", job[[job.info() ticketKeyColor]]);
    EXPECT_EQ((Strings{"ppd ColorDevice", "set VQBNColor=Black"}), interposed::Calls());
  }
}

OBJC_TEST(PrintTicketPopUpVerify, OfTheColorStoresTheDefaultOfItsCreation) {
  Job job(kMonoDevice);
  [MadeColor(job, @[], @"Gray") verifyTicket];
  EXPECT_EQ((Strings{"set VQBNColor=Gray"}), interposed::Calls("set"));
}

OBJC_TEST(PrintTicketPopUpVerify, TouchesNoControl) {
  Job job(kMonoDevice);
  Strings record;
  [MadeColor(job, @[ [RecordingTarget targetNamed:"menu" record:&record] ]) verifyTicket];
  EXPECT_EQ(Strings{}, record);
}

OBJC_TEST(PrintTicketPopUpVerify, OfTheColorWithColorKeepsEvenAnUnknownValue) {
  Job job(kColorDevice);
  Ticket *ticket = MadeColor(job, @[]);
  job.Store([job.info() ticketKeyColor], @"Infrared");
  [ticket verifyTicket];
  EXPECT_EQUAL_OBJECTS(@"Infrared", job[[job.info() ticketKeyColor]]);
  EXPECT_EQ((Strings{"ppd ColorDevice"}), interposed::Calls());
}

OBJC_TEST(PrintTicketPopUpVerify, AsksThePrinterAnewEveryTime) {
  Job job(kColorDevice);
  TestPPD mono(kMonoDevice);
  Ticket *ticket = MadeColor(job, @[]);
  [ticket verifyTicket];
  EXPECT_EQ(Strings{}, interposed::Calls("set"));
  job.host()->ppd = mono.get();
  [ticket verifyTicket];
  EXPECT_EQ((Strings{"set VQBNColor=Black"}), interposed::Calls("set"));
}

OBJC_TEST(PrintTicketPopUpVerify, UnderAnyOtherKeyDoesNothing) {
  Job job(kMonoDevice);
  for (NSString *key in @[ @"VQBNSize", @"VQBNDensity", @"vqbncolor", @"VQBNColor " ]) {
    Ticket *ticket = Make(job, @"Small", key);
    interposed::Clear();
    [ticket verifyTicket];
    EXPECT_EQ(Strings{}, interposed::Calls());
  }
}

OBJC_TEST(PrintTicketPopUpVerify, IgnoresAWriteThatFails) {
  Job job(kMonoDevice);
  Ticket *ticket = MadeColor(job, @[]);
  job.Store([job.info() ticketKeyColor], @"Red");
  interposed::FailWrites(1);
  [ticket verifyTicket];
  EXPECT_EQUAL_OBJECTS(@"Red", job[[job.info() ticketKeyColor]]);
}
