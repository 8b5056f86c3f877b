#include <filesystem>
#include <string>

#include "tests/macos/BundleUnderTest.h"
#import "tests/support/ObjCTest.h"

namespace fs = std::filesystem;

namespace {

NSString *String(const fs::path &path) { return [NSString stringWithUTF8String:path.c_str()]; }

id PropertyList(const fs::path &path) {
  NSData *data = [NSData dataWithContentsOfFile:String(path)];
  NSString *error = nil;
  id content = [NSPropertyListSerialization propertyListFromData:data
                                                mutabilityOption:NSPropertyListImmutable
                                                          format:nullptr
                                                errorDescription:&error];
  EXPECT_TRUE([content isKindOfClass:[NSDictionary class]]) << path << ": " << [error UTF8String];
  return content;
}

NSDictionary *Info() { return PropertyList(BundleUnderTest() / "Contents/Info.plist"); }

NSDictionary *Table(const fs::path &path) {
  NSData *data = [NSData dataWithContentsOfFile:String(path)];
  NSString *text = [[[NSString alloc] initWithData:data
                                          encoding:NSUnicodeStringEncoding] autorelease];
  return [text propertyListFromStringsFileFormat];
}

}  // namespace

OBJC_TEST(InfoPlist, SaysWhatADialogAsksOfABundle) {
  NSDictionary *info = Info();
  NSDictionary *expected = @{
    @"CFBundleDevelopmentRegion" : @"en",
    @"CFBundleExecutable" : @"BackgroundNumbering",
    @"CFBundleIdentifier" : @"com.velmora.print.pde.BackgroundNumbering",
    @"CFBundleInfoDictionaryVersion" : @"6.0",
    @"CFBundleName" : @"Background Numbering",
    @"CFBundlePackageType" : @"BNDL",
    @"CFBundleShortVersionString" : @PROJECT_VERSION,
    @"CFBundleVersion" : @PROJECT_VERSION,
    @"LSMinimumSystemVersion" : @"12.0",
    @"NSPrincipalClass" : @"velmoraBNPdePluginRV2",
  };
  for (NSString *key in expected) {
    EXPECT_EQUAL_OBJECTS([expected objectForKey:key], [info objectForKey:key]);
  }
  EXPECT_TRUE([[info objectForKey:@"PMSandboxCompatiblePDEs"] boolValue]);
  EXPECT_TRUE([[info objectForKey:@"NSHumanReadableCopyright"] hasPrefix:@"Copyright \u00a9 20"]);
}

OBJC_TEST(InfoPlist, HasNoPlaceLeftThatTheBuildFillsIn) {
  NSString *text = [[Info() description] stringByAppendingString:[[Info() allKeys] description]];
  EXPECT_EQ(NSNotFound, static_cast<NSInteger>([text rangeOfString:@"@"].location));
  EXPECT_EQ(NSNotFound, static_cast<NSInteger>([text rangeOfString:@"$"].location));
}

OBJC_TEST(SettingInfo, IsThatOfTheSources) {
  const char *name = "BackgroundNumberingRV2-SettingInfo.plist";
  EXPECT_EQUAL_OBJECTS(PropertyList(fs::path(SOURCE_DIRECTORY "/resources") / name),
                       PropertyList(BundleUnderTest() / "Contents/Resources" / name));
}

// Converted, and nothing lost on the way.
OBJC_TEST(Strings, EveryTableIsReadAsThatOfTheSources) {
  int tables = 0;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIRECTORY "/resources")) {
    if (entry.path().extension() != ".lproj") continue;
    const fs::path name = entry.path().filename() / "Localizable.strings";
    NSString *source =
        [NSString stringWithContentsOfFile:String(entry.path() / "Localizable.strings")
                                  encoding:NSUTF8StringEncoding
                                     error:nullptr];
    NSDictionary *table = Table(BundleUnderTest() / "Contents/Resources" / name);
    EXPECT_LT(0u, [table count]) << name;
    EXPECT_EQUAL_OBJECTS([source propertyListFromStringsFileFormat], table);
    ++tables;
  }
  EXPECT_EQ(30, tables);
}
