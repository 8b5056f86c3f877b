// `pdeprint check`.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/host/command/BuiltProgram.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

// What `check` says of a PPD file with these lines, after the file's name.
std::string CheckOf(const std::string &lines) {
  TestPPD ppd(lines);
  const RunResult result = RunPdeprint({"check", ppd.path().string()});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("", result.err);
  const std::string start = ppd.path().string() + ": ";
  EXPECT_THAT(result.out, StartsWith(start));
  return result.out.substr(std::min(start.size(), result.out.size()));
}

}  // namespace

TEST(Check, OffersThePanelOnColorAndMonochromePrinters) {
  const RunResult result = RunPdeprint({"check", kColorPPD, kMonoPPD});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ(std::string(kColorPPD) + ": panel offered, color printer, by the printer\n" + kMonoPPD +
                ": panel offered, monochrome printer, by the printer\n",
            result.out);
  EXPECT_EQ("", result.err);
}

TEST(Check, OffersThePanelWhereTheFirstAttributeIsExactlyTrue) {
  const std::string offered = "panel offered, color printer, by the printer\n";
  EXPECT_EQ(offered, CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport: true\n"));
  EXPECT_EQ(offered,
            CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport Part/Text: \"true\"\n"));
  EXPECT_EQ(offered, CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n"
                             "*VQBackgroundNumberingSupport: \"false\"\n"));
  EXPECT_EQ("panel offered, monochrome printer, by the printer\n", CheckOf(kSupported));
}

TEST(Check, SaysWhyThePanelIsNotOffered) {
  EXPECT_EQ("no panel: no attribute VQBackgroundNumberingSupport\n", CheckOf(kColorDevice));
  const auto value = [](const std::string &is) {
    return "no panel: VQBackgroundNumberingSupport is \"" + is + "\", must be exactly \"true\"\n";
  };
  EXPECT_EQ(value("True"), CheckOf("*VQBackgroundNumberingSupport: True\n"));
  EXPECT_EQ(value("true "), CheckOf("*VQBackgroundNumberingSupport: \"true \"\n"));
  EXPECT_EQ(value(""), CheckOf("*VQBackgroundNumberingSupport: \"\"\n"));
  EXPECT_EQ(value("false"), CheckOf("*VQBackgroundNumberingSupport: \"false\"\n"
                                    "*VQBackgroundNumberingSupport: \"true\"\n"));
}

TEST(Check, SaysOneLineOfAValueOfSeveralLines) {
  const std::string said = CheckOf("*VQBackgroundNumberingSupport: \"tr\nue\"\n*End\n");
  EXPECT_EQ(1, std::count(said.begin(), said.end(), '\n')) << said;
}

TEST(Check, GoesOnAfterAFileThatCannotBeRead) {
  TemporaryFolder folder;
  const std::string bad = folder.Write("bad.ppd", "*PPD-Adobe: \"4.3\"\nrubbish\n").string();
  const std::string pipe = (folder.path() / "pipe").string();
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  const RunResult result = RunPdeprint({"check", "/absent.ppd", bad, pipe, "/", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("/absent.ppd: cannot be read: no such file\n" + bad +
                ": cannot be read: Missing asterisk in column 1 on line 2\n" + pipe +
                ": cannot be read: not a regular file\n"
                "/: cannot be read: not a regular file\n" +
                kColorPPD + ": panel offered, color printer, by the printer\n",
            result.out);
}

TEST(Check, ACompressedFileThatIsCutOffCannotBeRead) {
  TemporaryFolder folder;
  const std::string file = folder.Write("a.ppd", TestPPD::Text(kColorDevice)).string();
  ASSERT_EQ(0, RunProgram({"gzip", file}).status);
  const std::string compressed = file + ".gz";
  std::filesystem::resize_file(compressed, std::filesystem::file_size(compressed) - 9);
  const RunResult result = RunPdeprint({"check", compressed});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ(compressed + ": cannot be read: the file is damaged or cut off\n", result.out);
}

TEST(Check, AnswersInJson) {
  TestPPD other("*VQBackgroundNumberingSupport: \"tr\xfc\"\n");
  const RunResult result =
      RunPdeprint({"check", "--json", kColorPPD, kMonoPPD, other.path().string(), "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  const Json json = Parsed(result.out);
  ASSERT_EQ(4u, json.size());
  EXPECT_EQ(
      Json({{"file", kColorPPD},
            {"readable", true},
            {"offered", true},
            {"color", true},
            {"panels", {"Background Numbering"}},
            {"applied", Json::array({{{"bundle", "Background Numbering"}, {"by", "printer"}}})},
            {"reason", nullptr}}),
      json[0]);
  EXPECT_EQ(false, json[1]["color"]);
  EXPECT_EQ(false, json[2]["offered"]);
  EXPECT_EQ("VQBackgroundNumberingSupport is \"tr\uFFFD\", must be exactly \"true\"",
            json[2]["reason"]);
  EXPECT_EQ(Json({{"file", "/absent.ppd"},
                  {"readable", false},
                  {"offered", false},
                  {"color", nullptr},
                  {"panels", Json::array()},
                  {"applied", Json::array()},
                  {"reason", "no such file"}}),
            json[3]);
}

TEST(Check, FailsWithoutABundle) {
  const RunResult result = RunPdeprint({"check", "--plugin", "/nowhere/x.plugin", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: no bundle at /nowhere/x.plugin\n", result.err);
  EXPECT_EQ("", result.out);
}
