#include <gtest/gtest.h>

#include "tests/macos/BundleUnderTest.h"
#include "tests/macos/ClassMetadata.h"
#include "tests/support/ClassTable.h"

// Names, superclasses, fields in their order, properties' attributes and selectors.
TEST(Classes, AreThoseOfTheTableForEachProcessor) {
  for (const char *processor : kProcessors) {
    EXPECT_EQ(ExpectedClassTable(),
              ClassMetadata(LinesOf("llvm-objdump", {"--macho", "--objc-meta-data",
                                                     std::string("--arch=") + processor})))
        << processor;
  }
}
