// The panels of all extensions together.

#include "tests/host/extension/BundleFolder.h"
#include "tests/host/extension/LoadedExtensions.h"
#import "tests/host/extension/PlainPanel.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TwoPanelsRun.h"

namespace fs = std::filesystem;

namespace {

const char kFirst[] = "test.TwoPanels.First";
const char kSecond[] = "test.TwoPanels.Second";
const char kNumbering[] = "com.velmora.print.pde.BackgroundNumberingKind";

Names Kinds(const ExtensionPanels &panels) {
  Names kinds;
  for (const auto &panel : panels) kinds.push_back(panel->kind());
  return kinds;
}

// The kinds of panels, and who is left out, with these faults.
std::pair<Names, Names> PanelsWith(const std::string &faults) {
  const TwoPanelsRun run(faults);
  const HostedPrinter printer;
  Expected<Extensions> extensions = Extensions::Load(kBuilt);
  if (!extensions) return {{extensions.message()}, {}};
  const Names kinds = Kinds(extensions->Panels(printer.host.get()));
  return {kinds, LeftOutOf(*extensions)};
}

}  // namespace

// Whatever bundle it is the principal class of, its panel is the same.
@interface HostTestOfOneKind : NSObject
@end

@implementation HostTestOfOneKind
- (BOOL)initWithBundle:(NSBundle *)bundle {
  return bundle != nil;
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)type;
  (void)host;
  return @[ [PlainPanel panelWithSummary:nil] ];
}
@end

OBJC_TEST(Extensions, OfferThePanelsOfAllBundlesInOrder) {
  EXPECT_EQ((std::pair(Names{kNumbering, kFirst, kSecond}, Names())), PanelsWith(""));
}

OBJC_TEST(Extensions, OfferNewPanelsEachTime) {
  const TwoPanelsRun run;
  const HostedPrinter printer;
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  const ExtensionPanels first = extensions->Panels(printer.host.get());
  const ExtensionPanels second = extensions->Panels(printer.host.get());
  ASSERT_EQ(2u, first.size());
  ASSERT_EQ(2u, second.size());
  EXPECT_NE(first[0]->View(), second[0]->View());
}

OBJC_TEST(Extensions, LeaveOutABundleThatMisbehavesWhenAskedForPanels) {
  const std::string place = "Two Panels: the bundle " TWO_PANELS " ";
  EXPECT_EQ(
      (std::pair(Names{kNumbering}, Names{place + "raised NSGenericException: panels fails"})),
      PanelsWith("panels=raise"));
  EXPECT_EQ((std::pair(Names{kNumbering}, Names{place + "answered panels that are no array"})),
            PanelsWith("panels=string"));
  EXPECT_EQ((std::pair(Names{kNumbering}, Names())), PanelsWith("panels=nil"));
}

OBJC_TEST(Extensions, LeaveOutAPanelThatMisbehaves) {
  EXPECT_EQ(
      (std::pair(Names{kNumbering, kSecond}, Names{"Two Panels: its panel answered no name"})),
      PanelsWith("First.panelName=number"));
  EXPECT_EQ(
      (std::pair(Names{kNumbering, kFirst},
                 Names{"Two Panels: its panel raised NSGenericException: Second.panelKind fails"})),
      PanelsWith("Second.panelKind=raise"));
  EXPECT_EQ((std::pair(Names{kNumbering},
                       Names{"Two Panels: it offers a panel that does not answer to willShow"})),
            PanelsWith("panels=array"));
}

OBJC_TEST(Extensions, OfferOnePanelOfAKind) {
  EXPECT_EQ((std::pair(Names{kNumbering, "nonsense"}, Names())),
            PanelsWith("First.panelKind=string,Second.panelKind=string"));
}

OBJC_TEST(Extensions, LeaveOutABundleWhosePanelAnotherOffersAlready) {
  const UsersBundles users;
  const BundleFolder first("NSExecutable = Test; NSPrincipalClass = HostTestOfOneKind;");
  const BundleFolder second("NSExecutable = Test; NSPrincipalClass = HostTestOfOneKind;");
  for (const BundleFolder *bundle : {&first, &second}) bundle->AddLibrary();
  fs::create_directory_symlink(second.path(), users.folder() / "Second.plugin");
  const TwoPanelsRun run("init=no");
  const HostedPrinter printer;
  Expected<Extensions> extensions = Extensions::Load(first.path());
  ASSERT_TRUE(extensions) << extensions.message();
  ASSERT_EQ(2u, extensions->bundles().size());
  EXPECT_EQ(Names{"test.plain"}, Kinds(extensions->Panels(printer.host.get())));
  EXPECT_EQ("Test: another bundle, " + first.path().string() +
                ", offers the same kind of panel, test.plain",
            LeftOutOf(*extensions).back());
}

// The runtime would end the program.
OBJC_TEST(Extensions, LeaveOutACopyUnderAnotherIdentifier) {
  const UsersBundles users;
  const fs::path copy = users.folder() / "Copy.plugin";
  fs::copy(kBuilt, copy, fs::copy_options::recursive);
  const fs::path info = copy / "Resources/Info.plist";
  std::string text = ContentOf(info);
  const std::string identifier = "com.velmora.print.pde.BackgroundNumbering";
  text.replace(text.find(identifier), identifier.size(), "test.copy.of.numbering");
  fs::remove(info);
  TemporaryFolder().Write(info, text);
  Expected<Extensions> extensions = Extensions::Load(kBuilt);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ((Names{"Background Numbering", "Two Panels"}), NamesOf(*extensions));
  EXPECT_EQ(Names{"Copy: cannot load bundle " + copy.string() +
                  ": its principal class has been loaded from " + kBuilt},
            LeftOutOf(*extensions));
}

OBJC_TEST(Extensions, SayTheSameOfABundleOnce) {
  const TwoPanelsRun run("panels=raise");
  const HostedPrinter printer;
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->Panels(printer.host.get());
  extensions->Panels(printer.host.get());
  EXPECT_EQ(1u, extensions->left_out().size());
}

OBJC_TEST(Extensions, LeaveOutAPanelThatShowsAFaultLater) {
  const TwoPanelsRun run("Second.willShow=raise");
  const HostedPrinter printer;
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  const ExtensionPanels panels = extensions->Panels(printer.host.get());
  ASSERT_EQ(2u, panels.size());
  for (const auto &panel : panels) {
    panel->WillShow();
    extensions->LeaveOut(*panel);
    extensions->LeaveOut(*panel);
  }
  EXPECT_EQ(Names{"Two Panels: its panel raised NSGenericException: Second.willShow fails"},
            LeftOutOf(*extensions));
}
