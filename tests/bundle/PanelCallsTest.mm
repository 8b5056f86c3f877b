// The loaded bundle meets the functions of whoever loads it: the test program has its own in front.

#include <string>
#include <vector>

#import "tests/support/BuiltBundle.h"
#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

OBJC_TEST(PanelCalls, ReachThePrintSettingsThroughTheSystemsFunctionsInOrder) {
  TestPPD ppd(std::string(kSupported) + kColorDevice);
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  interposed::Clear();
  NewPanel(host);
  const std::vector<std::string> expected = {"get VQBackgroundNumbering",
                                             "set VQBackgroundNumbering=Off",
                                             "get VQBNSize",
                                             "set VQBNSize=Medium",
                                             "get VQBNDensity",
                                             "set VQBNDensity=Medium",
                                             "get VQBNColor",
                                             "set VQBNColor=Black",
                                             "get VQStartNumber",
                                             "set VQStartNumber=1"};
  std::vector<std::string> calls;
  for (const std::string &call : interposed::Calls()) {
    if (!call.starts_with("ppd ")) calls.push_back(call);
  }
  EXPECT_EQ(expected, calls);
}
