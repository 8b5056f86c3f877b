// What other programs that load the bundle can see of it.

#include <set>
#include <sstream>
#include <string>

#include "tests/bundle/ExportedConstants.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/ClassTable.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RunProgram.h"

using Names = std::set<std::string>;

OBJC_TEST(VisibleSymbols, AreTheClassesAndConstantsAlone) {
  Names expected;
  for (const ExportedConstant &constant : kExportedConstants) expected.insert(constant.symbol);
  std::istringstream table(ExpectedClassTable());
  for (std::string line; std::getline(table, line);) {
    if (line.empty() || line.starts_with(' ')) continue;
    const std::string name = line.substr(0, line.find(' '));
    // The names that the runtime's compiler gives to a class.
    expected.insert(
        {"_OBJC_CLASS_" + name, "_OBJC_METACLASS_" + name, "__objc_class_name_" + name});
  }

  const RunResult result = RunProgram({"nm", "--dynamic", "--defined-only", "--just-symbols",
                                       [[BuiltBundle() executablePath] UTF8String]});
  ASSERT_EQ(0, result.status) << result.err;
  Names visible;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) visible.insert(line);
  EXPECT_EQ(expected, visible);
}
