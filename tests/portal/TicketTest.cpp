#include "portal/Ticket.h"

#include <gmock/gmock.h>

#include "tests/support/RunProgram.h"

TEST(PortalTicket, IsReadByThePrintDialog) {
  const TemporaryFolder folder;
  const auto ticket = folder.path() / "ticket";
  ASSERT_TRUE(WriteTicket(ticket, {{"copies", "3"}, {"page-ranges", "1-3,5"}}));
  const RunResult result = RunPdeprint(
      {"settings", "--ppd", BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd", "--ticket", ticket});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, testing::HasSubstr("  copies=3\n"));
  EXPECT_THAT(result.out, testing::HasSubstr("  page-ranges=1-3,5\n"));
}

TEST(PortalTicket, HoldsAnyText) {
  EXPECT_THAT(TicketOf({{"a", "<&>"}}),
              testing::HasSubstr("<key>a</key><string>&lt;&amp;&gt;</string>"));
}

TEST(PortalTicket, SaysThatItIsNotWritten) {
  EXPECT_FALSE(WriteTicket("/nowhere/ticket", {}));
  EXPECT_FALSE(WriteTicket("/dev/full", {}));
}
