// The same value, through every door by which values come into a job.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"
#include "tests/host/session/SessionOfJob.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

struct Row {
  std::string key;
  std::string value;
  std::string becomes;  // empty: it does not fit
  std::string why = {};
};

const Row kRows[] = {
    {"VQStartNumber", "25", "25"},
    {"VQStartNumber", "025", "25"},
    {"VQStartNumber", "1000", "", "it must be a whole number from 1 to 999"},
    {"VQStartNumber", "many", "", "it must be a whole number from 1 to 999"},
    {"VQBNSize", "Large", "Large"},
    {"VQBNSize", "large", "", "it must be one of Small, Medium, Large"},
    {"VQBNSize", "", "", "it must be one of Small, Medium, Large"},
    {"Duplex", "DuplexTumble", "DuplexTumble"},
    {"Duplex", "Both", "",
     "this printer has no Duplex \"Both\"; it has None, DuplexNoTumble, DuplexTumble"},
    {"PageSize", "Custom.1x1", "",
     "this printer has no PageSize \"Custom.1x1\"; it has A4, Letter, A3"},
    {"copies", "3", "3"},
    {"copies", "3 ", "3"},
    {"copies", "0", "", "is not a number of copies"},
    {"page-ranges", "5-6, 1-3", "1-3,5-6"},
    {"page-ranges", "3-1", "", "ends before it begins"},
    {"number-up", "4", "4"},
    {"number-up", "", "", "it must have a value"},
};

std::string Named(const Row &row) { return row.key + "='" + row.value + "'"; }

class EveryDoor : public PrintVerb {
 protected:
  static std::string TicketOf(const Row &row) {
    return "<plist><dict><key>" + row.key + "</key><string>" + row.value +
           "</string></dict></plist>";
  }
};

}  // namespace

TEST_F(EveryDoor, OfTheDialogsPresetsAndOfAQueuesDefaults) {
  @autoreleasepool {
    Bundles bundles("panels=nil");
    for (const Row &row : kRows) {
      SCOPED_TRACE(Named(row));
      NSString *key = [NSString stringWithUTF8String:row.key.c_str()];
      NSString *value = [NSString stringWithUTF8String:row.value.c_str()];
      JobSession session(bundles.extensions);
      ASSERT_TRUE(session.UsePrinter(ColorPPD(), {}));
      Expected<Notes> notes = session.UseSettings(SettingsWith(@{key : value}));
      ASSERT_TRUE(notes);
      const std::string note = notes->empty() ? "" : notes->front();
      EXPECT_THAT(note, HasSubstr(row.why));
      EXPECT_EQ(note.empty(), row.why.empty());
      if (row.why.empty()) EXPECT_EQ(row.becomes, session.Value(row.key));

      JobSession of_queue(bundles.extensions);
      const Expected<Notes> of_default = of_queue.UsePrinter(ColorPPD(), {{row.key, row.value}});
      ASSERT_TRUE(of_default);
      EXPECT_EQ(of_default->size(), notes->size());
      if (!row.why.empty()) {
        EXPECT_THAT(of_default->front(),
                    AllOf(HasSubstr(row.why), HasSubstr("(a default of the queue)")));
      }
      const JobOptions options = *of_queue.Options();
      if (row.why.empty()) EXPECT_EQ(row.becomes, options.at(row.key));
      if (!row.why.empty() && options.contains(row.key)) {
        EXPECT_NE(row.value, options.at(row.key));
      }
    }
  }
}

TEST_F(EveryDoor, OfTheCommandLine) {
  for (const Row &row : kRows) {
    SCOPED_TRACE(Named(row));
    const RunResult result = PrintOn("Office", {"--set", row.key + "=" + row.value});
    EXPECT_THAT(result.err, HasSubstr(row.why));
    EXPECT_EQ(result.status, row.why.empty() ? 0 : 2) << result.err;
    if (!row.why.empty()) continue;
    EXPECT_EQ(row.becomes, server().JobAttributes(JobSaidIn(result, "Office"))[row.key]);
  }
}

TEST_F(EveryDoor, OfTicketsAndPresets) {
  const TemporaryFolder folder;
  for (const Row &row : kRows) {
    SCOPED_TRACE(Named(row));
    const std::string ticket = folder.Write("ticket.plist", TicketOf(row));
    WritePreset("Door", TicketOf(row));
    for (const Arguments &way : {Arguments{"--ticket", ticket}, Arguments{"--preset", "Door"}}) {
      const RunResult result = PrintOn("Office", way);
      EXPECT_THAT(result.err, HasSubstr(row.why));
      EXPECT_EQ(result.status, row.why.empty() ? 0 : 1) << result.err;
      if (!row.why.empty()) continue;
      EXPECT_EQ(row.becomes, server().JobAttributes(JobSaidIn(result, "Office"))[row.key]);
    }
  }
}

TEST_F(EveryDoor, OfTheUsersDefaults) {
  for (const Row &row : kRows) {
    if (row.value.empty()) continue;  // lpoptions cannot write it down
    SCOPED_TRACE(Named(row));
    WriteLpoptions("Dest Office " + row.key + "='" + row.value + "'\n");
    const RunResult result = PrintOn("Office");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.err, HasSubstr(row.why));
    EXPECT_EQ(result.err.empty(), row.why.empty()) << result.err;
    const Attributes job = server().JobAttributes(JobSaidIn(result, "Office"));
    if (row.why.empty()) EXPECT_EQ(row.becomes, job.at(row.key));
    if (!row.why.empty() && job.contains(row.key)) EXPECT_NE(row.value, job.at(row.key));
  }
  WriteLpoptions("");
}
