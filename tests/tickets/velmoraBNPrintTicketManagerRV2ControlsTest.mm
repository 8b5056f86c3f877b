// What a manager does with the controls of its tickets, and with the print settings.

#import "tickets/velmoraBNPrintTicketManagerRV2.h"

#import "tests/tickets/ManagerJob.h"

namespace {

// The controls of a panel, without the panel.
struct Controls {
  NSButton *check_box = CheckBox();
  NSPopUpButton *size, *density, *color;
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();

  Controls(const Job &job, Manager *manager)
      : size(PopUp(job, @"Size_", @[ @"Small", @"Large" ])),
        density(PopUp(job, @"Density_", @[ @"Light", @"Dark" ])),
        color(PopUp(job, @"Color_", @[ @"Black", @"Red" ])) {
    [manager registerTargetInstances:@[ check_box ] ticketName:@"Valid"];
    [manager registerTargetInstances:@[ size ] ticketName:@"Size"];
    [manager registerTargetInstances:@[ density ] ticketName:@"Density"];
    [manager registerTargetInstances:@[ color ] ticketName:@"Color"];
    [manager registerTargetInstances:@[ box, stepper ] ticketName:@"StartNumber"];
  }

  // What is shown, by ticket name; the start number's two controls separated by a blank.
  NSDictionary *Shown() const {
    NSString *numbers =
        [NSString stringWithFormat:@"%@ %@", [box stringValue], [stepper stringValue]];
    return @{
      @"Valid" : [check_box state] == NSControlStateValueOn ? @"On" : @"Off",
      @"Size" : [[size selectedItem] representedObject],
      @"Density" : [[density selectedItem] representedObject],
      @"Color" : [[color selectedItem] representedObject],
      @"StartNumber" : numbers
    };
  }
};

// A recording target for each ticket, named after it.
void RegisterRecordingTargets(Manager *manager, Strings *record) {
  for (NSString *name in @[ @"Color", @"StartNumber", @"Valid", @"Density", @"Size" ]) {
    RecordingTarget *target = [RecordingTarget targetNamed:[name UTF8String] record:record];
    target->shownText = name;
    [manager registerTargetInstances:@[ target ] ticketName:name];
  }
}

}  // namespace

OBJC_TEST(TicketManagerRegister, ReplacesTheControlsOfTheNamedTicketOnly) {
  ManagerJob job;
  for (NSString *name in [[Made(job) BNPTMAllTicketsDictionary] allKeys]) {
    SCOPED_TRACE([name UTF8String]);
    Manager *manager = Made(job);
    NSArray *targets = @[ TextBox(), Stepper() ];
    [manager registerTargetInstances:@[ TextBox() ] ticketName:name];
    [manager registerTargetInstances:targets ticketName:name];
    NSDictionary *tickets = [manager BNPTMAllTicketsDictionary];
    for (NSString *other in tickets) {
      EXPECT_EQUAL_OBJECTS([other isEqual:name] ? targets : @[],
                           [[tickets objectForKey:other] targetInstances]);
    }
  }
}

OBJC_TEST(TicketManagerRegister, UnderAnUnknownNameDoesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  for (NSString *name in @[ @"startNumber", @"STARTNUMBER", @"StartNumber ", @"Sizes", @"" ]) {
    [manager registerTargetInstances:@[ TextBox() ] ticketName:name];
  }
  for (velmoraBNPrintTicketRV2 *ticket in [manager BNPTMAllTicketsArray]) {
    EXPECT_EQUAL_OBJECTS(@[], ticket.targetInstances);
  }
}

OBJC_TEST(TicketManagerTitle, GoesToTheSwitchAlone) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager setTitleToValid:@"Print numbers"];
  EXPECT_EQ((Strings{"Valid setTitle Print numbers"}), record);
}

OBJC_TEST(TicketManagerRestoreAll, ShowsEveryStoredValueInTicketOrder) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQ((Strings{"Valid setState 0", "Size selectItemWithTitle Grande",
                     "Density selectItemWithTitle Density_Dark", "Color selectItemWithTitle Rouge",
                     "StartNumber setStringValue 5"}),
            record);
  EXPECT_EQ((Strings{"get V", "get S", "get D", "ppd ColorDevice", "get C", "get N"}),
            interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreAll, CorrectsTheColorBeforeItIsRead) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Made(job);
  job.Store(@"C", @"Red");
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQ(
      (Strings{"get V", "get S", "get D", "ppd ColorDevice", "set C=Black", "get C", "get N"}),
      interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreAll, SetsRealControls) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  NSDictionary *stored =
      @{@"V" : @"On", @"S" : @"Small", @"D" : @"Light", @"C" : @"Black", @"N" : @"12"};
  for (NSString *key in stored) job.Store(key, [stored objectForKey:key]);
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"On",
                         @"Size" : @"Small",
                         @"Density" : @"Light",
                         @"Color" : @"Black",
                         @"StartNumber" : @"12 12"
                       }),
                       controls.Shown());
  EXPECT_EQUAL_OBJECTS(stored, [job.host() allSettings]);
}

OBJC_TEST(TicketManagerRestoreAll, ShowsTheDefaultsWhereNothingCanBeRead) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  job.DropSettings();
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"Off",
                         @"Size" : @"Large",
                         @"Density" : @"Dark",
                         @"Color" : @"Red",
                         @"StartNumber" : @"5 5"
                       }),
                       controls.Shown());
}

OBJC_TEST(TicketManagerRestoreOne, AnswersTheValueOfSwitchAndStartNumber) {
  ManagerJob job;
  Manager *manager = Made(job);
  EXPECT_EQUAL_OBJECTS(@"Off", [manager restoreTicketFailSafe:@"Valid"]);
  EXPECT_EQUAL_OBJECTS(@"5", [manager restoreTicketFailSafe:@"StartNumber"]);
  EXPECT_EQ((Strings{"get V", "get N"}), interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreOne, AnswersTheUnlocalizedKeyOfAMenusValue) {
  ManagerJob job;
  Manager *manager = Made(job);
  job.Store(@"S", @"Small");
  EXPECT_EQUAL_OBJECTS(@"Size_Small", [manager restoreTicketFailSafe:@"Size"]);
  EXPECT_EQUAL_OBJECTS(@"Density_Dark", [manager restoreTicketFailSafe:@"Density"]);
  EXPECT_EQUAL_OBJECTS(@"Color_Red", [manager restoreTicketFailSafe:@"Color"]);
}

OBJC_TEST(TicketManagerRestoreOne, ShowsTheValueInThatTicketsControlsOnly) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreTicketFailSafe:@"Color"];
  EXPECT_EQ((Strings{"Color selectItemWithTitle Rouge"}), record);
}

OBJC_TEST(TicketManagerRestoreOne, AnswersNilForAnUnknownName) {
  ManagerJob job;
  Manager *manager = Made(job);
  for (NSString *name in @[ @"color", @"Colour", @"", @"C" ]) {
    EXPECT_EQUAL_OBJECTS(nil, [manager restoreTicketFailSafe:name]);
  }
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, WritesEveryControlsValueInTicketOrder) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [controls.check_box setState:NSControlStateValueOn];
  [controls.color selectItemAtIndex:1];
  [controls.box setStringValue:@"12"];
  [controls.stepper setStringValue:@"34"];
  [manager saveAllTickets];
  EXPECT_EQ((Strings{"set V=On", "set S=Small", "set D=Light", "set C=Red", "set N=12"}),
            interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, WithoutControlsWritesNothing) {
  ManagerJob job;
  [Made(job) saveAllTickets];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, GoesOnAfterAWriteThatFails) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  interposed::FailWrites(1);
  [manager saveAllTickets];
  EXPECT_EQ(5u, interposed::Calls("set").size());
  EXPECT_EQUAL_OBJECTS(DefaultSettings(), [job.host() allSettings]);
}

OBJC_TEST(TicketManagerRestoreDefaults, ResetsAllButTheSwitchInTicketOrderAndWritesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreDefaultsExceptValid];
  EXPECT_EQ((Strings{"Size selectItemWithTitle Grande", "Density selectItemWithTitle Density_Dark",
                     "Color selectItemWithTitle Rouge", "StartNumber setStringValue 5"}),
            record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreDefaults, ResetsRealControlsAndKeepsTheCheckBox) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [controls.check_box setState:NSControlStateValueOn];
  [manager restoreDefaultsExceptValid];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"On",
                         @"Size" : @"Large",
                         @"Density" : @"Dark",
                         @"Color" : @"Red",
                         @"StartNumber" : @"5 5"
                       }),
                       controls.Shown());
}

OBJC_TEST(TicketManagerVerifyAll, WithoutColorStoresBlackAlone) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Made(job);
  for (NSString *key in @[ @"V", @"S", @"D", @"C", @"N" ]) job.Store(key, @"?");
  [manager verifyAllTickets];
  EXPECT_EQ((Strings{"ppd ColorDevice", "set C=Black"}), interposed::Calls());
}

OBJC_TEST(TicketManagerVerifyAll, WithColorChangesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  job.Store(@"C", @"Infrared");
  [manager verifyAllTickets];
  EXPECT_EQ((Strings{"ppd ColorDevice"}), interposed::Calls());
}

OBJC_TEST(TicketManagerVerifyAll, RunsInTicketOrder) {
  // With one key for all three menus each of them corrects it.
  NSMutableDictionary *info = Info();
  for (NSString *name in @[ @"Size", @"Density", @"Color" ]) {
    [[info objectForKey:@"TicketKey"] setObject:@"menu" forKey:name];
  }
  ManagerJob job(kMonoDevice, info);
  [Made(job) verifyAllTickets];
  EXPECT_EQ((Strings{"set menu=Large", "set menu=Dark", "set menu=Black"}),
            interposed::Calls("set"));
}

OBJC_TEST(TicketManagerChange, ShowsTheSendersTextInBothControlsOfTheStartNumber) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [manager changeValue:@25 ticketName:@"StartNumber"];
  EXPECT_EQUAL_OBJECTS(@"25", [controls.box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"25", [controls.stepper stringValue]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerChange, UnderAnyOtherNameDoesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  for (NSString *name in
       @[ @"Valid", @"Size", @"Density", @"Color", @"startNumber", @"Number", @"" ]) {
    [manager changeValue:@25 ticketName:name];
  }
  EXPECT_EQ(Strings{}, record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManager, LogsNothing) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Make(job.info());
  Controls controls(job, manager);
  [manager restoreAllTicketsFailSafe];
  [manager saveAllTickets];
  [manager verifyAllTickets];
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
  EXPECT_FALSE(interposed::Calls("set").empty());
}
