// What this computer cannot put numbers into is not printed without them.

#include <gmock/gmock.h>
#include <signal.h>

#include <fstream>
#include <thread>

#include "tests/pages/PreparedServer.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class PrintHereRefusal : public UnpreparedQueues {
 protected:
  // The message of a job with numbers that is refused, and leaves nothing behind.
  std::string Refusal(const std::string &file, const EnvironmentChanges &changes = {}) const {
    return RefusalOf(kPdeprint, file, changes);
  }
  std::string RefusalOf(const std::string &program, const std::string &file,
                        EnvironmentChanges changes = {}) const {
    changes.emplace("TMPDIR", temporary_.path().string());
    const std::string last = LastJob();
    const RunResult result = RunProgram(
        Arguments{program, "print", "-d", "Pdf"} + kFrom25 + Arguments{file}, Options(changes));
    EXPECT_NE(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(LastJob(), last);
    EXPECT_TRUE(fs::is_empty(temporary_.path()));
    return result.err;
  }
  std::string Pdf() const { return File("three.pdf", PlainPdf(3)); }

  // The print system's filters but for one, in the place of which there may be a script.
  EnvironmentChanges Without(const std::string &filter, const std::string &script = "") const {
    const fs::path folder = folder_.path() / "serverbin/filter";
    fs::create_directories(folder);
    for (const auto &entry : fs::directory_iterator("/usr/lib/cups/filter")) {
      if (entry.path().filename() != filter) {
        fs::create_symlink(entry.path(), folder / entry.path().filename());
      }
    }
    if (!script.empty()) {
      std::ofstream(folder / filter) << "#!/bin/sh\n" << script << '\n';
      fs::permissions(folder / filter, fs::perms::owner_all);
    }
    return {{"CUPS_SERVERBIN", folder.parent_path().string()}};
  }

 private:
  static std::string LastJob() { return RunProgram({"lpstat", "-W", "all"}, Options()).out; }

  TemporaryFolder temporary_;
};

}  // namespace

TEST_F(PrintHereRefusal, NamesThePackageOfAMissingLayoutProgram) {
  EXPECT_THAT(Refusal(Pdf(), Without("pdftopdf")),
              HasSubstr("the program pdftopdf is not there; install the package cups-filters"));
}

TEST_F(PrintHereRefusal, NamesThePackageOfAMissingConverter) {
  EXPECT_EQ(Refusal(File("a.txt", "Text\n"), Without("texttopdf")),
            "pdeprint: cannot print " + (folder_.path() / "a.txt").string() +
                ": no program here makes pages of documents of the type text/plain; install the "
                "package cups-filters\n");
}

TEST_F(PrintHereRefusal, NamesThePackageOfAMissingDocumentFilter) {
  const TemporaryFolder elsewhere;
  CopyPdeprint(elsewhere.path());
  fs::copy(BINARY_DIRECTORY "/BackgroundNumbering.plugin",
           elsewhere.path() / "BackgroundNumbering.plugin", fs::copy_options::recursive);
  fs::copy(BINARY_DIRECTORY "/pdeprint-pages", elsewhere.path() / "pdeprint-pages");
  EXPECT_THAT(RefusalOf(elsewhere.path() / "pdeprint", Pdf(), Without("backgroundnumbers")),
              HasSubstr("the program backgroundnumbers is not there; install the package "
                        "cups-filter-background-numbering"));
}

TEST_F(PrintHereRefusal, OfADocumentThatNeedsAPassword) {
  const std::string pdf = ChangedByQpdf(PlainPdf(1), {"--encrypt", "user", "owner", "256"});
  const std::string file = File("locked.pdf", pdf);
  EXPECT_EQ(Refusal(file), "pdeprint: cannot print " + file + ": the document needs a password\n");
}

TEST_F(PrintHereRefusal, OfADocumentWhoseOwnerForbidsIt) {
  const std::string pdf =
      ChangedByQpdf(PlainPdf(1), {"--encrypt", "", "owner", "256", "--print=none"});
  const std::string file = File("forbidden.pdf", pdf);
  EXPECT_EQ(Refusal(file),
            "pdeprint: cannot print " + file + ": the document does not allow printing\n");
}

TEST_F(PrintHereRefusal, OfADamagedDocument) {
  const std::string file = File("broken.pdf", "%PDF-1.7\nrubbish\n");
  EXPECT_EQ(Refusal(file), "pdeprint: cannot print " + file + ": the document is damaged\n");
}

TEST_F(PrintHereRefusal, OfWhatIsNoDocument) {
  const std::string file = File("file.bin", std::string("\x01\x00\x02", 3));
  EXPECT_EQ(Refusal(file), "pdeprint: cannot print " + file +
                               ": it is no PDF, PostScript, picture or text, of which pages can "
                               "be made here\n");
}

TEST_F(PrintHereRefusal, OfBrokenPostScript) {
  const std::string file = File("broken.ps", "%!PS\nthis is no operator\nshowpage\n");
  EXPECT_THAT(Refusal(file), HasSubstr("cannot print " + file));
}

TEST_F(PrintHereRefusal, OfRawJobs) {
  WriteLpoptions("Dest Pdf raw=true\n");
  EXPECT_EQ(Refusal(Pdf()),
            "pdeprint: Background Numbering cannot be applied: the job asks for documents to be "
            "sent as they are (raw)\n");
}

TEST_F(PrintHereRefusal, WhereNoPageIsLeft) {
  WriteLpoptions("Dest Pdf page-ranges=7-9\n");
  EXPECT_EQ(Refusal(Pdf()), "pdeprint: no page is to be printed\n");
}

TEST_F(PrintHereRefusal, OfAProgramThatIsKilled) {
  EXPECT_THAT(Refusal(Pdf(), Without("pdftopdf", "kill -9 $$")),
              EndsWith(": the program pdftopdf has failed: Killed\n"));
}

TEST_F(PrintHereRefusal, OfAProgramThatMakesNothing) {
  EXPECT_THAT(Refusal(File("a.txt", "Text\n"), Without("texttopdf", "exit 0")),
              EndsWith(": the program texttopdf makes nothing of it\n"));
}

TEST_F(PrintHereRefusal, OfHalfADocument) {
  // The document filter passes on what it cannot read, and says so.
  EXPECT_THAT(Refusal(Pdf(), Without("pdftopdf", "printf '%%PDF-1.7\\nhalf'")),
              HasSubstr("Background Numbering cannot be applied: The pages have no numbers: "));
}

TEST_F(PrintHereRefusal, WhereThereIsNoFolderForTemporaryFiles) {
  EXPECT_EQ(Refusal(Pdf(), {{"TMPDIR", "/nowhere"}}),
            "pdeprint: no folder can be made in /nowhere: No such file or directory; TMPDIR names "
            "another place for temporary files\n");
}

TEST_F(PrintHereRefusal, WhereThereIsNoRoom) {
  const std::string file = Pdf();
  const fs::path disk = folder_.path() / "disk";
  fs::create_directory(disk);
  const std::string message = InChild([&]() -> std::string {
    if (!MountSmallDisk(disk)) return "cannot mount";
    FillDisk(disk);
    const RunResult result =
        RunProgram(Arguments{kPdeprint, "print", "-d", "Pdf"} + kFrom25 + Arguments{file},
                   Options({{"TMPDIR", disk.string()}}));
    return std::to_string(result.status) + ": " + result.err;
  });
  // Only a disk of the test's own can be filled without harm, and containers may forbid to mount
  // one, even to root.
  if (message == "cannot mount") GTEST_SKIP() << "this machine mounts no disks for tests";
  EXPECT_EQ(message, "1: pdeprint: there is no room in " + disk.string() +
                         ": No space left on device; TMPDIR names another place for temporary "
                         "files\n");
}

TEST_F(PrintHereRefusal, EndsTheProgramsThatAreAtWorkWhenItIsInterrupted) {
  const fs::path running = folder_.path() / "running";
  RunOptions options =
      Options(Without("pdftopdf", "echo $$ >" + running.string() + ".new; mv " + running.string() +
                                      ".new " + running.string() + "; exec sleep 600"));
  options.environment["TMPDIR"] = (folder_.path() / "temporary").string();
  fs::create_directory(folder_.path() / "temporary");
  for (const int number : {SIGINT, SIGKILL}) {
    fs::remove(running);
    RunningProgram program(Arguments{kPdeprint, "print", "-d", "Pdf"} + kFrom25 + Arguments{Pdf()},
                           options);
    ASSERT_TRUE(Becomes([&] { return fs::exists(running); }));
    pid_t child = 0;
    std::ifstream(running) >> child;
    ASSERT_EQ(kill(child, 0), 0);
    program.Signal(number);
    const RunResult result = program.Wait();
    EXPECT_NE(result.status, 0);
    EXPECT_TRUE(Becomes([child] { return kill(child, 0) != 0; }));
    if (number == SIGINT) {
      EXPECT_EQ(result.err, "pdeprint: the job was canceled\n");
      EXPECT_TRUE(fs::is_empty(folder_.path() / "temporary"));
    }
  }
}
