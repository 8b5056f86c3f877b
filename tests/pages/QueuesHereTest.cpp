// Who puts the numbers in: what `queues`, `check` and `settings` say of it.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/pages/PreparedServer.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/TestPPD.h"

using testing::HasSubstr;
using Json = nlohmann::ordered_json;

namespace {

class QueuesHere : public UnpreparedQueues {
 protected:
  static void SetUpTestSuite() {
    UnpreparedQueues::SetUpTestSuite();
    const TemporaryFolder folder;
    server().AddQueue({.name = "Printer", .ppd = folder.Write("p.ppd", NumberingPPDText(true))});
    server().AddQueue(
        {.name = "Server",
         .ppd = folder.Write("s.ppd",
                             NumberingPPDText(true,
                                              "*cupsPreFilter: \"application/vnd.cups-pdf 0 "
                                              "/usr/lib/cups/filter/backgroundnumbers\"\n"))});
    server().AddQueue({.name = "Colorless", .ppd = folder.Write("c.ppd", TestPPD::Text(""))});
  }
};

}  // namespace

TEST_F(QueuesHere, AreSaidInWords) {
  EXPECT_EQ(Run({"queues"}).out,
            "  Colorless: no panel: no attribute VQBackgroundNumberingSupport; nor can it be done "
            "on this computer: the file does not say whether it is a color printer: *ColorDevice "
            "must be True or False\n"
            "  Pdf: Background Numbering, on this computer\n"
            "  PostScript: Background Numbering, on this computer\n"
            "  Printer: Background Numbering, by the printer\n"
            "  Raster: Background Numbering, on this computer\n"
            "  Raw: no panel: the queue has no PPD file, in which a printer declares what "
            "extensions need\n"
            "  Server: Background Numbering, by the print server\n");
  EXPECT_EQ(Run({"check", "-d", "Pdf"}).out,
            "Pdf: panel offered, color printer, on this computer\n");
}

TEST_F(QueuesHere, AreSaidInJson) {
  const auto by = [](const std::string &queue) {
    const Json json = Json::parse(Run({"check", "--json", "-d", queue}).out);
    return json[0]["applied"];
  };
  EXPECT_EQ(by("Pdf"), Json::parse(R"([{"bundle": "Background Numbering", "by": "computer"}])"));
  EXPECT_EQ(by("Printer"), Json::parse(R"([{"bundle": "Background Numbering", "by": "printer"}])"));
  EXPECT_EQ(by("Server"), Json::parse(R"([{"bundle": "Background Numbering", "by": "server"}])"));
  EXPECT_EQ(by("Raw"), Json::array());
}

TEST_F(QueuesHere, HaveThePanelsSettings) {
  const RunResult result = Run({"settings", "-d", "Raster", "--set", "Valid=On"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("VQBackgroundNumbering=On\n"));
}

// A PPD file is no queue: nothing is printed with it.
TEST_F(QueuesHere, ArePPDFilesOnlyWhereTheirPrinterNumbers) {
  const std::string ppd = File("plain.ppd", PdfPrinter());
  EXPECT_EQ(Run({"check", ppd}).out,
            ppd + ": no panel: no attribute VQBackgroundNumberingSupport\n");
}

TEST_F(QueuesHere, HaveNoPanelWhereAProgramIsMissing) {
  const EnvironmentChanges nothing = {{"CUPS_SERVERBIN", folder_.path().string()}};
  const std::string why =
      "no attribute VQBackgroundNumberingSupport; nor can it be done on this computer: the program "
      "pdftopdf is not there; install the package cups-filters\n";
  EXPECT_EQ(Run({"check", "-d", "Pdf"}, nothing).out, "Pdf: no panel: " + why);
  const RunResult refused = Run({"settings", "-d", "Pdf", "--set", "Valid=On"}, nothing);
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("pdeprint: note: no panel for Pdf: " + why));
}
