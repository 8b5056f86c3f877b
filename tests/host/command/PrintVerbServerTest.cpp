// `pdeprint print`: servers and queues that do not print.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"
#include "tests/support/Patience.h"
#include "tests/support/SilentServer.h"

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::StartsWith;

using Clock = std::chrono::steady_clock;

TEST_F(PrintVerb, AnUnknownQueueIsRefusedWithTheKnownOnes) {
  const std::string message = RefusalOn("Ofice", 1, {});
  EXPECT_THAT(message, StartsWith("pdeprint: the print server " + server().address() +
                                  " has no queue \"Ofice\"; there is Bare, "));
  EXPECT_THAT(message, HasSubstr(", Office, "));
}

TEST_F(PrintVerb, AQueueThatTakesNoJobsSaysSoInTheServersWords) {
  EXPECT_EQ(RefusalOn("Rejecting", 1, {}),
            "pdeprint: the print server " + server().address() +
                " refuses the job: Destination \"Rejecting\" is not accepting jobs\n");
}

TEST_F(PrintVerb, WhereNothingListensItSaysSo) {
  const LocalPort port;
  EXPECT_EQ(Refusal(1, {"-d", "Office", file_}, {{"CUPS_SERVER", port.address()}}),
            "pdeprint: no print server at " + port.address() +
                ": Connection refused; is it running? CUPS_SERVER names another\n");
}

TEST_F(PrintVerb, ASilentServerIsNotWaitedForLongerThanTheTimeout) {
  const SilentServer silent;
  const auto begin = Clock::now();
  EXPECT_EQ(
      Refusal(1, {"-d", "Office", "--timeout", "1", file_}, {{"CUPS_SERVER", silent.address()}}),
      "pdeprint: the print server " + silent.address() + " does not answer within 1 s\n");
  EXPECT_LT(Clock::now() - begin, kSoon);
}
