// Printers on the network that need no driver, and numbers on what they get: of queues that were
// enabled, and of queues that the print system has just made and nobody has prepared.

#include <gmock/gmock.h>

#include "tests/host/command/FilterServer.h"
#include "tests/pages/RasterPages.h"
#include "tests/support/Documents.h"
#include "tests/support/DriverlessPrinter.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr Box kMiddle = {.left = 0.2, .top = 0.3, .right = 0.8, .bottom = 0.7};
bool IsRed(Color color) { return color.red > color.green + 40; }

class Driverless : public FilterServer {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    printers_ = new std::map<std::string, DriverlessPrinter>;
    const std::vector<std::string> pdf = {"application/pdf", "image/jpeg", "image/urf"};
    printers_->try_emplace("pdf", pdf);
    printers_->try_emplace("urf", std::vector<std::string>{"image/urf"});
    printers_->try_emplace("pwg", std::vector<std::string>{"image/pwg-raster"});
  }
  static void TearDownTestSuite() {
    ServedProgram::TearDownTestSuite();
    delete printers_;
  }
  static const std::map<std::string, DriverlessPrinter> &printers() { return *printers_; }

  // Until the print server has asked the printer what it can do.
  static void AwaitAbilitiesOf(const std::string &queue) {
    const std::string line = queue + ": Background Numbering, on this computer\n";
    EXPECT_TRUE(Becomes(
        [&line] { return Pdeprint({"queues"}).out.find("  " + line) != std::string::npos; }));
  }

  static void AwaitEndOfJobs() {
    EXPECT_TRUE(Becomes([] { return server().LiveJobs().empty(); }));
  }

  static std::string Title(const std::string &printer, const fs::path &file, const char *more) {
    return printer + '-' + file.extension().string().substr(1) + '-' + more;
  }

  static std::vector<Picture> PagesIn(const std::string &printed) {
    return printed.starts_with("%PDF-") ? PicturesOf({printed}) : RasterPages(printed);
  }

  // One job's pages with red numbers, and another's without.
  static void ExpectNumbersAndNoOtherDifference(const std::vector<Picture> &with,
                                                const std::vector<Picture> &without) {
    ASSERT_EQ(with.size(), without.size());
    ASSERT_FALSE(with.empty());
    for (size_t page = 0; page < with.size(); ++page) {
      EXPECT_GT(with[page].ShareOf(IsRed, kMiddle), 0.05);
      EXPECT_EQ(without[page].ShareOf(IsRed), 0);
      EXPECT_EQ(DifferencesWithoutRed(with[page], without[page]), 0);
    }
    if (with.size() > 1) EXPECT_NE(with[0], with[1]);
  }

  static inline const Arguments kRed = {
      "-o", "VQBackgroundNumbering=On", "-o", "VQStartNumber=25", "-o", "VQBNColor=Red",
      "-o", "VQBNDensity=Dark"};

 private:
  // Pixels that are not the same, and not the number's.
  static long DifferencesWithoutRed(const Picture &one, const Picture &other) {
    EXPECT_EQ(std::pair(one.width(), one.height()), std::pair(other.width(), other.height()));
    long count = 0;
    for (int y = 0; y < std::min(one.height(), other.height()); ++y) {
      for (int x = 0; x < std::min(one.width(), other.width()); ++x) {
        count += one.at(x, y) != other.at(x, y) && one.at(x, y).red <= one.at(x, y).green;
      }
    }
    return count;
  }

  static inline std::map<std::string, DriverlessPrinter> *printers_ = nullptr;
};

}  // namespace

TEST_F(Driverless, QueuesThatAreEnabledNumberDocumentsOfAllKinds) {
  const std::map<std::string, fs::path> documents = DocumentOfEachKind(folder_);
  for (const auto &[queue, printer] : printers()) {
    server().Run({"/usr/sbin/lpadmin", "-p", queue, "-E", "-v", printer.uri(), "-m", "everywhere"});
    AwaitAbilitiesOf(queue);
    // It would ask the printer once a second whether it is done.
    server().Run({"/usr/sbin/lpadmin", "-p", queue, "-v", printer.uri() + "?waitjob=false"});
    Enable(queue);
    for (const auto &[type, file] : documents) {
      const Arguments lp = {"lp", "-d", queue, file, "-t"};
      server().Run(lp + Arguments{Title(queue, file, "on")} + kRed);
      server().Run(lp + Arguments{Title(queue, file, "off")});
    }
  }
  AwaitEndOfJobs();
  for (const auto &[queue, printer] : printers()) {
    for (const auto &[type, file] : documents) {
      SCOPED_TRACE(queue + ' ' + type);
      const std::string on = printer.Got(Title(queue, file, "on"));
      const std::string off = printer.Got(Title(queue, file, "off"));
      ExpectNumbersAndNoOtherDifference(PagesIn(on), PagesIn(off));
      if (queue != "pdf") continue;
      EXPECT_THAT(on, StartsWith("%PDF-"));
      EXPECT_THAT(TextOfPdf(on), HasSubstr("25"));
      EXPECT_THAT(TextOfPdf(off), Not(HasSubstr("25")));
    }
  }
}

TEST_F(Driverless, QueuesThatNobodyHasPreparedPrintDocumentsOfAllKindsThatAreNumberedHere) {
  const std::map<std::string, fs::path> documents = DocumentOfEachKind(folder_);
  for (const auto &[name, printer] : printers()) {
    const std::string queue = "found_" + name;
    server().AddTemporaryQueue(queue, printer.uri());
    AwaitAbilitiesOf(queue);
    for (const auto &[type, file] : documents) {
      const RunResult result = Pdeprint({"print", "-d", queue, "-t", Title(name, file, "here"),
                                         "--set", "Valid=On", "--set", "StartNumber=25", "--set",
                                         "Color=Red", "--set", "Density=Dark", file});
      EXPECT_EQ(result.status, 0);
      EXPECT_EQ(result.err, "");
    }
  }
  AwaitEndOfJobs();
  for (const auto &[name, printer] : printers()) {
    for (const auto &[type, file] : documents) {
      SCOPED_TRACE(name + ' ' + type);
      const std::string got = printer.Got(Title(name, file, "here"));
      const std::vector<Picture> pages = PagesIn(got);
      EXPECT_EQ(pages.size(), type.starts_with("application/") ? 2u : 1u);
      for (const Picture &page : pages) EXPECT_GT(page.ShareOf(IsRed, kMiddle), 0.05);
      if (name == "pdf") EXPECT_THAT(TextOfPdf(got), HasSubstr("25"));
    }
  }
}
