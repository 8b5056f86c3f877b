#include "host/presets/PresetName.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <climits>
#include <vector>
#include "tests/support/ExpectedValue.h"

using testing::EndsWith;
using testing::HasSubstr;

namespace {

// Why the name is refused; "" if it is not.
std::string ReasonAgainst(std::string_view name) { return MessageOf(CheckPresetName(name)); }

// Names of every kind that a preset can have.
const std::vector<std::string> kNames = {
    "a",           "A",         "Two words", "Entwurf für Zürich",
    "a/b",         "/",         "..",        ".hidden",
    "half.",       "a.b.plist", ".plist",    "100%",
    "%2F",         "%25",       "%",         "\"quoted\"",
    "back\\slash", "-",         "~",         "*?",
    "Last Used 2", "¿¡",        "日本 😀",
};

}  // namespace

TEST(PresetName, AcceptsAnythingElseThatPeopleType) {
  for (const std::string &name : kNames) EXPECT_EQ("", ReasonAgainst(name)) << name;
}

TEST(PresetName, RefusesNoName) {
  EXPECT_EQ("the preset has no name; give it one", ReasonAgainst(""));
}

TEST(PresetName, RefusesBlanksAtEitherEnd) {
  for (const char *name : {" ", " a", "a ", "\u00A0a", "a\u2003", "\u3000"}) {
    EXPECT_THAT(ReasonAgainst(name), EndsWith("begins or ends with a blank; leave it out"))
        << '"' << name << '"';
  }
}

TEST(PresetName, RefusesTheNamesThatEveryListHasInAnyCase) {
  for (const char *name : {"Default Settings", "Last Used", "default settings", "LAST USED"}) {
    EXPECT_EQ("no preset can be named \"" + std::string(name) +
                  "\": every list of presets has an item of this name; choose another one",
              ReasonAgainst(name));
  }
}

TEST(PresetName, RefusesControlCharacters) {
  using namespace std::string_view_literals;
  for (const std::string_view name :
       {"a\nb"sv, "a\tb"sv, "a\x01"sv, "\x1F"sv, "a\0b"sv, "a\x7F"sv, "a\u0080"sv, "\u009Fa"sv}) {
    EXPECT_THAT(ReasonAgainst(name), HasSubstr("control characters; leave them out"))
        << testing::PrintToString(name);
  }
}

TEST(PresetName, RefusesWhatIsNotUtf8) {
  for (const char *name : {"\xFC", "a\xC3", "\xC0\xAF", "\xED\xA0\x80", "a\xFFz"}) {
    EXPECT_THAT(ReasonAgainst(name), EndsWith("the name is not UTF-8; choose another one")) << name;
  }
}

TEST(PresetName, RefusesANameWhoseFilesNameWouldBeTooLong) {
  const std::string too_long = "the name is too long for a file; choose a shorter one";
  const std::string longest(NAME_MAX - 6, 'n');
  EXPECT_EQ("", ReasonAgainst(longest));
  EXPECT_THAT(ReasonAgainst(longest + 'n'), EndsWith(too_long));
  EXPECT_EQ("", ReasonAgainst(std::string(83, '/')));
  EXPECT_THAT(ReasonAgainst(std::string(84, '/')), EndsWith(too_long));
}

TEST(PresetName, FilesNameIsTheNameWithWhatAPathCannotHoldEscaped) {
  EXPECT_EQ("Zürich 日本.plist", FileNameOfPreset("Zürich 日本"));
  EXPECT_EQ("a%2Fb.plist", FileNameOfPreset("a/b"));
  EXPECT_EQ("%2E.plist", FileNameOfPreset("."));
  EXPECT_EQ("%2Ehidden.txt.plist", FileNameOfPreset(".hidden.txt"));
  EXPECT_EQ("100%25.plist", FileNameOfPreset("100%"));
}

TEST(PresetName, FilesNameLeadsBackToTheName) {
  for (const std::string &name : kNames) {
    EXPECT_EQ(name, PresetNameOfFile(FileNameOfPreset(name))) << FileNameOfPreset(name);
  }
}

TEST(PresetName, DifferentNamesHaveDifferentFiles) {
  std::vector<std::string> files;
  for (const std::string &name : kNames) files.push_back(FileNameOfPreset(name));
  std::sort(files.begin(), files.end());
  EXPECT_EQ(files.end(), std::adjacent_find(files.begin(), files.end()));
}

TEST(PresetName, OtherFilesAreNoPresets) {
  for (const char *file : {"",          "a",           "plist",           ".plist",
                           "a.plist~",  "a.PLIST",     "a.plist.bak",     ".pdeprint.Xa3k9Q",
                           ".a.plist",  "a%2fb.plist", "%41.plist",       "a%.plist",
                           "a%2.plist", "a%2Eb.plist", "Last Used.plist", "default settings.plist",
                           " a.plist",  "a%0A.plist",  "a\n.plist",       "\xFC.plist"}) {
    EXPECT_EQ(std::nullopt, PresetNameOfFile(file)) << file;
  }
}
