// What test programs do first.

#include <gtest/gtest.h>

#include <iostream>

#import "tests/support/TestProcess.h"

namespace {

class Application : public testing::Environment {
  void SetUp() override { StartApplication(); }
};

}  // namespace

int main(int argc, char **argv) {
  SpeakEnglish(argv);
  testing::InitGoogleTest(&argc, argv);
  if (testing::UnitTest::GetInstance()->total_test_count() == 0) {
    std::cerr << "this program has no tests\n";
    return 1;
  }
  testing::AddGlobalTestEnvironment(new Application);
  return RUN_ALL_TESTS();
}
