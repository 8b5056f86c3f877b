// `pdeprint enable` and `pdeprint disable` on the queues of a real print server.

#include <gmock/gmock.h>

#include <chrono>

#include "tests/host/command/OptionsBundle.h"
#include "tests/host/command/ServedProgram.h"
#include "tests/support/MarkOptions.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr char kFoomatic[] =
    "*cupsFilter: \"application/vnd.cups-postscript 100 foomatic-rip\"\n"
    "*cupsFilter: \"application/vnd.cups-pdf 0 foomatic-rip\"\n"
    "*FoomaticIDs: Test Postscript\n*FoomaticRIPCommandLine: \"cat%A%B%Z\"\n";

// One page that says so.
std::string Page() {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Helvetica findfont 24 scalefont "
         "setfont\n72 700 moveto (a page) show showpage\n%%EOF\n";
}

class EnableQueue : public ServedProgram {
 protected:
  static void SetUpTestSuite() { StartServer(); }

  void AddQueue(const std::string &name, const std::string &lines = "") const {
    server().AddQueue({.name = name,
                       .ppd = folder_.Write("a.ppd", PrinterText(lines)),
                       .description = "Second floor"});
  }

  RunResult Run(Arguments arguments, const EnvironmentChanges &changes = {}) const {
    arguments.insert(arguments.begin(), program_.path().string());
    RunOptions options = ServedProgram::Options(changes);
    options.folder = folder_.path().string();
    return RunProgram(arguments, options);
  }
  std::string ResultOf(const Arguments &arguments) const {
    const RunResult result = Run(arguments);
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_EQ("", result.err);
    return result.out;
  }
  std::string Refusal(const Arguments &arguments, const EnvironmentChanges &changes = {}) const {
    const RunResult result = Run(arguments, changes);
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("", result.out);
    return result.err;
  }

  fs::path FileOf(const std::string &queue) const {
    return server().home().parent_path() / "root/ppd" / (queue + ".ppd");
  }
  fs::path Here(const std::string &file) const { return folder_.path() / file; }

  // What the printer gets of a file.
  std::string Printed(const std::string &queue, const fs::path &file, const Arguments &options) {
    const std::string said = server().Run(Arguments{"lp", "-d", queue} + options + Arguments{file});
    const int job = atoi(said.substr(said.rfind('-') + 1).c_str());
    EXPECT_TRUE(Becomes([&] { return server().JobAttributes(job)["job-state"] == "completed"; }))
        << server().JobAttributes(job)["job-printer-state-message"];
    return server().OutputOf(job);
  }

  ProgramWithOptions program_;
};

}  // namespace

TEST_F(EnableQueue, WritesTheQueuesNewFileAndSaysTheCommandForIt) {
  AddQueue("Plain");
  const std::string before = ContentOf(FileOf("Plain"));
  EXPECT_EQ(
      "wrote Plain.ppd, with the printer options of Marks; this command gives it to the "
      "queue:\nlpadmin -h " +
          server().address() + " -p Plain -P " + Here("Plain.ppd").string() + "\n",
      ResultOf({"enable", "-d", "plain"}));
  EXPECT_THAT(ContentOf(Here("Plain.ppd")), StartsWith(PrinterText()));
  EXPECT_EQ(before, ContentOf(FileOf("Plain")));
}

TEST_F(EnableQueue, TheCommandGivesItToTheQueue) {
  AddQueue("Command");
  const std::string said = ResultOf({"enable", "-d", "Command", "-o", "It's new.ppd"});
  server().Run({"sh", "-c", "PATH=$PATH:/usr/sbin; " + said.substr(said.find('\n') + 1)});
  EXPECT_EQ(ContentOf(Here("It's new.ppd")), ContentOf(FileOf("Command")));
}

TEST_F(EnableQueue, DoesNotReplaceAFileThatItWasNotTold) {
  AddQueue("Mine");
  folder_.Write("Mine.ppd", "mine");
  EXPECT_EQ("pdeprint: Mine.ppd is there already; name the new file with -o\n",
            Refusal({"enable", "-d", "Mine"}));
  EXPECT_EQ("mine", ContentOf(Here("Mine.ppd")));
  ResultOf({"enable", "-d", "Mine", "-o", "Mine.ppd"});
  EXPECT_NE("mine", ContentOf(Here("Mine.ppd")));
}

TEST_F(EnableQueue, AppliesTheChangeItself) {
  AddQueue("Apply");
  EXPECT_EQ("the queue Apply on the print server " + server().address() +
                " has a new PPD file, with the printer options of Marks\n",
            ResultOf({"enable", "-d", "Apply", "--apply"}));
  EXPECT_THAT(server().Run({"lpoptions", "-p", "Apply", "-l"}), HasSubstr("MarkSize/Size: *Small"));
  EXPECT_THAT(server().Run({"lpstat", "-l", "-p", "Apply"}), HasSubstr("Second floor"));
  EXPECT_FALSE(fs::exists(Here("Apply.ppd")));
}

TEST_F(EnableQueue, KeepsTheQueuesDefaultsForTheOptions) {
  AddQueue("Kept");
  ResultOf({"enable", "-d", "Kept", "--apply"});
  server().Run({"/usr/sbin/lpadmin", "-p", "Kept", "-o", "MarkSize=Large"});
  const std::string before = ContentOf(FileOf("Kept"));
  EXPECT_EQ("the queue Kept is as it was, with the printer options of Marks\n",
            ResultOf({"enable", "-d", "Kept", "--apply"}));
  EXPECT_EQ(before, ContentOf(FileOf("Kept")));
  EXPECT_THAT(server().Run({"lpoptions", "-p", "Kept", "-l"}), HasSubstr("*Large"));
}

TEST_F(EnableQueue, DisablingGivesTheQueueItsFileBack) {
  AddQueue("Back");
  const std::string before = ContentOf(FileOf("Back"));
  ResultOf({"enable", "-d", "Back", "--apply"});
  EXPECT_NE(before, ContentOf(FileOf("Back")));
  EXPECT_EQ("the queue Back on the print server " + server().address() +
                " has a new PPD file, without the printer options of test.marks\n",
            ResultOf({"disable", "-d", "Back", "--apply"}));
  EXPECT_EQ(before, ContentOf(FileOf("Back")));
}

TEST_F(EnableQueue, DisablingAQueueWithoutAddedOptionsLeavesItAlone) {
  AddQueue("Alone");
  const RunResult result = Run({"disable", "-d", "Alone", "--apply"});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("the queue Alone is as it was, unchanged\n", result.out);
  EXPECT_EQ("pdeprint: note: Alone: pdeprint has added nothing that could be taken out\n",
            result.err);
}

TEST_F(EnableQueue, RefusesQueuesThatItCannotChange) {
  server().AddQueue({.name = "Raw"});
  AddQueue("Raster", "*cupsFilter: \"application/vnd.cups-raster 50 rastertopcl\"\n");
  for (const char *verb : {"enable", "disable"}) {
    EXPECT_EQ("pdeprint: the queue Raw has no PPD file\n", Refusal({verb, "-d", "Raw"}));
    EXPECT_THAT(Refusal({verb, "-d", "Nobody"}), HasSubstr("has no queue \"Nobody\"; there is "));
    EXPECT_THAT(Refusal({verb, "-d", "Raw"}, {{"CUPS_SERVER", "127.0.0.1:1"}}),
                HasSubstr("no print server at 127.0.0.1:1: "));
  }
  EXPECT_THAT(Refusal({"enable", "-d", "Raster", "--apply"}),
              HasSubstr("cannot enable Raster: no PostScript printer: "));
  EXPECT_FALSE(fs::exists(Here("Raster.ppd")));
}

TEST_F(EnableQueue, RefusesAClassOfPrinters) {
  AddQueue("Member");
  const std::string before = ContentOf(FileOf("Member"));
  server().Run({"/usr/sbin/lpadmin", "-p", "Member", "-c", "Class"});
  for (const char *verb : {"enable", "disable"}) {
    EXPECT_EQ("pdeprint: Class on the print server " + server().address() +
                  " is a class of printers; name one of them\n",
              Refusal({verb, "-d", "Class", "--apply"}));
  }
  EXPECT_FALSE(fs::exists(FileOf("Class")));
  EXPECT_EQ(before, ContentOf(FileOf("Member")));
}

TEST_F(EnableQueue, TheCodeOfTheOptionsArrivesAtThePrinter) {
  AddQueue("Code");
  ResultOf({"enable", "-d", "Code", "--apply"});
  const fs::path page = folder_.Write("page.ps", Page());
  const std::string printed = Printed("Code", page, {"-o", "Mark=On", "-o", "MarkSize=Large"});
  EXPECT_LT(printed.find("(mark large) pop"), printed.find("(mark on) pop")) << printed;
  EXPECT_THAT(printed, HasSubstr("(mark on) pop"));
}

TEST_F(EnableQueue, TheCodeOfTheOptionsArrivesThroughFoomatic) {
  AddQueue("Foomatic", kFoomatic);
  ResultOf({"enable", "-d", "Foomatic", "--apply"});
  const fs::path page = folder_.Write("page.ps", Page());
  ASSERT_EQ(0, RunProgram({"ps2pdf", page, Here("page.pdf")}).status);
  for (const fs::path &file : {page, Here("page.pdf")}) {
    const std::string printed =
        Printed("Foomatic", file, {"-o", "Mark=On", "-o", "MarkSize=Large"});
    EXPECT_LT(printed.find("(mark large) pop"), printed.find("(mark on) pop")) << file << printed;
    EXPECT_THAT(printed, HasSubstr("(mark on) pop")) << file;
  }
}
