#include "host/extension/ExtensionPanel.h"

#include "host/extension/ExtensionBundle.h"
#include "host/job/PrintSettings.h"
#import "tests/host/extension/PlainPanel.h"
#include "tests/support/ExpectedValue.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"
#include "tests/support/TwoPanelsRun.h"

namespace {

using Calls = std::vector<std::string>;

// The panels that a bundle offers for a job with these settings.
class Offer {
 public:
  explicit Offer(const char *bundle = TWO_PANELS, NSDictionary *values = nil)
      : ppd_(kSupported), settings_(EmptyPrintSettings()) {
    for (NSString *key in values) {
      PMPrintSettingsSetValue(settings_.get(), (CFStringRef)key, [values objectForKey:key], false);
    }
    host_ =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings_.get()
                                                                            ppdFile:ppd_.get()]);
    Expected<ExtensionBundle> loaded = ExtensionBundle::Load(bundle);
    if (!loaded) {
      ADD_FAILURE() << loaded.message();
      return;
    }
    bundle_ = Retained<NSBundle *>::Share(loaded->bundle());
    Expected<Retained<NSArray *>> panels = loaded->Panels(host_.get());
    if (panels) panels_ = *panels;
  }

  NSBundle *bundle() const { return bundle_.get(); }
  PMPrintSettings settings() const { return settings_.get(); }
  Expected<ExtensionPanel> Take(NSUInteger number = 0) const {
    if ([panels_.get() count] <= number) return Failure{"there is no such panel"};
    return ExtensionPanel::Take(bundle_.get(), [panels_.get() objectAtIndex:number]);
  }

 private:
  TestPPD ppd_;
  PrintSettings settings_;
  Retained<HostCallback *> host_;
  Retained<NSBundle *> bundle_;
  Retained<NSArray *> panels_;
};

// Why the first panel is not taken; "" if it is.
std::string TakeFailure(const std::string &faults) {
  const TwoPanelsRun run(faults);
  Expected<ExtensionPanel> panel = Offer().Take();
  return panel ? "" : panel.message();
}

// One call to a panel.
struct Operation {
  const char *name;  // among the faults
  void (*run)(ExtensionPanel &panel);
};
const Operation kOperations[] = {
    {"optionKeys", [](ExtensionPanel &panel) { panel.option_keywords(); }},
    {"panelView", [](ExtensionPanel &panel) { panel.View(); }},
    {"restore", [](ExtensionPanel &panel) { (void)panel.Restore(); }},
    {"save", [](ExtensionPanel &panel) { (void)panel.Save(); }},
    {"willShow", [](ExtensionPanel &panel) { panel.WillShow(); }},
    {"shouldHide", [](ExtensionPanel &panel) { panel.ShouldHide(); }},
    {"shouldPrint", [](ExtensionPanel &panel) { panel.ShouldPrint(); }},
    {"help", [](ExtensionPanel &panel) { panel.ShouldShowHelp(); }},
    {"summary", [](ExtensionPanel &panel) { panel.Summary(); }},
    {"optionDidChange", [](ExtensionPanel &panel) { panel.OptionDidChange("Duplex", "None"); }},
    {"windowWillClose", [](ExtensionPanel &panel) { panel.WindowWillClose(true); }},
};

// What the first panel is at fault for after this operation.
std::string FaultOf(const std::string &fault) {
  const TwoPanelsRun run("First." + fault);
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  if (!panel) return panel.message();
  const std::string name = fault.substr(0, fault.find('='));
  for (const Operation &operation : kOperations) {
    if (operation.name == name) operation.run(*panel);
  }
  return panel->fault().value_or("");
}

ExtensionPanel NewPlainPanel(id summary = nil) {
  Expected<ExtensionPanel> panel =
      ExtensionPanel::Take([NSBundle mainBundle], [PlainPanel panelWithSummary:summary]);
  if (!panel) std::abort();
  return *panel;
}

SummaryLines SummaryOf(id summary) {
  ExtensionPanel panel = NewPlainPanel(summary);
  const SummaryLines lines = panel.Summary();
  EXPECT_EQ(std::nullopt, panel.fault());
  return lines;
}

}  // namespace

OBJC_TEST(ExtensionPanel, IsTakenWithItsNameAndKind) {
  const TwoPanelsRun run;
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take(1);
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_EQ(offer.bundle(), panel->bundle());
  EXPECT_EQ("Second", panel->name());
  EXPECT_EQ("test.TwoPanels.Second", panel->kind());
  EXPECT_EQ(std::nullopt, panel->fault());
  const Calls calls = run.Calls();
  ASSERT_LT(2u, calls.size());
  EXPECT_EQ((Calls{"Second panelName", "Second panelKind"}), Calls(calls.end() - 2, calls.end()));
}

OBJC_TEST(ExtensionPanel, IsAskedForItsKeywordsOnce) {
  const TwoPanelsRun run;
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take(1);
  ASSERT_TRUE(panel) << panel.message();
  run.Calls();
  EXPECT_EQ(std::vector<std::string>{"InputSlot"}, panel->option_keywords());
  EXPECT_EQ(std::vector<std::string>{"InputSlot"}, panel->option_keywords());
  EXPECT_EQ(Calls{"Second optionKeys"}, run.Calls());
}

OBJC_TEST(ExtensionPanel, OfTheBuiltBundleWorks) {
  const Offer offer(BINARY_DIRECTORY "/BackgroundNumbering.plugin",
                    @{@"VQBackgroundNumbering" : @"On", @"VQStartNumber" : @"9"});
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_EQ("Background Numbering", panel->name());
  EXPECT_EQ(5u, panel->option_keywords().size());
  EXPECT_NE(nil, panel->View());
  EXPECT_EQ("", MessageOf(panel->Restore()));
  panel->WillShow();
  EXPECT_EQ(
      (SummaryLines{
          {"Size", "Medium"}, {"Density", "Medium"}, {"Color", "Black"}, {"Start Number", "9"}}),
      panel->Summary());
  EXPECT_TRUE(panel->ShouldHide());
  EXPECT_TRUE(panel->ShouldPrint());
  EXPECT_TRUE(panel->ShouldShowHelp());
  EXPECT_EQ("", MessageOf(panel->Save()));
  panel->OptionDidChange("VQBNSize", "Small");
  panel->WindowWillClose(false);
  EXPECT_EQ(std::nullopt, panel->fault());
}

OBJC_TEST(ExtensionPanel, IsNotTakenIfItIsNoPanel) {
  Expected<ExtensionPanel> panel = ExtensionPanel::Take([NSBundle mainBundle], @"nonsense");
  ASSERT_FALSE(panel);
  EXPECT_EQ("it offers a panel that does not answer to willShow", panel.message());
}

OBJC_TEST(ExtensionPanel, IsNotTakenWithoutAName) {
  for (const char *way : {"nil", "number", "array"}) {
    EXPECT_EQ("its panel answered no name", TakeFailure(std::string("First.panelName=") + way));
  }
}

OBJC_TEST(ExtensionPanel, IsNotTakenWithoutAKind) {
  for (const char *way : {"nil", "number", "array"}) {
    EXPECT_EQ("its panel answered no kind", TakeFailure(std::string("First.panelKind=") + way));
  }
}

OBJC_TEST(ExtensionPanel, IsNotTakenIfItRaises) {
  for (const char *call : {"panelName", "panelKind"}) {
    const std::string name = std::string("First.") + call;
    EXPECT_EQ("its panel raised NSGenericException: " + name + " fails",
              TakeFailure(name + "=raise"));
  }
}

OBJC_TEST(ExtensionPanel, IsAtFaultForWhatItRaises) {
  for (const Operation &operation : kOperations) {
    const std::string name = operation.name;
    EXPECT_EQ("its panel raised NSGenericException: First." + name + " fails",
              FaultOf(name + "=raise"));
  }
}

OBJC_TEST(ExtensionPanel, IsAtFaultWithoutAView) {
  for (const char *way : {"nil", "string", "object"}) {
    EXPECT_EQ("its panel answered no view", FaultOf(std::string("panelView=") + way));
  }
}

OBJC_TEST(ExtensionPanel, IsAtFaultIfItsKeywordsAreNoArrayOfStrings) {
  for (const char *way : {"string", "number", "array", "object"}) {
    EXPECT_EQ("its panel answered option keywords that are no array of strings",
              FaultOf(std::string("optionKeys=") + way));
  }
}

OBJC_TEST(ExtensionPanel, MayHaveNoKeywords) {
  for (const char *way : {"nil", "empty"}) EXPECT_EQ("", FaultOf(std::string("optionKeys=") + way));
  EXPECT_TRUE(NewPlainPanel().option_keywords().empty());
}

OBJC_TEST(ExtensionPanel, IsAtFaultForASummaryThatIsNoDictionary) {
  for (const char *way : {"string", "array", "number"}) {
    EXPECT_EQ("its panel answered a summary that is no dictionary",
              FaultOf(std::string("summary=") + way));
  }
}

OBJC_TEST(ExtensionPanel, IsNotAtFaultForARefusal) {
  for (const char *fault : {"shouldHide=no", "shouldPrint=no", "help=own", "save=no", "save=silent",
                            "restore=no", "restore=silent", "summary=nil"}) {
    EXPECT_EQ("", FaultOf(fault)) << fault;
  }
}

OBJC_TEST(ExtensionPanel, IsSentNothingMoreAfterAFault) {
  const TwoPanelsRun run("First.willShow=raise");
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_NE(nil, panel->View());
  panel->WillShow();
  run.SetFaults("First.shouldHide=no,First.shouldPrint=no,First.help=own");
  run.Calls();
  for (const Operation &operation : kOperations) operation.run(*panel);
  EXPECT_EQ(nil, panel->View());
  EXPECT_TRUE(panel->ShouldHide());
  EXPECT_TRUE(panel->ShouldPrint());
  EXPECT_TRUE(panel->ShouldShowHelp());
  EXPECT_TRUE(panel->Summary().empty());
  const std::string fault =
      "First cannot be used: its panel raised NSGenericException: First.willShow fails";
  EXPECT_EQ(fault, MessageOf(panel->Restore()));
  EXPECT_EQ(fault, MessageOf(panel->Save()));
  EXPECT_EQ(Calls(), run.Calls());
}

OBJC_TEST(ExtensionPanel, RefusesInItsOwnWords) {
  const TwoPanelsRun run("First.save=no,First.restore=no");
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_EQ("First does not save what it shows: First.save is refused", MessageOf(panel->Save()));
  EXPECT_EQ("First does not show the job's settings: First.restore is refused",
            MessageOf(panel->Restore()));
}

OBJC_TEST(ExtensionPanel, NeedNotSayWhyItRefuses) {
  const TwoPanelsRun run("First.save=silent,First.restore=silent");
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_EQ("First does not save what it shows: it does not say why", MessageOf(panel->Save()));
  EXPECT_EQ("First does not show the job's settings: it does not say why",
            MessageOf(panel->Restore()));
}

OBJC_TEST(ExtensionPanel, PassesOnWhatItRefuses) {
  const TwoPanelsRun run("First.shouldHide=no,First.shouldPrint=no,First.help=own");
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  EXPECT_FALSE(panel->ShouldHide());
  EXPECT_FALSE(panel->ShouldPrint());
  EXPECT_FALSE(panel->ShouldShowHelp());
}

OBJC_TEST(ExtensionPanel, MayLackWhatIsOptional) {
  ExtensionPanel panel = NewPlainPanel();
  EXPECT_TRUE(panel.ShouldPrint());
  EXPECT_TRUE(panel.ShouldShowHelp());
  panel.WindowWillClose(true);
  EXPECT_EQ(std::nullopt, panel.fault());
}

OBJC_TEST(ExtensionPanel, KeepsItsFirstView) {
  ExtensionPanel panel = NewPlainPanel();
  NSView *view = panel.View();
  EXPECT_NE(nil, view);
  EXPECT_EQ(view, panel.View());
}

OBJC_TEST(ExtensionPanel, IsToldWhatHappens) {
  const TwoPanelsRun run;
  const Offer offer;
  Expected<ExtensionPanel> panel = offer.Take();
  ASSERT_TRUE(panel) << panel.message();
  run.Calls();
  panel->OptionDidChange("MediaType", "Transparency");
  panel->WindowWillClose(true);
  panel->WindowWillClose(false);
  EXPECT_EQ((Calls{"First optionDidChange MediaType=Transparency", "First windowWillClose canceled",
                   "First windowWillClose accepted"}),
            run.Calls());
}

OBJC_TEST(ExtensionPanel, GoesWithItsLastOwner) {
  const TwoPanelsRun run;
  {
    auto offer = std::make_unique<Offer>();
    Expected<ExtensionPanel> panel = offer->Take();
    ASSERT_TRUE(panel) << panel.message();
    panel->View();
    panel->Summary();
    offer.reset();
    run.Calls();
  }
  EXPECT_EQ(Calls{"First dealloc"}, run.Calls());
}

OBJC_TEST(ExtensionPanel, SummarizesInTheOrderItAsksFor) {
  NSDictionary *summary = @{
    @"A" : @"first",
    @"B" : @2,
    @"C" : @"größer",
    @"Summary Display Order" : @[ @"C", @"absent", @"A", @"C" ],
  };
  EXPECT_EQ((SummaryLines{{"C", "größer"}, {"A", "first"}, {"B", "2"}}), SummaryOf(summary));
}

OBJC_TEST(ExtensionPanel, SummarizesByTitleWithoutAnOrder) {
  EXPECT_EQ((SummaryLines{{"A", "1"}, {"B", "2"}}), SummaryOf(@{@"B" : @"2", @"A" : @"1"}));
  NSDictionary *wrong = @{@"B" : @"2", @"A" : @"1", @"Summary Display Order" : @"B"};
  EXPECT_EQ((SummaryLines{{"A", "1"}, {"B", "2"}}), SummaryOf(wrong));
  EXPECT_EQ(SummaryLines(), SummaryOf(nil));
}
