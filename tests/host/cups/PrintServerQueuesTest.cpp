// The queues of a print server, the default one, and what their jobs begin with.

#include <gmock/gmock.h>

#include "host/cups/QueueList.h"
#include "tests/host/cups/ServedPrintServer.h"
#include "tests/support/TestPPD.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;

TEST(PrintServer, ListsTheQueuesByNameWithInstancesAfterTheirQueue) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (const char *name : {"Zebra", "Office", "Attic"}) server.AddQueue({.name = name});
  server.Run({"lpoptions", "-p", "Office/draft", "-o", "sides=two-sided-long-edge"});
  Expected<std::vector<Queue>> queues = PrintServer(kLimit).Queues();
  ASSERT_TRUE(queues) << queues.message();
  Texts names;
  for (const Queue &queue : *queues) names.push_back(queue.name);
  EXPECT_EQ(names, Texts({"Attic", "Office", "Office/draft", "Zebra"}));
}

TEST(PrintServer, AServerWithoutQueuesIsAFailure) {
  PrivateServer server;
  ServerEnvironment environment(server);
  EXPECT_EQ(FailureOf(PrintServer(kLimit).Queues()),
            "the print server " + server.address() + " has no queues");
}

TEST_F(PrintServerTest, TellsWhatTheServerKnowsOfAQueue) {
  server().AddQueue({.name = "Described",
                     .ppd = kSampleColor,
                     .description = "Ann's \"big\" printer, Größe A3",
                     .location = "Upstairs, left"});
  const Queue queue = Find("Described");
  EXPECT_EQ(queue.name, "Described");
  EXPECT_EQ(queue.description, "Ann's \"big\" printer, Größe A3");
  EXPECT_EQ(queue.location, "Upstairs, left");
  EXPECT_EQ(queue.model, "Velmora Color sample");
  EXPECT_EQ(queue.state, QueueState::kIdle);
  EXPECT_TRUE(queue.accepts_jobs);
}

TEST_F(PrintServerTest, TellsWhyAQueueIsStopped) {
  server().AddQueue({.name = "Stopped", .stopped = "Out of paper, ask Ann"});
  const Queue queue = Find("Stopped");
  EXPECT_EQ(queue.state, QueueState::kStopped);
  EXPECT_EQ(queue.state_message, "Out of paper, ask Ann");
  EXPECT_TRUE(queue.accepts_jobs);
}

TEST_F(PrintServerTest, TellsWhyAQueueTakesNoJobs) {
  server().AddQueue({.name = "Rejecting", .rejecting = "Gone for lunch"});
  const Queue queue = Find("Rejecting");
  EXPECT_FALSE(queue.accepts_jobs);
  EXPECT_EQ(queue.state_message, "Gone for lunch");
}

TEST_F(PrintServerTest, FindsAQueueWhateverTheCaseOfItsLetters) {
  server().AddQueue({.name = "MixedCase"});
  EXPECT_EQ(Find("mixedCASE").name, "MixedCase");
}

TEST(PrintServer, AnUnknownQueueIsAFailureThatNamesTheQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (const char *name : {"Office", "Attic"}) server.AddQueue({.name = name});
  EXPECT_EQ(
      FailureOf(PrintServer(kLimit).FindQueue("Ofice")),
      "the print server " + server.address() + " has no queue \"Ofice\"; there is Attic, Office");
  EXPECT_EQ(FailureOf(PrintServer(kLimit).FindQueue("Office/draft")),
            "the print server " + server.address() +
                " has no queue \"Office/draft\"; there is Attic, Office");
}

TEST(PrintServer, AFailureDoesNotNameVeryManyQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (int number = 10; number < 22; ++number) {
    server.AddQueue({.name = "Q" + std::to_string(number)});
  }
  EXPECT_THAT(FailureOf(PrintServer(kLimit).FindQueue("Q")), EndsWith(", Q19 and 2 more"));
}

// The default queue

TEST_F(PrintServerTest, TheServersDefaultQueueIsTheUsers) {
  server().AddQueue({.name = "ServersDefault", .is_default = true});
  server().AddQueue({.name = "Other"});
  const Queue queue = Find("");
  EXPECT_EQ(queue.name, "ServersDefault");
  EXPECT_TRUE(queue.is_default);
  EXPECT_FALSE(Find("Other").is_default);
}

TEST_F(PrintServerTest, TheServersDefaultQueueStaysItWhereTheUserHasOptionsForIt) {
  server().AddQueue({.name = "WithOptions", .is_default = true});
  WriteLpoptions("Dest WithOptions sides=one-sided\n");
  EXPECT_EQ(Find("").name, "WithOptions");
}

TEST_F(PrintServerTest, TheServersDefaultQueueStaysItWhereTheUserHasAnInstanceOfIt) {
  server().AddQueue({.name = "WithInstance", .is_default = true});
  WriteLpoptions("Dest WithInstance/draft sides=one-sided\n");
  EXPECT_EQ(Find("").name, "WithInstance");
}

TEST_F(PrintServerTest, TheUsersDefaultInstanceGoesBeforeTheServersDefault) {
  server().AddQueue({.name = "Shared", .is_default = true});
  server().AddQueue({.name = "Mine"});
  WriteLpoptions("Default Mine/draft sides=one-sided\n");
  EXPECT_EQ(Find("").name, "Mine/draft");
}

TEST_F(PrintServerTest, TheEnvironmentsDefaultGoesBeforeAll) {
  server().AddQueue({.name = "Lpoptions", .is_default = true});
  server().AddQueue({.name = "Environment"});
  WriteLpoptions("Default Lpoptions sides=one-sided\nDest Environment/best sides=one-sided\n");
  const EnvironmentVariable variable("LPDEST", "Environment/best");
  EXPECT_EQ(Find("").name, "Environment/best");
}

TEST_F(PrintServerTest, ADefaultThatIsNotThereIsAFailureThatSaysWhoNamesIt) {
  server().AddQueue({.name = "Present", .is_default = true});
  const EnvironmentVariable variable("LPDEST", "Absent");
  const std::string failure = FailureOf(print_server_.FindQueue(""));
  EXPECT_THAT(failure, StartsWith("no default queue on the print server " + server().address() +
                                  ": LPDEST environment variable names default destination"));
  EXPECT_THAT(failure, HasSubstr("Present"));
}

TEST_F(PrintServerTest, ADefaultOfTheUsersThatIsGoneIsNotReplacedByTheServers) {
  server().AddQueue({.name = "Remaining", .is_default = true});
  WriteLpoptions("Default Gone sides=one-sided\n");
  const std::string failure = FailureOf(print_server_.FindQueue(""));
  EXPECT_THAT(failure, HasSubstr("lpoptions file names default destination that does not exist"));
}

TEST(PrintServer, WithoutADefaultQueueThereIsAFailureThatNamesTheQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  server.AddQueue({.name = "Office"});
  EXPECT_EQ(FailureOf(PrintServer(kLimit).FindQueue("")),
            "no default queue on the print server " + server.address() +
                ": No default destination; there is Office");
}

// What each job of a queue begins with

TEST_F(PrintServerTest, TheServersAndTheUsersOptionsAreTheDefaults) {
  server().AddQueue({.name = "Defaults",
                     .ppd = kSampleColor,
                     .options = {{"number-up-default", "2"}, {"copies-default", "3"}}});
  WriteLpoptions("Dest Defaults VQBNSize=Large copies=4\n");
  const JobOptions defaults = Find("Defaults").defaults;
  EXPECT_EQ(defaults.at("number-up"), "2");
  EXPECT_EQ(defaults.at("copies"), "4");
  EXPECT_EQ(defaults.at("VQBNSize"), "Large");
}

TEST_F(PrintServerTest, AnInstanceHasItsOwnDefaults) {
  server().AddQueue({.name = "Instances", .ppd = kSampleColor});
  WriteLpoptions("Dest Instances VQBNSize=Small\nDest Instances/draft VQBNSize=Large\n");
  EXPECT_EQ(Find("Instances").defaults.at("VQBNSize"), "Small");
  EXPECT_EQ(Find("Instances/draft").defaults.at("VQBNSize"), "Large");
  EXPECT_EQ(Find("Instances/draft").model, "Velmora Color sample");
}

TEST_F(PrintServerTest, WhatDescribesThePrinterIsNoDefault) {
  server().AddQueue({.name = "Information", .ppd = kSampleColor, .description = "Here"});
  for (const auto &[name, value] : Find("Information").defaults) {
    EXPECT_FALSE(name.starts_with("printer-") || name.starts_with("marker-") ||
                 name.starts_with("auth-info") || name == "device-uri")
        << name << '=' << value;
  }
}

// What jobs may ask for

TEST_F(PrintServerTest, TellsWhatAQueueListsOfLayoutBannersAndAccounts) {
  TemporaryFolder folder;
  server().AddQueue(
      {.name = "Accounting",
       .ppd = folder.Write("accounting.ppd", TestPPD::Text("*cupsJobAccountId: True\n"
                                                           "*cupsJobAccountingUserId: False\n"
                                                           "*cupsMandatory: \"job-billing\"\n"))});
  const OfferedOptions offered = Find("Accounting").offered;
  EXPECT_THAT(offered.at("job-sheets"), IsSupersetOf({"none", "standard"}));
  EXPECT_THAT(offered.at("print-scaling"), IsSupersetOf({"auto", "fill", "fit", "none"}));
  EXPECT_TRUE(offered.contains("job-account-id"));
  EXPECT_FALSE(offered.contains("job-accounting-user-id"));
  EXPECT_TRUE(offered.contains("job-billing")) << "the server refuses jobs without it";
  EXPECT_EQ(offered, OfferedBy(Find("Accounting"), true));
}

TEST_F(PrintServerTest, AQueueThatSendsDocumentsAsTheyAreLaysOutNothingWhateverIsListedForIt) {
  server().AddQueue({.name = "AsItIs"});
  server().AddQueue({.name = "Printer", .ppd = kSampleColor});
  server().Run({"lpadmin", "-p", "Printer", "-c", "Class"});
  EXPECT_TRUE(Find("AsItIs").offered.contains("number-up"));
  const OfferedOptions offered = OfferedBy(Find("AsItIs"), false);
  for (const char *name : {"number-up", "job-sheets", "print-scaling"}) {
    EXPECT_FALSE(offered.contains(name)) << name;
  }
  EXPECT_TRUE(offered.contains("job-hold-until"));
  EXPECT_TRUE(OfferedBy(Find("Class"), false).contains("number-up")) << "its printers do";
}
