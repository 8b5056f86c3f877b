#include "host/ppd/edit/PostScriptPrinter.h"

#include <gtest/gtest.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TestPPD.h"

namespace {

const char kLevel[] = "*LanguageLevel: \"3\"\n";
const char kFoomatic[] =
    "*cupsFilter: \"application/vnd.cups-postscript 100 foomatic-rip\"\n"
    "*cupsFilter: \"application/vnd.cups-pdf 0 foomatic-rip\"\n";

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
}

std::string WhyNotText(const std::string &text) {
  Expected<PPDFile> ppd = ParsePPD(text);
  return ppd ? MessageOf(CheckTakesPostScript(*ppd)) : "unreadable: " + ppd.message();
}

std::string WhyNot(const std::string &lines) { return WhyNotText(TestPPD::Text(lines)); }

std::string WhyNotCommand(const std::string &command) {
  return WhyNot(kFoomatic + ("*FoomaticRIPCommandLine: \"" + command + "\"\n"));
}

}  // namespace

TEST(PostScriptPrinter, IsOneWithoutFilters) { EXPECT_EQ("", WhyNot("")); }

TEST(PostScriptPrinter, IsOneThatPostScriptIsPassedTo) {
  EXPECT_EQ("", WhyNot("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"));
  EXPECT_EQ("", WhyNot("*cupsFilter2: \"application/vnd.cups-postscript application/postscript 0 "
                       "-\"\n"));
}

TEST(PostScriptPrinter, MayHaveFiltersForCommandsAndRawDocuments) {
  EXPECT_EQ("", WhyNot("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"
                       "*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n"
                       "*cupsFilter: \"application/vnd.cups-raw 0 -\"\n"));
}

TEST(PostScriptPrinter, IsNoneWhoseDocumentsPassThroughAFilter) {
  EXPECT_EQ(
      "it does not get PostScript as the print system makes it, but application/vnd.cups-raster "
      "through the filter rastertopcl",
      WhyNot("*cupsFilter: \"application/vnd.cups-raster 50 rastertopcl\"\n"));
  EXPECT_EQ(
      "it does not get PostScript as the print system makes it, but "
      "application/vnd.cups-postscript through the filter /opt/two words",
      WhyNot("*cupsFilter: \"application/vnd.cups-postscript 0 /opt/two words\"\n"));
}

TEST(PostScriptPrinter, IsNoneThatGetsOtherDocumentsAsTheyAre) {
  EXPECT_EQ(
      "it gets documents of the type application/vnd.cups-pdf as they are, without the code of its "
      "options",
      WhyNot("*cupsFilter: \"application/vnd.cups-postscript 50 -\"\n"
             "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n"));
  EXPECT_NE("", WhyNot("*cupsFilter2: \"image/urf image/urf 0 -\"\n"));
}

TEST(PostScriptPrinter, IsNoneWithFiltersForCommandsAlone) {
  EXPECT_EQ("none of its filters is for PostScript (application/vnd.cups-postscript)",
            WhyNot("*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n"));
}

TEST(PostScriptPrinter, TheNewerFiltersAloneCount) {
  EXPECT_EQ("", WhyNot("*cupsFilter: \"application/vnd.cups-raster 50 rastertopcl\"\n"
                       "*cupsFilter2: \"application/vnd.cups-postscript application/postscript 0 "
                       "-\"\n"));
  EXPECT_NE("", WhyNot("*cupsFilter: \"application/vnd.cups-postscript 50 -\"\n"
                       "*cupsFilter2: \"application/vnd.cups-raster printer/x 0 maxsize(5) "
                       "rastertox\"\n"));
}

TEST(PostScriptPrinter, IsOneWhoseFoomaticCommandPassesPostScriptOn) {
  EXPECT_EQ("", WhyNotCommand("cat%A%B%Z"));
  EXPECT_EQ("", WhyNotCommand("cat"));
}

TEST(PostScriptPrinter, IsNoneWhoseFoomaticCommandMakesSomethingElse) {
  EXPECT_EQ(
      "its filter foomatic-rip makes something else of PostScript, with the command \"gs -q "
      "-sDEVICE=pxlmono%Z -\"",
      WhyNotCommand("gs -q -sDEVICE=pxlmono%Z -"));
  EXPECT_NE("", WhyNotCommand("cat%A | ps2ps - -"));
  EXPECT_NE("", WhyNot(kFoomatic));
}

TEST(PostScriptPrinter, IsNoneWhoseFoomaticFilterHasOtherWays) {
  const std::string command = "*FoomaticRIPCommandLine: \"cat%A%Z\"\n";
  EXPECT_EQ(
      "its filter foomatic-rip sends documents through another program "
      "(*FoomaticRIPCommandLinePDF)",
      WhyNot(kFoomatic + command + "*FoomaticRIPCommandLinePDF: \"gs\"\n"));
  EXPECT_NE("", WhyNot(kFoomatic + command + "*FoomaticRIPPostPipe: \"| other\"\n"));
  EXPECT_EQ(
      "an option of its changes what its filter foomatic-rip does (*FoomaticRIPOption: enum "
      "CmdLine A)",
      WhyNot(kFoomatic + command + "*FoomaticRIPOption X: enum CmdLine A\n"));
  EXPECT_EQ("", WhyNot(kFoomatic + command + "*FoomaticRIPOption X: enum JCL A\n"));
}

TEST(PostScriptPrinter, IsNoneOfTheFirstLanguageLevel) {
  EXPECT_EQ("", WhyNotText(Replaced(TestPPD::Text(""), kLevel, "*LanguageLevel: \"2\"\n")));
  EXPECT_EQ("its PostScript is of *LanguageLevel \"1\"; options need 2 or more",
            WhyNotText(Replaced(TestPPD::Text(""), kLevel, "*LanguageLevel: \"1\"\n")));
  EXPECT_NE("", WhyNotText(Replaced(TestPPD::Text(""), kLevel, "*LanguageLevel: \"high\"\n")));
  EXPECT_EQ("its PPD file does not say which *LanguageLevel of PostScript it has",
            WhyNotText(Replaced(TestPPD::Text(""), kLevel, "")));
}
