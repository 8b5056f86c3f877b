// `pdeprint enable` and `pdeprint disable` on PPD files.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/host/command/OptionsBundle.h"
#include "tests/support/MarkOptions.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class EnableVerb : public testing::Test {
 protected:
  RunResult Run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), program_.path().string());
    return RunProgram(arguments, program_.Options());
  }

  // Done without a message; answers the file that was written.
  std::string Changed(const std::string &verb, const fs::path &ppd) const {
    const RunResult result = Run({verb, ppd, "-o", out_});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("", result.err);
    EXPECT_THAT(result.out, StartsWith("wrote " + out_));
    return ContentOf(out_);
  }

  // The message, when nothing has been written, not even in the place of an earlier file.
  std::string Refusal(const std::vector<std::string> &arguments, int status = 1) const {
    std::vector<std::string> command = arguments;
    folder_.Write("out.ppd", "earlier");
    command.insert(command.end(), {"-o", out_});
    const RunResult result = Run(command);
    EXPECT_EQ(status, result.status);
    EXPECT_EQ("", result.out);
    EXPECT_EQ("earlier", ContentOf(out_));
    return result.err;
  }

  ProgramWithOptions program_;
  TemporaryFolder folder_;
  const std::string ppd_ = folder_.Write("in.ppd", PrinterText());
  const std::string out_ = (folder_.path() / "out.ppd").string();
};

}  // namespace

TEST_F(EnableVerb, AddsTheBundlesOptionsToAFile) {
  const RunResult result = Run({"enable", ppd_, "-o", out_});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
  EXPECT_EQ("wrote " + out_ + ", with the printer options of Marks\n", result.out);
  EXPECT_THAT(ContentOf(out_), StartsWith(PrinterText()));
  EXPECT_THAT(ContentOf(out_), HasSubstr("*OpenUI *MarkSize/Size: PickOne\n"));
  EXPECT_EQ(PrinterText(), ContentOf(ppd_));
}

TEST_F(EnableVerb, DisablingTakesThemOutAgain) {
  Changed("enable", ppd_);
  const RunResult result = Run({"disable", out_, "-o", out_});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
  EXPECT_EQ("wrote " + out_ + ", without the printer options of test.marks\n", result.out);
  EXPECT_EQ(PrinterText(), ContentOf(out_));
}

TEST_F(EnableVerb, TwiceIsTheSameAsOnce) {
  const std::string once = Changed("enable", ppd_);
  EXPECT_EQ(once, Changed("enable", out_));
}

TEST_F(EnableVerb, ReadsACompressedFile) {
  const std::string enabled = Changed("enable", ppd_);
  ASSERT_EQ(0, RunProgram({"gzip", ppd_}).status);
  EXPECT_EQ(enabled, Changed("enable", ppd_ + ".gz"));
}

TEST_F(EnableVerb, KeepsThePermissionsOfTheFileInItsPlace) {
  ASSERT_EQ(0, chmod(ppd_.c_str(), 0640));
  EXPECT_EQ(0, Run({"enable", ppd_, "-o", ppd_}).status);
  EXPECT_EQ(fs::perms(0640), fs::status(ppd_).permissions());
  EXPECT_THAT(ContentOf(ppd_), HasSubstr("*OpenUI *Mark/"));
}

TEST_F(EnableVerb, AddsTheOptionsOfAllBundles) {
  program_.AddSecondBundle();
  const std::string text = Changed("enable", ppd_);
  EXPECT_THAT(text, HasSubstr("*% BEGIN printer options of test.marks, added by pdeprint\n"));
  EXPECT_THAT(text, HasSubstr("*% BEGIN printer options of test.second, added by pdeprint\n"));
}

TEST_F(EnableVerb, RefusesWhatIsNotThere) {
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n",
            Refusal({"enable", "/absent.ppd"}));
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n",
            Refusal({"disable", "/absent.ppd"}));
}

TEST_F(EnableVerb, RefusesAFileThatTheOptionsAreNotFor) {
  const std::string raster = folder_.Write(
      "raster.ppd", PrinterText("*cupsFilter: \"application/vnd.cups-raster 50 rastertopcl\"\n"));
  EXPECT_EQ("pdeprint: cannot enable " + raster +
                ": no PostScript printer: it does not get PostScript as the print system makes it, "
                "but application/vnd.cups-raster through the filter rastertopcl\n",
            Refusal({"enable", raster}));
}

TEST_F(EnableVerb, RefusesABundleWithoutPrinterOptions) {
  program_.RemoveOptions();
  EXPECT_EQ(
      "pdeprint: no printer options: PDEPrinterOptions in the Info.plist of a bundle names them, "
      "and Marks has none; name another bundle with --plugin\n",
      Refusal({"enable", ppd_}));
}

TEST_F(EnableVerb, RefusesANamedBundleWithoutPrinterOptionsThoughOthersHaveThem) {
  program_.AddSecondBundle();
  const fs::path second = program_.SecondBundle();
  fs::remove(second / "Resources/color.ppdpart");
  EXPECT_EQ("pdeprint: the bundle " + second.string() +
                " cannot give its printer options: it has no resource color.ppdpart "
                "(PDEPrinterOptions, Color)\n",
            Refusal({"enable", ppd_, "--plugin", second}));
  program_.WriteSecondInfo("");
  EXPECT_THAT(Refusal({"enable", ppd_, "--plugin", second}), HasSubstr("and Second has none"));
}

TEST_F(EnableVerb, RefusesToWorkWithoutABundle) {
  program_.RemoveBundle();
  EXPECT_THAT(Refusal({"enable", ppd_}),
              StartsWith("pdeprint: no extension bundle (*.plugin) in "));
}

TEST_F(EnableVerb, FailsWhereTheFileCannotBeWritten) {
  for (const char *verb : {"enable", "disable"}) {
    const std::string absent = (folder_.path() / "absent/a.ppd").string();
    const RunResult result = Run({verb, ppd_, "-o", absent});
    EXPECT_EQ(1, result.status);
    EXPECT_THAT(result.err, HasSubstr("cannot write " + absent + ": No such file"));
    EXPECT_EQ("", result.out);
  }
}

TEST_F(EnableVerb, WrongUsageSaysWhatIsMissing) {
  const auto wrong = [this](const std::vector<std::string> &arguments) {
    const RunResult result = Run(arguments);
    EXPECT_EQ(2, result.status);
    const std::string start = "pdeprint: ";
    EXPECT_THAT(result.err, StartsWith(start));
    EXPECT_THAT(result.err, EndsWith(" --help` says more\n"));
    return result.err.substr(start.size(), result.err.rfind("; `") - start.size());
  };
  for (const char *verb : {"enable", "disable"}) {
    EXPECT_EQ("--output is required", wrong({verb, ppd_}));
    EXPECT_EQ("PPD: name either a PPD file or a queue (-d)", wrong({verb}));
    EXPECT_EQ("PPD: name either a PPD file or a queue (-d)",
              wrong({verb, ppd_, "-d", "Office", "-o", out_}));
    EXPECT_EQ("--apply: only a queue (-d) can be given a PPD file",
              wrong({verb, ppd_, "-o", out_, "--apply"}));
    EXPECT_EQ("--apply: no file is written then; leave out --output",
              wrong({verb, "-d", "Office", "-o", out_, "--apply"}));
    EXPECT_EQ("--all: name neither a PPD file nor a queue then",
              wrong({verb, "-d", "Office", "--all"}));
    EXPECT_EQ("--all: each queue has a file of its own; leave out --output",
              wrong({verb, "--all", "-o", out_}));
    EXPECT_EQ("--json: only the report about all queues (--all) is in JSON",
              wrong({verb, "-d", "Office", "--json"}));
  }
  EXPECT_THAT(wrong({"enable", ppd_, "-o", out_, "--method", "magic"}), StartsWith("--method: "));
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(EnableVerb, DisablingAFileWithoutAddedOptionsWritesItUnchanged) {
  const RunResult result = Run({"disable", ppd_, "-o", out_});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("pdeprint: note: " + ppd_ + ": pdeprint has added nothing that could be taken out\n",
            result.err);
  EXPECT_EQ(PrinterText(), ContentOf(out_));
}

TEST_F(EnableVerb, DisablingAFileWithItsMakersOptionsSaysSo) {
  const std::string own = folder_.Write("own.ppd", PrinterText("*MarkSupport: \"yes\"\n"));
  const RunResult result = Run({"disable", own, "-o", out_});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("pdeprint: note: " + own +
                ": the printer options of Marks are the maker's own, which stay: pdeprint has "
                "added nothing\n",
            result.err);
  EXPECT_EQ(ContentOf(own), ContentOf(out_));
}

TEST_F(EnableVerb, DisablingNeedsNoBundle) {
  Changed("enable", ppd_);
  program_.RemoveBundle();
  EXPECT_EQ(PrinterText(), Changed("disable", out_));
}

TEST_F(EnableVerb, DisablingRefusesABlockThatWasEdited) {
  std::string text = Changed("enable", ppd_);
  text.erase(text.rfind("*% END"));
  const std::string edited = folder_.Write("edited.ppd", text);
  EXPECT_THAT(
      Refusal({"disable", edited}),
      HasSubstr("cannot be told from the others: there is no end to what begins on line 29"));
}
