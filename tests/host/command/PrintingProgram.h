// `pdeprint print` on a real print server.

#ifndef TESTS_HOST_COMMAND_PRINTINGPROGRAM_H
#define TESTS_HOST_COMMAND_PRINTINGPROGRAM_H

#include "tests/host/command/ServedProgram.h"
#include "tests/support/NumberingPPD.h"

using Attributes = std::map<std::string, std::string>;

inline constexpr char kPage[] =
    "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Helvetica findfont 24 scalefont "
    "setfont\n72 700 moveto (Hello) show showpage\n%%EOF\n";

// Ones whose jobs are only looked at are stopped.
class PrintVerb : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    newest_ = 0;
    const TemporaryFolder folder;
    const std::filesystem::path color = folder.Write("color.ppd", NumberingPPDText(/*color=*/true));
    const std::filesystem::path mono = folder.Write("mono.ppd", NumberingPPDText(/*color=*/false));
    server().AddQueue({.name = "Office", .ppd = color, .stopped = "Paused", .is_default = true});
    server().AddQueue({.name = "Mono", .ppd = mono, .stopped = "Paused"});
    server().AddQueue({.name = "Bare", .stopped = "Paused"});
    server().AddQueue({.name = "Prints", .ppd = color});
    server().AddQueue({.name = "Raw"});
    server().AddQueue({.name = "Rejecting", .ppd = color, .rejecting = "Gone for lunch"});
  }

  // The number of the newest job that the server has ever had.
  static int NewestJob() {
    while (!server().JobAttributes(newest_ + 1).empty()) ++newest_;
    return newest_;
  }

  // The number of the job that the program says it has sent; it must be the server's newest.
  static int JobSaidIn(const RunResult &result, const std::string &queue) {
    const int job = NewestJob();
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "request id is " + queue + '-' + std::to_string(job) + '\n');
    return job;
  }

  RunResult PrintOn(const std::string &queue, const Arguments &more = {}) const {
    return Run(Arguments{"print", "-d", queue} + more + Arguments{file_});
  }

  // What the server knows of the job, which is sent without a message.
  Attributes JobOn(const std::string &queue, const Arguments &more = {}) const {
    const int before = NewestJob();
    const RunResult result = PrintOn(queue, more);
    EXPECT_EQ(result.err, "");
    const int job = JobSaidIn(result, queue);
    EXPECT_EQ(job, before + 1);
    return server().JobAttributes(job);
  }

  // The message of a run that ends with this status and makes no job.
  static std::string Refusal(int status, const Arguments &arguments,
                             const EnvironmentChanges &changes = {}) {
    const int before = NewestJob();
    const RunResult result = Run(Arguments{"print"} + arguments, changes);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(NewestJob(), before) << "a job was made";
    return result.err;
  }

  std::string RefusalOn(const std::string &queue, int status, const Arguments &more) const {
    return Refusal(status, Arguments{"-d", queue} + more + Arguments{file_});
  }

  static void WritePreset(const std::string &name, const std::string &text) {
    const std::filesystem::path folder = server().home() / ".config/pdeprint/presets";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / (name + ".plist")) << text;
  }

  const std::string file_ = folder_.Write("page.ps", kPage);

 private:
  static inline int newest_ = 0;
};

#endif
