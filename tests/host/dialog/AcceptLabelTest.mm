#include "host/dialog/PrintDialog.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TemporaryFolder.h"

namespace {

std::string LabelOf(const std::string &accept_label, bool has_file) {
  const TemporaryFolder folder;
  Expected<Extensions> extensions = Extensions::Load({});
  if (!extensions) return extensions.message();
  PrintDialogJob job;
  job.ppd = std::move(*PPDFile::Open(SOURCE_DIRECTORY "/tests/support/SampleColor.ppd"));
  job.settings = EmptyPrintSettings();
  if (has_file) job.files = {folder.Write("page.ps", "%!PS-Adobe-3.0\nshowpage\n")};
  job.accept_label = accept_label;
  PrintDialog dialog(std::move(job), *extensions, PresetStore(folder.path(), {}));
  dialog.Open();
  return [[[dialog.view() print] title] UTF8String];
}

}  // namespace

OBJC_TEST(AcceptLabel, StandsOnTheButtonThatReturnPresses) {
  for (const bool has_file : {false, true}) EXPECT_EQ("Weiter", LabelOf("Weiter", has_file));
}

OBJC_TEST(AcceptLabel, IsUsuallyWhatTheButtonDoes) {
  // Nothing is printed with a printer's description from a file.
  for (const bool has_file : {false, true}) EXPECT_EQ("Done", LabelOf("", has_file));
}
