#include "host/extension/Extensions.h"

#include "host/job/JobTicket.h"
#include "tests/host/extension/BundleFolder.h"
#import "tests/host/extension/PlainPanel.h"
#include "tests/host/extension/TwoPanelsRun.h"
#include "tests/support/EnvironmentVariable.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

const char kBuilt[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

// The bundles that the user has installed, while the object lives.
class UsersBundles {
 public:
  UsersBundles() : home_("HOME", home_folder_.path().string()) { fs::create_directories(folder()); }

  fs::path folder() const { return home_folder_.path() / "GNUstep/Library/Bundles"; }

 private:
  TemporaryFolder home_folder_;
  EnvironmentVariable home_;
};

// Lies beside this program, where bundles are found without a name.
Expected<Extensions> LoadTwoPanels() { return Extensions::Load({}); }

Names NamesOf(const Extensions &extensions) {
  Names names;
  for (const ExtensionBundle &bundle : extensions.bundles()) names.push_back(bundle.Name());
  return names;
}

Names LeftOutOf(const Extensions &extensions) {
  Names lines;
  for (const LeftOut &one : extensions.left_out()) lines.push_back(one.name + ": " + one.reason);
  return lines;
}

Names Kinds(const ExtensionPanels &panels) {
  Names kinds;
  for (const auto &panel : panels) kinds.push_back(panel->kind());
  return kinds;
}

const char kFirst[] = "test.TwoPanels.First";
const char kSecond[] = "test.TwoPanels.Second";
const char kNumbering[] = "com.velmora.print.pde.BackgroundNumberingKind";

// A host for a printer with these lines.
struct Printer {
  TestPPD ppd;
  PrintSettings settings = EmptyPrintSettings();
  Retained<HostCallback *> host;

  explicit Printer(const std::string &lines = kSupported) : ppd(lines) {
    host =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                            ppdFile:ppd.get()]);
  }
};

PPDFile Opened(const TestPPD &ppd) { return std::move(*PPDFile::Open(ppd.path())); }

// The kinds of panels, and who is left out, with these faults.
std::pair<Names, Names> PanelsWith(const std::string &faults) {
  const TwoPanelsRun run(faults);
  const Printer printer;
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

OBJC_TEST(Extensions, AreTheNamedOneThenThoseThatAreFound) {
  const UsersBundles users;
  Expected<Extensions> extensions = Extensions::Load(kBuilt);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ((Names{"Background Numbering", "Two Panels"}), NamesOf(*extensions));
  EXPECT_EQ(Names(), LeftOutOf(*extensions));
  fs::create_directory_symlink(kBuilt, users.folder() / "Any.plugin");
  extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ((Names{"Two Panels", "Background Numbering"}), NamesOf(*extensions));
}

OBJC_TEST(Extensions, AreLoadedOnceByPath) {
  const UsersBundles users;
  fs::create_directory_symlink(TWO_PANELS, users.folder() / "Any.plugin");
  const TwoPanelsRun run;
  Expected<Extensions> extensions = Extensions::Load(TWO_PANELS);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ(Names{"Two Panels"}, NamesOf(*extensions));
  EXPECT_EQ(Names{"init"}, run.Calls());
}

OBJC_TEST(Extensions, AreLoadedOnceByPathEvenWithoutAnIdentifier) {
  const UsersBundles users;
  const BundleFolder bundle("");
  bundle.AddLibrary();
  bundle.Add("Resources/Info-gnustep.plist",
             "{ NSExecutable = Test; NSPrincipalClass = HostTestOfOneKind; }");
  fs::create_directory_symlink(bundle.path(), users.folder() / "Any.plugin");
  Expected<Extensions> extensions = Extensions::Load(bundle.path());
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ((Names{"Test", "Two Panels"}), NamesOf(*extensions));
}

OBJC_TEST(Extensions, AreLoadedOnceByIdentifier) {
  const UsersBundles users;
  fs::copy(TWO_PANELS, users.folder() / "Copy.plugin", fs::copy_options::recursive);
  const TwoPanelsRun run;
  Expected<Extensions> extensions = Extensions::Load(TWO_PANELS);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ(Names{"Two Panels"}, NamesOf(*extensions));
  EXPECT_EQ(Names(), LeftOutOf(*extensions));
  EXPECT_EQ(Names{"init"}, run.Calls());
}

OBJC_TEST(Extensions, FailIfTheNamedOneIsNotThere) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("file.plugin", "");
  Expected<Extensions> extensions = Extensions::Load(file);
  ASSERT_FALSE(extensions);
  EXPECT_EQ("no bundle at " + file.string(), extensions.message());
}

OBJC_TEST(Extensions, FailIfTheNamedOneDoesNotLoad) {
  const BundleFolder broken("");
  Expected<Extensions> extensions = Extensions::Load(broken.path());
  ASSERT_FALSE(extensions);
  EXPECT_EQ(
      "cannot load bundle " + broken.path().string() + ": its Info.plist names no executable in it",
      extensions.message());
}

OBJC_TEST(Extensions, TakeANameFromHere) {
  const fs::path before = fs::current_path();
  fs::current_path(BINARY_DIRECTORY);
  Expected<Extensions> extensions = Extensions::Load("BackgroundNumbering.plugin");
  fs::current_path(before);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ("Background Numbering", NamesOf(*extensions).front());
}

OBJC_TEST(Extensions, AreLeftOutIfTheyDoNotLoad) {
  const UsersBundles users;
  const BundleFolder broken("");
  fs::create_directory_symlink(broken.path(), users.folder() / "Broken.plugin");
  const BundleFolder other("NSExecutable = Test; NSPrincipalClass = NSObject;");
  other.AddLibrary();
  fs::create_directory_symlink(other.path(), users.folder() / "OtherKind.plugin");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ(Names{"Two Panels"}, NamesOf(*extensions));
  const std::string place = users.folder().string();
  EXPECT_EQ((Names{"Broken: cannot load bundle " + place +
                       "/Broken.plugin: its Info.plist names no executable in it",
                   "OtherKind: cannot load bundle " + place +
                       "/OtherKind.plugin: its principal class is no print-dialog extension"}),
            LeftOutOf(*extensions));
}

OBJC_TEST(Extensions, AreLeftOutIfTheyRefuseOrRaise) {
  for (const auto &[fault, reason] :
       {std::pair("init=no", "its principal object refuses the bundle"),
        std::pair("init=raise", "it raised NSGenericException: init fails")}) {
    const TwoPanelsRun run(fault);
    Expected<Extensions> extensions = Extensions::Load(kBuilt);
    ASSERT_TRUE(extensions) << extensions.message();
    EXPECT_EQ(Names{"Background Numbering"}, NamesOf(*extensions));
    EXPECT_EQ(Names{std::string("TwoPanels: cannot load bundle " TWO_PANELS ": ") + reason},
              LeftOutOf(*extensions));
  }
}

OBJC_TEST(Extensions, LoadWhatThePPDNamesIfItIsThere) {
  const TestPPD ppd("*APDialogExtension: \"" + std::string(kBuilt) + "/\"\n" +
                    "*APDialogExtension: \"" TWO_PANELS "\"\n");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->LoadNamedBy(Opened(ppd));
  extensions->LoadNamedBy(Opened(ppd));
  EXPECT_EQ((Names{"Two Panels", "Background Numbering"}), NamesOf(*extensions));
  EXPECT_EQ(Names(), LeftOutOf(*extensions));
}

OBJC_TEST(Extensions, TakeABundleOfTheSameFolderNameForTheOneThatThePPDNames) {
  const TestPPD ppd("*APDialogExtension: \"/Library/Printers/Any/PDEs/TwoPanels.plugin\"\n"
                    "*APDialogExtension: \"/Library/Printers/Other/TwoPanels.plugin/\"\n");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->LoadNamedBy(Opened(ppd));
  EXPECT_EQ(Names{"Two Panels"}, NamesOf(*extensions));
  EXPECT_EQ(Names(), LeftOutOf(*extensions));
}

OBJC_TEST(Extensions, LeaveOutWhatThePPDNamesInVain) {
  const BundleFolder broken("");
  const TestPPD ppd("*APDialogExtension: \"/Library/Printers/Any/Absent.plugin\"\n"
                    "*APDialogExtension: \"" +
                    broken.path().string() + "\"\n");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->LoadNamedBy(Opened(ppd));
  extensions->LoadNamedBy(Opened(ppd));
  EXPECT_EQ((Names{"Absent: it is not installed at /Library/Printers/Any/Absent.plugin",
                   "Test: cannot load bundle " + broken.path().string() +
                       ": its Info.plist names no executable in it"}),
            LeftOutOf(*extensions));
}

// What a printer names must not be looked for where the program happens to run.
OBJC_TEST(Extensions, DoNotLoadARelativePathThatThePPDNames) {
  const TestPPD ppd("*APDialogExtension: \"BackgroundNumbering.plugin\"\n");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  const fs::path before = fs::current_path();
  fs::current_path(BINARY_DIRECTORY);
  extensions->LoadNamedBy(Opened(ppd));
  fs::current_path(before);
  EXPECT_EQ(Names{"Two Panels"}, NamesOf(*extensions));
  EXPECT_EQ(Names{"BackgroundNumbering: it is not installed at BackgroundNumbering.plugin"},
            LeftOutOf(*extensions));
}

OBJC_TEST(Extensions, OfferThePanelsOfAllBundlesInOrder) {
  EXPECT_EQ((std::pair(Names{kNumbering, kFirst, kSecond}, Names())), PanelsWith(""));
}

OBJC_TEST(Extensions, OfferNewPanelsEachTime) {
  const TwoPanelsRun run;
  const Printer printer;
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
  const Printer printer;
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
  const Printer printer;
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->Panels(printer.host.get());
  extensions->Panels(printer.host.get());
  EXPECT_EQ(1u, extensions->left_out().size());
}

OBJC_TEST(Extensions, LeaveOutAPanelThatShowsAFaultLater) {
  const TwoPanelsRun run("Second.willShow=raise");
  const Printer printer;
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

OBJC_TEST(Extensions, HaveTheSettingsOfAllBundlesThatLetThemBeChanged) {
  Expected<Extensions> extensions = Extensions::Load(kBuilt);
  ASSERT_TRUE(extensions) << extensions.message();
  Names keys;
  for (const Setting &setting : extensions->Settings()) keys.push_back(setting.key);
  EXPECT_EQ(
      (Names{"VQBNColor", "VQBNDensity", "VQBNSize", "VQStartNumber", "VQBackgroundNumbering"}),
      keys);
  extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_TRUE(extensions->Settings().empty());
}

OBJC_TEST(Extensions, GiveTheReasonOfTheOnlyBundle) {
  const Printer printer;
  const TwoPanelsRun run("panels=nil");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->Panels(printer.host.get());
  const PPDFile ppd = Opened(printer.ppd);
  EXPECT_EQ("the bundle offers none for this printer", extensions->ReasonForNoPanel(&ppd));
}

OBJC_TEST(Extensions, GiveTheReasonsOfAllBundles) {
  const Printer printer("");
  const TwoPanelsRun run("panels=raise");
  Expected<Extensions> extensions = Extensions::Load(kBuilt);
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_TRUE(extensions->Panels(printer.host.get()).empty());
  const PPDFile ppd = Opened(printer.ppd);
  EXPECT_EQ("Background Numbering: no attribute VQBackgroundNumberingSupport; Two Panels: the "
            "bundle " TWO_PANELS " raised NSGenericException: panels fails",
            extensions->ReasonForNoPanel(&ppd));
  // What was wrong with another printer is not wrong with this one.
  run.SetFaults("panels=nil");
  extensions->Panels(printer.host.get());
  EXPECT_EQ(
      "Background Numbering: no attribute VQBackgroundNumberingSupport; Two Panels: the bundle "
      "offers none for this printer",
      extensions->ReasonForNoPanel(&ppd));
}

OBJC_TEST(Extensions, GiveTheReasonOfAQueueWithoutAPPD) {
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  EXPECT_EQ("the queue has no PPD file, in which a printer declares what extensions need",
            extensions->ReasonForNoPanel(nullptr));
}

OBJC_TEST(Extensions, SayThatNoneCouldBeLoaded) {
  const TwoPanelsRun run("init=no");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  const TestPPD test_ppd("");
  const PPDFile ppd = Opened(test_ppd);
  EXPECT_EQ("no extension bundle could be loaded; TwoPanels: cannot load bundle " TWO_PANELS
            ": its principal object refuses the bundle",
            extensions->ReasonForNoPanel(&ppd));
}
