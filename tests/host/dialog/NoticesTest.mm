#include "host/dialog/Notices.h"

#include "tests/host/session/SessionOfJob.h"

namespace {

const char kAbsent[] = "*APDialogExtension: \"/absent/Absent.plugin\"\n";

// Notices, and what the window shows of them.
struct ShownNotices {
  Bundles bundles;
  std::string text;
  int times = 0;
  Notices notices{bundles.extensions, [this](const std::string &now) {
                    text = now;
                    ++times;
                  }};
};

// What goes to standard error meanwhile.
template <typename Work>
std::string Complaints(Work work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

}  // namespace

OBJC_TEST(Notices, AreSentencesALineEach) {
  ShownNotices shown;
  shown.notices.AddNote("one is wrong");
  shown.notices.AddNote("so is another");
  EXPECT_EQ("One is wrong.\nSo is another.", shown.text);
}

OBJC_TEST(Notices, AreNotRepeated) {
  ShownNotices shown;
  shown.notices.AddNote("one is wrong");
  shown.notices.AddNote("one is wrong");
  EXPECT_EQ("One is wrong.", shown.text);
}

OBJC_TEST(Notices, OfAPrinterReplaceThoseBeforeAndAreComplainedOf) {
  ShownNotices shown;
  shown.notices.AddNote("one is wrong");
  EXPECT_EQ("pdeprint: note: it does not fit\n",
            Complaints([&] { shown.notices.ReplaceNotes({"it does not fit"}); }));
  EXPECT_EQ("It does not fit.", shown.text);
}

OBJC_TEST(Notices, ThatAreForgottenStayUntilSomethingIsShown) {
  ShownNotices shown;
  shown.notices.AddNote("one is wrong");
  shown.notices.ForgetNotes();
  EXPECT_EQ(1, shown.times);
  EXPECT_EQ("One is wrong.", shown.text);
  shown.notices.ShowAll();
  EXPECT_EQ("", shown.text);
}

OBJC_TEST(Notices, OfDamagedPresetsStayAndAreComplainedOfOnce) {
  ShownNotices shown;
  const auto add = [&] { shown.notices.AddDamagedPreset("the preset is left out"); };
  EXPECT_EQ("pdeprint: the preset is left out\n", Complaints(add));
  EXPECT_EQ("", Complaints(add));
  shown.notices.ReplaceNotes({});
  EXPECT_EQ("The preset is left out.", shown.text);
}

OBJC_TEST(Notices, OfBundlesThatAreLeftOutStayAndAreComplainedOfOnce) {
  ShownNotices shown;
  shown.bundles.extensions.LoadNamedBy(PlainPPD(kAbsent));
  ASSERT_EQ(1u, shown.bundles.extensions.left_out().size());
  const LeftOut &absent = shown.bundles.extensions.left_out().front();
  const std::string line = absent.name + " is left out: " + absent.reason;
  EXPECT_EQ("pdeprint: " + line + '\n', Complaints([&] { shown.notices.TellOfLeftOut(); }));
  EXPECT_EQ("", Complaints([&] { shown.notices.TellOfLeftOut(); }));
  shown.notices.AddNote("one is wrong");
  EXPECT_EQ("One is wrong.\n" + line + '.', shown.text);
  EXPECT_TRUE(shown.notices.IsReasonOfLeftOut(absent.reason));
  EXPECT_FALSE(shown.notices.IsReasonOfLeftOut("another one"));
}
