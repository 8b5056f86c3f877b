#include "host/presets/Ticket.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include "host/job/SettingOptions.h"
#include "tests/support/LeakCheckingPause.h"
#include "tests/support/MessageOf.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

NSDictionary *Values(PMPrintSettings settings) {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(settings, &values);
  return [(NSDictionary *)values autorelease];
}

PrintSettings SettingsWith(NSDictionary *values) {
  PrintSettings settings = EmptyPrintSettings();
  for (NSString *key in values) {
    PMPrintSettingsSetValue(settings.get(), (CFStringRef)key, [values objectForKey:key], false);
  }
  return settings;
}

// What is read back of the values after they were written.
NSDictionary *RoundTrip(NSDictionary *values) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "ticket.plist";
  if (auto written = WriteTicket(file, SettingsWith(values).get()); !written) {
    ADD_FAILURE() << written.message();
    return nil;
  }
  Expected<PrintSettings> settings = ReadTicket(file);
  if (!settings) {
    ADD_FAILURE() << settings.message();
    return nil;
  }
  return Values(settings->get());
}

// Why the content is refused; "" if it is not.
std::string ReasonAgainst(const std::string &content) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("ticket.plist", content);
  Expected<PrintSettings> settings = ReadTicket(file);
  if (settings) return "";
  const std::string start = "cannot read ticket " + file.string() + ": ";
  EXPECT_THAT(settings.message(), StartsWith(start));
  return settings.message().substr(start.size());
}

std::string Xml(const std::string &root) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">" +
         root + "</plist>\n";
}

}  // namespace

OBJC_TEST(JobTicket, EmptySettingsAreEmpty) {
  EXPECT_EQUAL_OBJECTS(@{}, Values(EmptyPrintSettings().get()));
}

OBJC_TEST(JobTicket, NoPathAndNoFileMeanEmptySettings) {
  TemporaryFolder folder;
  for (const fs::path &path : {fs::path(), folder.path() / "absent.plist"}) {
    Expected<PrintSettings> settings = ReadTicket(path);
    ASSERT_TRUE(settings) << settings.message();
    EXPECT_EQUAL_OBJECTS(@{}, Values(settings->get()));
  }
}

OBJC_TEST(JobTicket, ReadsAPropertyList) {
  TemporaryFolder folder;
  const fs::path file = folder.Write(
      "Zürich/ticket 日本.plist",
      Xml("<dict><key>VQBNSize</key><string>Large</string><key>größe</key>"
          "<string>日本 😀 &lt;&amp;&gt;</string><key>n</key><integer>5</integer></dict>"));
  Expected<PrintSettings> settings = ReadTicket(file);
  ASSERT_TRUE(settings) << settings.message();
  NSDictionary *expected = @{
    @"VQBNSize" : @"Large",
    @"größe" : @"日本 😀 <&>",
    @"n" : [NSNumber numberWithInt:5],
  };
  EXPECT_EQUAL_OBJECTS(expected, Values(settings->get()));
}

OBJC_TEST(JobTicket, ReadsWhatItWrote) {
  NSDictionary *values = @{
    @"VQBNSize" : @"Large",
    @"com.other.größe" : @"äöü ¿日本? <&>\"'",
    @"empty" : @"",
    @"lines" : @"one\ntwo\tthree",
    @"blanks" : @"  two  ",
  };
  EXPECT_EQUAL_OBJECTS(values, RoundTrip(values));
}

// As they stand in titles of documents.
OBJC_TEST(JobTicket, ReadsWhatItWroteBeyondTheBasicPlane) {
  NSDictionary *values = @{@"com.other.title" : @"holiday 😀😀 𝒳", @"𠮷" : @"x"};
  EXPECT_EQUAL_OBJECTS(values, RoundTrip(values));
}

// As they stand in names of files of other systems.
OBJC_TEST(JobTicket, ReadsWhatItWroteWithBackslashes) {
  NSDictionary *values = @{@"com.other.file" : @"C:\\New\\101\\"};
  EXPECT_EQUAL_OBJECTS(values, RoundTrip(values));
}

OBJC_TEST(JobTicket, KeepsOtherVendorsValuesOfEveryKind) {
  const char bytes[] = {0, 1, 2, '\xff'};
  NSDictionary *values = @{
    @"com.other.yes" : [NSNumber numberWithBool:YES],
    @"com.other.number" : [NSNumber numberWithLongLong:-9007199254740993],
    @"com.other.fraction" : [NSNumber numberWithDouble:1.25],
    @"com.other.date" : [NSDate dateWithTimeIntervalSince1970:1600000000],
    @"com.other.data" : [NSData dataWithBytes:bytes length:sizeof bytes],
    @"com.other.list" : @[ @"a", @[ @"b" ], @{@"c" : @"d"} ],
    @"com.other.dictionary" : @{@"deep" : @{@"deeper" : @""}},
  };
  EXPECT_EQUAL_OBJECTS(values, RoundTrip(values));
}

OBJC_TEST(JobTicket, WritesAnXmlPropertyList) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "ticket.plist";
  ASSERT_TRUE(WriteTicket(file, SettingsWith(@{@"key" : @"value"}).get()));
  const std::string content = ContentOf(file);
  EXPECT_THAT(content, StartsWith("<?xml"));
  EXPECT_THAT(content, HasSubstr("<key>key</key>"));
  EXPECT_THAT(content, HasSubstr("<string>value</string>"));
}

OBJC_TEST(JobTicket, SaysWhereItCannotBeWritten) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "absent" / "ticket.plist";
  EXPECT_EQ("cannot write " + file.string() + ": No such file or directory",
            MessageOf(WriteTicket(file, EmptyPrintSettings().get())));
}

OBJC_TEST(JobTicket, RefusesWhatIsNoPropertyList) {
  LeakCheckingPause pause;  // the platform's parser gives up without cleaning up
  const std::string whole = Xml("<dict><key>VQBNSize</key><string>Large</string></dict>");
  for (const std::string &content :
       {std::string(), std::string("  \n"), std::string("Dear reader,"), std::string("bplist00"),
        std::string("\0\0\0", 3), std::string("{ VQBNSize = "), std::string("( a, b"),
        whole.substr(0, whole.find("Large")), whole.substr(0, whole.find("<dict>")),
        Xml("<dict><key>VQBNSize</key><string>\xff</string></dict>"),
        Xml("<dict><key>VQBNSize</dict></key>")}) {
    EXPECT_THAT(ReasonAgainst(content), StartsWith("not a property list: ")) << content;
  }
}

// The parser descends with every level, and does not come back from many.
OBJC_TEST(JobTicket, RefusesFormatsWhoseNestingIsNotSeen) {
  LeakCheckingPause pause;  // the platform's parser gives up without cleaning up
  const std::string old_style =
      "/* <plist */ { a = " + std::string(101, '(') + std::string(101, ')') + "; }";
  EXPECT_THAT(ReasonAgainst(old_style), StartsWith("not a property list: "));
}

// In the encoding that is named, a text may be markup that nobody has looked at.
OBJC_TEST(JobTicket, ReadsUtf8WhateverTheDeclarationSays) {
  TemporaryFolder folder;
  Expected<PrintSettings> settings = ReadTicket(
      folder.Write("utf7.plist", "<?xml version=\"1.0\" encoding=\"UTF-7\"?><plist><dict>"
                                 "<key>a</key><string>+AOQ-</string></dict></plist>"));
  ASSERT_TRUE(settings) << settings.message();
  const JobOptions expected = {{"a", "+AOQ-"}};
  EXPECT_EQ(expected, *JobOptionsFromSettings(settings->get()));
}

OBJC_TEST(JobTicket, ReadsAPropertyListWithoutADeclaration) {
  TemporaryFolder folder;
  const fs::path file =
      folder.Write("ticket.plist", "<plist><dict><key>ä</key><string>ö</string></dict></plist>");
  Expected<PrintSettings> settings = ReadTicket(file);
  ASSERT_TRUE(settings) << settings.message();
  EXPECT_EQUAL_OBJECTS(@{@"ä" : @"ö"}, Values(settings->get()));
}

OBJC_TEST(JobTicket, RefusesAPropertyListThatIsNoDictionary) {
  for (const std::string &content :
       {Xml("<array><string>a</string></array>"), Xml("<string>a</string>"), Xml("<true/>")}) {
    EXPECT_EQ("the property list is no dictionary of print settings", ReasonAgainst(content));
  }
}

OBJC_TEST(JobTicket, RefusesWhatIsNoRegularFile) {
  TemporaryFolder folder;
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  for (const fs::path &path : {folder.path(), pipe}) {
    Expected<PrintSettings> settings = ReadTicket(path);
    ASSERT_FALSE(settings);
    EXPECT_EQ("cannot read ticket " + path.string() + ": not a regular file", settings.message());
  }
}

OBJC_TEST(JobTicket, StringsAndNumbersBecomeOptions) {
  NSDictionary *values = @{
    @"größe" : @"groß",
    @"number" : [NSNumber numberWithInt:7],
    @"fraction" : [NSNumber numberWithDouble:1.25],
    @"dictionary" : @{@"a" : @"b"},
    @"list" : @[ @"a" ],
    @"data" : [NSData data],
    @"date" : [NSDate date],
  };
  const JobOptions expected = {{"größe", "groß"}, {"number", "7"}, {"fraction", "1.25"}};
  EXPECT_EQ(expected, *JobOptionsFromSettings(SettingsWith(values).get()));
}

OBJC_TEST(JobTicket, OneOptionIsAsAmongAll) {
  NSDictionary *values = @{@"größe" : @"groß", @"number" : @7, @"list" : @[ @"a" ]};
  const PrintSettings settings = SettingsWith(values);
  EXPECT_EQ("groß", *JobOptionFromSettings(settings.get(), "größe"));
  EXPECT_EQ("7", *JobOptionFromSettings(settings.get(), "number"));
  EXPECT_EQ(std::nullopt, *JobOptionFromSettings(settings.get(), "list"));
  EXPECT_EQ(std::nullopt, *JobOptionFromSettings(settings.get(), "absent"));
}

OBJC_TEST(JobTicket, TextsThatCannotBeSentAreNoOptions) {
  const unichar kZero[] = {'a', 0, 'b'};
  NSString *zero = [NSString stringWithCharacters:kZero length:3];
  NSMutableString *half = [NSMutableString stringWithString:@"\U0001F600"];
  [half deleteCharactersInRange:NSMakeRange(0, 1)];  // half a surrogate pair
  NSDictionary *values = @{@"a" : @"b", zero : @"c", @"d" : zero, @"e" : half};
  const JobOptions expected = {{"a", "b"}};
  EXPECT_EQ(expected, *JobOptionsFromSettings(SettingsWith(values).get()));
}

OBJC_TEST(JobTicket, NamesThatWouldBeReadAsSomethingElseAreNoOptions) {
  for (NSString *name in @[ @"a", @"com.other.print-note_2", @"größe", @"a/b", @"a:b" ]) {
    EXPECT_EQ(1u, JobOptionsFromSettings(SettingsWith(@{name : @"x"}).get())->size());
    EXPECT_EQ(std::vector<std::string>(), TextsThatAreNoOptions(@{name : @"x"}));
  }
  for (NSString *name in @[
         @"", @"a b", @"a=b", @"a\nb", @"a\tb", @"a\"b", @"a'b", @"a{b", @"a}b", @"a\\b", @"a\x7f"
       ]) {
    EXPECT_EQ(0u, JobOptionsFromSettings(SettingsWith(@{name : @"x"}).get())->size());
    EXPECT_EQ(std::vector<std::string>{[name UTF8String]}, TextsThatAreNoOptions(@{name : @7}));
  }
}

OBJC_TEST(JobTicket, SettingsThatCannotBeReadAreNoEmptyTicket) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("ticket.plist", "old");
  EXPECT_EQ("cannot write " + file.string() +
                ": cannot read the settings of the job: error -50 of the print system",
            MessageOf(WriteTicket(file, nullptr)));
  EXPECT_EQ("old", ContentOf(file));
  EXPECT_FALSE(JobOptionsFromSettings(nullptr));
}
