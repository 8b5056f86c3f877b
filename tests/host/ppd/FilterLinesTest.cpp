#include "host/ppd/FilterLines.h"

#include <gtest/gtest.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/TestPPD.h"

namespace {

std::string Read(std::string_view value) {
  const std::optional<FilterLine> line = FilterLineIn(value);
  if (!line) return "none";
  return line->source + '|' + line->destination + '|' + std::to_string(line->cost) + '|' +
         (line->most ? std::to_string(*line->most) : "") + '|' + line->program;
}

std::vector<FilterLine> LinesOf(const std::string &lines) {
  Expected<PPDFile> ppd = ParsePPD(TestPPD::Text(lines));
  EXPECT_TRUE(ppd) << ppd.message();
  return FilterLinesOf(*ppd);
}

}  // namespace

TEST(FilterLines, HaveADestinationOrNone) {
  EXPECT_EQ(Read("application/vnd.cups-raster 50 rastertohp"),
            "application/vnd.cups-raster||50||rastertohp");
  EXPECT_EQ(Read("application/vnd.cups-pdf application/pdf -1 -"),
            "application/vnd.cups-pdf|application/pdf|-1||-");
  EXPECT_EQ(Read("a/b\tc/d  7\tmaxsize(4096) /opt/two words"), "a/b|c/d|7|4096|/opt/two words");
}

TEST(FilterLines, AreNoneThatThePrintServerDoesNotUnderstand) {
  for (const char *value :
       {"", "a/b", "a/b c/d", "a/b x y", "a/b 5", "ab 0 x", "a/b 0 maxsize(5"}) {
    EXPECT_EQ(Read(value), "none") << value;
  }
}

TEST(FilterLines, OfTheNewerKindAreAloneInForce) {
  const std::vector<FilterLine> lines =
      LinesOf("*cupsFilter: \"a/b 0 older\"\n*cupsFilter2: \"a/b c/d 0 newer\"\n");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].program, "newer");
}

TEST(FilterLines, OfAFileWithoutAnyAreThePostScriptPrinters) {
  const std::vector<FilterLine> lines = LinesOf("");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].source, "application/vnd.cups-postscript");
  EXPECT_EQ(lines[0].program, "-");
}
