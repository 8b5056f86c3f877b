// The executable, as its load commands and symbol tables tell.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/bundle/ExportedConstants.h"
#include "tests/macos/BundleUnderTest.h"

namespace {

using Lines = std::vector<std::string>;

bool HasLine(const Lines &lines, const std::string &text) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string &line) { return line.find(text) != std::string::npos; });
}

std::string For(const char *processor) { return std::string("--arch=") + processor; }

// "_symbol (from Library)" of everything that others must provide.
std::set<std::string> Undefined(const char *processor) {
  std::set<std::string> symbols;
  for (const std::string &line : LinesOf("llvm-nm", {"-m", "-u", For(processor)})) {
    const auto start = line.find(" _");
    if (start != std::string::npos) symbols.insert(line.substr(start + 1));
  }
  return symbols;
}

}  // namespace

TEST(Executable, IsABundleForBothProcessors) {
  for (const char *processor : kProcessors) {
    EXPECT_TRUE(
        HasLine(LinesOf("llvm-objdump", {"--macho", "--private-header", For(processor)}), "BUNDLE"))
        << processor;
  }
}

TEST(Executable, IsLoadedByVersion12AndLater) {
  for (const char *processor : kProcessors) {
    const Lines lines = LinesOf("llvm-objdump", {"--macho", "--private-headers", For(processor)});
    EXPECT_TRUE(HasLine(lines, "minos 12.0")) << processor;
  }
}

TEST(Executable, LoadsOnlyLibrariesThatEverySystemHas) {
  const std::set<std::string> expected{
      "/System/Library/Frameworks/AppKit.framework/Versions/C/AppKit",
      "/System/Library/Frameworks/ApplicationServices.framework/Versions/A/ApplicationServices",
      "/System/Library/Frameworks/Cocoa.framework/Versions/A/Cocoa",
      "/System/Library/Frameworks/CoreFoundation.framework/Versions/A/CoreFoundation",
      "/System/Library/Frameworks/Foundation.framework/Versions/C/Foundation",
      "/usr/lib/libSystem.B.dylib",
      "/usr/lib/libc++.1.dylib",
      "/usr/lib/libcups.2.dylib",
      "/usr/lib/libobjc.A.dylib"};
  for (const char *processor : kProcessors) {
    std::set<std::string> libraries;
    for (const std::string &line :
         LinesOf("llvm-objdump", {"--macho", "--dylibs-used", For(processor)})) {
      if (line.starts_with("\t")) libraries.insert(line.substr(1, line.find(" (") - 1));
    }
    EXPECT_EQ(expected, libraries) << processor;
  }
}

// Each was looked up in the library that has it; none is left to the loader's luck.
TEST(Executable, CallsTheseFunctionsOfOthersAndNoMore) {
  const std::set<std::string> expected{
      "_NSLog (from Foundation)", "_PMPrintSettingsGetValue (from ApplicationServices)",
      "_PMPrintSettingsSetValue (from ApplicationServices)", "_ppdFindAttr (from libcups)"};
  for (const char *processor : kProcessors) {
    std::set<std::string> functions;
    for (const std::string &symbol : Undefined(processor)) {
      // The runtimes' own, and data.
      const bool is_function = !symbol.starts_with("_OBJC_") && !symbol.starts_with("__") &&
                               symbol.find("(from libobjc)") == std::string::npos &&
                               symbol.find("Notification ") == std::string::npos;
      if (is_function) functions.insert(symbol);
    }
    EXPECT_EQ(expected, functions) << processor;
  }
}

TEST(Executable, LeavesNothingToBeLookedUpInWhateverIsLoaded) {
  for (const char *processor : kProcessors) {
    for (const std::string &symbol : Undefined(processor)) {
      EXPECT_EQ(std::string::npos, symbol.find("dynamically looked up")) << symbol;
    }
  }
}

TEST(Executable, ShowsItsClassesAndConstantsAlone) {
  for (const char *processor : kProcessors) {
    std::set<std::string> others, constants;
    for (const std::string &line : LinesOf("llvm-nm", {"-g", "-U", "-j", For(processor)})) {
      if (line.starts_with("_BN")) {
        constants.insert(line.substr(1));
      } else if (line.starts_with("_") && !line.starts_with("_OBJC_CLASS_$_velmoraBN") &&
                 !line.starts_with("_OBJC_METACLASS_$_velmoraBN") &&
                 !line.starts_with("_OBJC_IVAR_$_velmoraBN")) {
        others.insert(line);
      }
    }
    std::set<std::string> expected;
    for (const ExportedConstant &constant : kExportedConstants) expected.insert(constant.symbol);
    EXPECT_EQ(expected, constants) << processor;
    EXPECT_EQ(std::set<std::string>{}, others) << processor;
  }
}

TEST(Executable, NamesNoFolderOfTheMachineThatBuiltIt) {
  for (const std::string &line : LinesOf("strings", {"-a"})) {
    EXPECT_EQ(std::string::npos, line.find(SOURCE_DIRECTORY)) << line;
  }
}
