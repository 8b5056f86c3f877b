#include "host/extension/BundlePrinterOptions.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/host/extension/BundleFolder.h"
#import "tests/support/ObjCTest.h"

using testing::StartsWith;

namespace {

constexpr char kNames[] = "PDEPrinterOptions = { Color = \"a.ppdpart\"; Monochrome = b; };";

// A bundle that loads, with these entries of an old-style property list.
class OptionsBundle : public BundleFolder {
 public:
  explicit OptionsBundle(const std::string &entries)
      : BundleFolder("NSExecutable = Test; NSPrincipalClass = OptionsPlugIn; " + entries) {
    AddLibrary();
  }
  void AddResource(const std::string &name, const std::string &content) const {
    Add("Resources/" + name, content);
  }

  Expected<std::optional<PrinterOptions>> Options() const {
    Expected<ExtensionBundle> bundle = ExtensionBundle::Load(path());
    if (!bundle) return bundle.failure();
    return PrinterOptionsOf(*bundle);
  }
  // The failure's clause after the bundle's path.
  std::string Failing() const {
    Expected<std::optional<PrinterOptions>> options = Options();
    if (options) return "";
    const std::string start =
        "the bundle " + path().string() + " cannot give its printer options: ";
    EXPECT_THAT(options.message(), StartsWith(start));
    return options.message().substr(std::min(start.size(), options.message().size()));
  }
};

}  // namespace

@interface OptionsPlugIn : NSObject <PDEPlugIn>
@end

@implementation OptionsPlugIn
- (id)initWithBundle:(NSBundle *)bundle {
  return bundle == nil ? nil : [super init];
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  return nil;
}
@end

OBJC_TEST(BundlePrinterOptions, AreThoseOfTheResourcesThatTheBundleNames) {
  OptionsBundle bundle(
      std::string(kNames) +
      "CFBundleName = Opts; PDESupportAttribute = { Keyword = Test; Value = yes; };");
  bundle.AddResource("a.ppdpart", "*A: \"b\"\n");
  bundle.AddResource("b", "*C: \"d\"");
  Expected<std::optional<PrinterOptions>> options = bundle.Options();
  ASSERT_TRUE(options) << options.message();
  ASSERT_TRUE(*options);
  EXPECT_THAT((*options)->bundle, StartsWith("test.extension."));
  EXPECT_EQ("Opts", (*options)->name);
  EXPECT_EQ("Test", (*options)->support_keyword);
  EXPECT_EQ("yes", (*options)->support_value);
  EXPECT_EQ("*A: \"b\"\n", (*options)->printer.color);
  EXPECT_EQ("*C: \"d\"\n", (*options)->printer.monochrome);
}

OBJC_TEST(BundlePrinterOptions, MayBeForOneKindOfPrinters) {
  OptionsBundle bundle("PDEPrinterOptions = { Color = a; };");
  bundle.AddResource("a", "*A: \"b\"\n");
  Expected<std::optional<PrinterOptions>> options = bundle.Options();
  ASSERT_TRUE(options) << options.message();
  EXPECT_EQ("", (*options)->printer.monochrome);
}

OBJC_TEST(BundlePrinterOptions, MayBeForAFilterWithANameAndLinesOfItsOwn) {
  OptionsBundle bundle("PDEDocumentFilter = { Program = stamp; Color = a; Monochrome = b; };");
  bundle.AddResource("a", "*A: \"b\"\n");
  bundle.AddResource("b", "*C: \"d\"\n");
  Expected<std::optional<PrinterOptions>> options = bundle.Options();
  ASSERT_TRUE(options) << options.message();
  ASSERT_TRUE(*options);
  EXPECT_EQ("stamp", (*options)->document_filter);
  EXPECT_EQ("", (*options)->picture_filter);
  EXPECT_EQ((OptionLines{"*A: \"b\"\n", "*C: \"d\"\n"}), (*options)->document);
  EXPECT_EQ(OptionLines(), (*options)->printer);
}

OBJC_TEST(BundlePrinterOptions, AFilterIsNamedWithoutAFolder) {
  for (const char *program : {"", "Program = \"/bin/stamp\";", "Program = \"..\";",
                              "Program = \"-\";", "Program = (stamp);"}) {
    EXPECT_EQ("PDEDocumentFilter, Program is no file name",
              OptionsBundle(std::string("PDEDocumentFilter = {") + program + "};").Failing());
  }
}

OBJC_TEST(BundlePrinterOptions, MayHaveAFilterForPictures) {
  OptionsBundle bundle("PDEDocumentFilter = { Program = stamp; Pictures = \"stamp-pictures\"; };");
  Expected<std::optional<PrinterOptions>> options = bundle.Options();
  ASSERT_TRUE(options) << options.message();
  EXPECT_EQ("stamp-pictures", (*options)->picture_filter);
  EXPECT_EQ(
      "PDEDocumentFilter, Pictures is no file name",
      OptionsBundle("PDEDocumentFilter = { Program = stamp; Pictures = \"a/b\"; };").Failing());
}

OBJC_TEST(BundlePrinterOptions, MayBeAbsent) {
  Expected<std::optional<PrinterOptions>> options = OptionsBundle("").Options();
  ASSERT_TRUE(options) << options.message();
  EXPECT_FALSE(*options);
}

OBJC_TEST(BundlePrinterOptions, OfTheWrongKindAreAFailure) {
  EXPECT_EQ("PDEPrinterOptions in its Info.plist is no dictionary",
            OptionsBundle("PDEPrinterOptions = a;").Failing());
  EXPECT_EQ("PDEPrinterOptions, Color is no file name",
            OptionsBundle("PDEPrinterOptions = { Color = (a); };").Failing());
}

OBJC_TEST(BundlePrinterOptions, WhoseResourceIsMissingAreAFailure) {
  EXPECT_EQ("it has no resource a.ppdpart (PDEPrinterOptions, Color)",
            OptionsBundle(kNames).Failing());
}

OBJC_TEST(BundlePrinterOptions, OfOtherThanAsciiCharactersAreAFailure) {
  for (const char *content : {"*A: \"\xC3\xA4\"\n", "*A: \"b\"\r\n", ""}) {
    OptionsBundle bundle("PDEPrinterOptions = { Color = a; };");
    bundle.AddResource("a", content);
    EXPECT_EQ("its resource a is no text of ASCII characters", bundle.Failing());
  }
}

OBJC_TEST(BundlePrinterOptions, NeedAnIdentifierThatFitsAMark) {
  OptionsBundle bundle("PDEPrinterOptions = { Color = a; };");
  bundle.AddResource("Info-gnustep.plist",
                     "{ NSExecutable = Test; NSPrincipalClass = OptionsPlugIn; CFBundleIdentifier "
                     "= \"test, options\"; PDEPrinterOptions = { Color = a; }; }");
  bundle.AddResource("a", "*A: \"b\"\n");
  EXPECT_EQ("its CFBundleIdentifier must be letters, digits, dots, hyphens and underscores",
            bundle.Failing());
}
