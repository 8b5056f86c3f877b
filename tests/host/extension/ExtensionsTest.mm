#include "host/extension/Extensions.h"

#include "tests/host/extension/BundleFolder.h"
#include "tests/host/extension/LoadedExtensions.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TwoPanelsRun.h"

namespace fs = std::filesystem;

namespace {

PPDFile Opened(const TestPPD &ppd) { return std::move(*PPDFile::Open(ppd.path())); }

}  // namespace

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
  const HostedPrinter printer;
  const TwoPanelsRun run("panels=nil");
  Expected<Extensions> extensions = LoadTwoPanels();
  ASSERT_TRUE(extensions) << extensions.message();
  extensions->Panels(printer.host.get());
  const PPDFile ppd = Opened(printer.ppd);
  EXPECT_EQ("the bundle offers none for this printer", extensions->ReasonForNoPanel(&ppd));
}

OBJC_TEST(Extensions, GiveTheReasonsOfAllBundles) {
  const HostedPrinter printer("");
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
