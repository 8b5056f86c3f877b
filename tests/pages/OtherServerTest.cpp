// Queues that lead to a queue of another print server.

#include <gmock/gmock.h>

#include "tests/pages/PreparedServer.h"
#include "tests/support/RawPdf.h"
#include "tests/support/TestPPD.h"

using testing::ContainerEq;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class OtherServer : public UnpreparedQueues {
 protected:
  static const PrivateServer &other() {
    static const PrivateServer server;
    return server;
  }

  static void SetUpTestSuite() {
    UnpreparedQueues::SetUpTestSuite();
    const TemporaryFolder folder;
    other().AddQueue({.name = "There", .ppd = folder.Write("there.ppd", PdfPrinter())});
    const std::string remote = TestPPD::Text(
        std::string(kColorDevice) + "*cupsFilter2: \"application/pdf application/pdf 0 -\"\n");
    server().AddQueue({.name = "Remote", .ppd = folder.Write("remote.ppd", remote)});
    server().Run({"/usr/sbin/lpadmin", "-p", "Remote", "-v",
                  "ipp://" + other().address() + "/printers/There"});
  }
};

}  // namespace

// The queue here would make pixels of pages that are laid out, on the way to a server that would
// lay out others once more.
TEST_F(OtherServer, GetsThePagesWithTheNumbersOfThisComputerAndLeavesThemAsTheyAre) {
  EXPECT_THAT(Run({"queues"}).out, HasSubstr("Remote: Background Numbering, on this computer\n"));
  const Printed here = Print("Remote", kFrom25, {File("three.pdf", PlainPdf(3))});
  EXPECT_EQ("application/pdf", here.job.at("document-format"));
  ASSERT_TRUE(Becomes([] { return other().JobAttributes(1)["job-state"] == "completed"; }));
  Printed there = here;
  there.text = TextOfPdf(other().OutputOf(1));
  EXPECT_THAT(there.numbers(), ElementsAre("25", "26", "27"));
  EXPECT_THAT(there.text, HasSubstr("Page 3"));
  EXPECT_THAT(PicturesOf({File("here.pdf", here.documents.at(0))}),
              ContainerEq(PicturesOf({File("there.pdf", other().OutputOf(1))})));
}
