#include "host/dialog/Clipboard.h"

#import "tests/gui/Screen.h"
#import "tests/support/ObjCTest.h"

namespace {

// What the command writes is another program's to offer from then on.
void CopyElsewhere(const std::string &command, const std::string &type) {
  RunOnScreen({"sh", "-c",
               command + " | xclip -selection clipboard -t " + type +
                   " -loops 0 >/dev/null 2>&1\n" +
                   "for attempt in $(seq 100); do\n"
                   "  xclip -selection clipboard -t TARGETS -o 2>/dev/null | grep -qx " +
                   type + " && exit\n  sleep 0.05\ndone\nexit 1\n"});
}

}  // namespace

OBJC_TEST(Clipboard, HasTheTextThatAnotherProgramHasCopied) {
  CopyElsewhere("printf 'Seite 12 für dich'", "UTF8_STRING");
  EXPECT_EQ("Seite 12 für dich", ClipboardText().value_or("none"));
  CopyElsewhere("printf 13", "UTF8_STRING");
  EXPECT_EQ("13", ClipboardText().value_or("none"));
}

OBJC_TEST(Clipboard, HasNoTextWhereAPictureWasCopied) {
  CopyElsewhere("printf 12", "image/png");
  EXPECT_EQ(std::nullopt, ClipboardText());
}

OBJC_TEST(Clipboard, HasNoTextThatIsTooLongForALine) {
  CopyElsewhere("head -c 70000 /dev/zero | tr '\\\\0' 1", "UTF8_STRING");
  EXPECT_EQ(std::nullopt, ClipboardText());
}
