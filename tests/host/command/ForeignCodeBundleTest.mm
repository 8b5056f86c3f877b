// What extension bundles store into the settings of a job is looked at as anything else.

#include <gmock/gmock.h>

#include "host/command/Commands.h"
#include "tests/host/command/ForeignCode.h"
#include "tests/host/extension/BundleFolder.h"
#import "tests/host/extension/PlainPanel.h"
#import "tests/support/ObjCTest.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::map<std::string, std::string> stored;

NSString *String(const std::string &text) { return [NSString stringWithUTF8String:text.c_str()]; }

}  // namespace

// A panel that stores code when it is asked whether the job may be printed, the last moment.
@interface HostTestStoresCode : PlainPanel {
  id<PDEPlugInCallbackProtocol> _host;
}
@end

@implementation HostTestStoresCode
- (BOOL)initWithBundle:(NSBundle *)bundle {
  return bundle != nil;
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  if (![type isEqualToString:(NSString *)kPrinterModuleTypeIDStr]) return nil;
  HostTestStoresCode *panel = [HostTestStoresCode panelWithSummary:nil];
  panel->_host = host;
  return @[ panel ];
}
- (BOOL)shouldPrint {
  for (const auto &[key, value] : stored) {
    PMPrintSettingsSetValue([_host printSettings], (CFStringRef)String(key),
                            (CFTypeRef)String(value), false);
  }
  return YES;
}
@end

namespace {

class ForeignCodeOfBundle : public ForeignCode {
 protected:
  ForeignCodeOfBundle() { bundle_.AddLibrary(); }
  ~ForeignCodeOfBundle() override { stored.clear(); }

  // Prints in this process with the bundle; answers the exit status.
  int PrintWith(const std::map<std::string, std::string> &settings) {
    stored = settings;
    const ServerEnvironment environment(server());
    PrintOptions options;
    options.queue = "Office";
    options.plugin = bundle_.path();
    options.files = {file_};
    options.wait = true;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = ::Print(options);
    out_ = testing::internal::GetCapturedStdout();
    err_ = testing::internal::GetCapturedStderr();
    return status;
  }

  BundleFolder bundle_{"NSExecutable = Test; NSPrincipalClass = HostTestStoresCode;"};
  std::string out_, err_;
};

}  // namespace

TEST_F(ForeignCodeOfBundle, ForAnOptionOfThePrinterIsRefused) {
  const int before = NewestJob();
  for (const std::string option : {"Duplex", "VQText", "JCLNote", "PageSize", "VQBNSize"}) {
    std::vector<std::string> values = Hostile();
    for (const std::string &value : HostileCustom()) values.push_back(value);
    for (const std::string &value : values) {
      EXPECT_EQ(1, PrintWith({{option, value}}));
      EXPECT_THAT(err_, HasSubstr("pdeprint: the job's " + option + " is "));
      EXPECT_EQ("", out_);
    }
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCodeOfBundle, UnderAnotherSpellingOfAnOptionIsRefused) {
  const int before = NewestJob();
  EXPECT_EQ(1, PrintWith({{"vqtext", "custom.a\\"}}));
  EXPECT_THAT(err_, StartsWith("pdeprint: the job's vqtext is "));
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCodeOfBundle, ForOptionsThatThePrinterDoesNotHaveChangesNothingOnPaper) {
  EXPECT_EQ(0, PrintWith({{"Unknown", Hostile()[1]},
                          {"Unknown VQText", "Custom.a"},
                          {"Unknown=1\nVQText=Custom.a VQNote", "Custom.a"},
                          {"mirror", Hostile()[1]}}));
  EXPECT_EQ("", err_);
  EXPECT_EQ(Plain(), Comparable(server().OutputOf(NewestJob())));
}
