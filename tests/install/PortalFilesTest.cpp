// How the desktop finds the print portal, and starts it.

#include <gmock/gmock.h>

#include "tests/install/InstalledTree.h"

namespace {

using testing::HasSubstr;

constexpr char kName[] = "org.freedesktop.impl.portal.desktop.pdeprint";

class PortalFiles : public testing::Test {
 protected:
  std::string Content(const std::string &file) const { return ContentOf(tree_.prefix() / file); }
  std::string Program() const { return tree_.prefix() / "libexec/pdeprint-portal"; }

  InstalledTree tree_;
};

}  // namespace

TEST_F(PortalFiles, StartTheProgramWhereItIsInstalled) {
  EXPECT_TRUE(std::filesystem::exists(Program()));
  EXPECT_THAT(Content("share/dbus-1/services/" + std::string(kName) + ".service"),
              HasSubstr("Exec=" + Program() + '\n'));
  EXPECT_THAT(Content("lib/systemd/user/pdeprint-portal.service"),
              HasSubstr("ExecStart=" + Program() + '\n'));
}

TEST_F(PortalFiles, NameTheSameService) {
  const std::string name = kName;
  EXPECT_THAT(Content("share/dbus-1/services/" + name + ".service"),
              HasSubstr("Name=" + name + "\n"));
  EXPECT_THAT(Content("share/dbus-1/services/" + name + ".service"),
              HasSubstr("SystemdService=pdeprint-portal.service\n"));
  EXPECT_THAT(Content("lib/systemd/user/pdeprint-portal.service"),
              HasSubstr("BusName=" + name + "\n"));
  EXPECT_THAT(Content("share/xdg-desktop-portal/portals/pdeprint.portal"),
              HasSubstr("DBusName=" + name + "\n"));
}

TEST_F(PortalFiles, TheProgramNeedsNothingOfThePlatform) {
  const std::string needed = RunProgram({"readelf", "-d", Program()}).out;
  EXPECT_THAT(needed, HasSubstr("libsystemd.so.0"));
  for (const char *library : {"gnustep", "objc", "X11"}) {
    EXPECT_THAT(needed, testing::Not(HasSubstr(library)));
  }
}
