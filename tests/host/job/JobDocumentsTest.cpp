#include "host/job/JobDocuments.h"

#include <gmock/gmock.h>

#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using testing::ElementsAre;

namespace {

class DocumentsOfJob : public testing::Test {
 protected:
  fs::path File(const std::string &name) { return folder_.Write(name, "%!"); }
  std::vector<std::string> MessagesOf(const std::vector<Failure> &failures) {
    std::vector<std::string> messages;
    for (const Failure &failure : failures) messages.push_back(failure.message);
    return messages;
  }

  TemporaryFolder folder_;
  const fs::path a_ = File("a.ps");
  const fs::path b_ = File("b.ps");
  const fs::path c_ = File("c.ps");
  JobDocuments documents_{{a_, b_, c_}};
};

}  // namespace

TEST_F(DocumentsOfJob, AreMovedPlaceByPlace) {
  documents_.MoveDown(0);
  EXPECT_THAT(documents_.files(), ElementsAre(b_, a_, c_));
  documents_.MoveUp(2);
  EXPECT_THAT(documents_.files(), ElementsAre(b_, c_, a_));
  EXPECT_EQ("b.ps and 2 more", documents_.Title());
}

TEST_F(DocumentsOfJob, AreNotMovedOverTheEnds) {
  EXPECT_FALSE(documents_.CanMoveUp(0));
  EXPECT_FALSE(documents_.CanMoveDown(2));
  EXPECT_FALSE(documents_.CanMoveUp(3));
  documents_.MoveUp(0);
  documents_.MoveDown(2);
  documents_.MoveUp(3);
  EXPECT_THAT(documents_.files(), ElementsAre(a_, b_, c_));
}

TEST_F(DocumentsOfJob, AreRemovedButForTheLastOne) {
  documents_.Remove(1);
  EXPECT_THAT(documents_.files(), ElementsAre(a_, c_));
  documents_.Remove(2);
  EXPECT_THAT(documents_.files(), ElementsAre(a_, c_)) << "there is no such one";
  documents_.Remove(0);
  EXPECT_FALSE(documents_.CanRemove());
  documents_.Remove(0);
  EXPECT_THAT(documents_.files(), ElementsAre(c_));
}

TEST_F(DocumentsOfJob, ThatCanBePrintedAreAddedAndTheOthersSayWhyNot) {
  const fs::path absent = folder_.path() / "absent.ps";
  const fs::path d = File("d.ps");
  EXPECT_THAT(MessagesOf(documents_.Add({absent, d, folder_.path(), a_})),
              ElementsAre("cannot print " + absent.string() + ": no such file",
                          "cannot print " + folder_.path().string() + ": it is a folder"));
  EXPECT_THAT(documents_.files(), ElementsAre(a_, b_, c_, d, a_));
}

TEST_F(DocumentsOfJob, SayWhenTheyAreOthers) {
  int changes = 0;
  documents_.SetChanged([&changes] { ++changes; });
  documents_.MoveUp(0);
  (void)documents_.Add({folder_.path()});
  EXPECT_EQ(0, changes);
  documents_.MoveUp(1);
  EXPECT_EQ(1, changes);
  documents_.Remove(0);
  EXPECT_EQ(2, changes);
  (void)documents_.Add({folder_.path(), b_});
  EXPECT_EQ(3, changes);
}

TEST_F(DocumentsOfJob, OfAJobOnItsWayStayAsTheyAre) {
  documents_.SetFixed(true);
  EXPECT_FALSE(documents_.CanAdd());
  EXPECT_FALSE(documents_.CanRemove());
  EXPECT_FALSE(documents_.CanMoveUp(1));
  EXPECT_FALSE(documents_.CanMoveDown(1));
  EXPECT_THAT(MessagesOf(documents_.Add({a_})), ElementsAre("no documents can be added now"));
  documents_.Remove(0);
  documents_.MoveUp(1);
  EXPECT_THAT(documents_.files(), ElementsAre(a_, b_, c_));
  documents_.SetFixed(false);
  documents_.MoveUp(1);
  EXPECT_THAT(documents_.files(), ElementsAre(b_, a_, c_));
}

TEST_F(DocumentsOfJob, AreNotAddedWhereNothingIsPrinted) {
  JobDocuments none({});
  EXPECT_FALSE(none.CanAdd());
  EXPECT_EQ(1u, none.Add({a_}).size());
  EXPECT_TRUE(none.empty());
}

TEST_F(DocumentsOfJob, OfTheSameNameHaveTheirFolders) {
  const fs::path other = File("old/a.ps");
  EXPECT_THAT(documents_.Names(), ElementsAre("a.ps", "b.ps", "c.ps"));
  (void)documents_.Add({other, b_});
  EXPECT_THAT(documents_.Names(), ElementsAre("a.ps — " + folder_.path().string(), "b.ps", "c.ps",
                                              "a.ps — " + other.parent_path().string(), "b.ps"))
      << "one that is printed twice is no other one";
}

// A row has one line, in UTF-8.
TEST_F(DocumentsOfJob, HaveNamesThatCanBeShown) {
  const JobDocuments odd({"/tmp/gr\xF6\xDF\n.ps"});
  EXPECT_THAT(odd.Names(), ElementsAre("größ .ps"));
}
