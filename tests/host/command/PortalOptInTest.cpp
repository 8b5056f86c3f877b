#include "host/command/PortalOptIn.h"

#include <gmock/gmock.h>

#include "tests/support/ExpectedValue.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const char kOurs[] = "org.freedesktop.impl.portal.Print=pdeprint\n";

// A user's desktop with a portal of this version.
class PortalOptInTest : public testing::Test {
 protected:
  PortalOptIn Portal(const std::string &version) {
    const fs::path program =
        folder_.Write("portal", "#!/bin/sh\necho xdg-desktop-portal " + version + "\n");
    fs::permissions(program, fs::perms::owner_all);
    Expected<PortalOptIn> portal = PortalOptIn::Find({.program = program,
                                                      .backends = folder_.path() / "portals",
                                                      .config = config(),
                                                      .further = {folder_.path() / "system"},
                                                      .desktops = desktops_});
    EXPECT_TRUE(portal) << portal.message();
    return std::move(*portal);
  }

  static PortalChanges Made(Expected<PortalChanges> changes) {
    EXPECT_TRUE(changes) << changes.message();
    return changes ? *changes : PortalChanges();
  }

  fs::path config() const { return folder_.path() / "home/.config"; }
  fs::path Own(const std::string &name) const { return config() / "xdg-desktop-portal" / name; }
  fs::path Write(const std::string &name, const std::string &text) {
    return folder_.Write("home/.config/xdg-desktop-portal/" + name, text);
  }
  fs::path service_file() const {
    return config() / "systemd/user/xdg-desktop-portal.service.d/pdeprint.conf";
  }

  TemporaryFolder folder_;
  std::string desktops_ = "ubuntu:GNOME";
};

}  // namespace

TEST_F(PortalOptInTest, WithoutADesktopsFileTheUsersNamesPrintingAlone) {
  const PortalOptIn portal = Portal("1.20.3");
  EXPECT_EQ("1.20.3", portal.version());
  EXPECT_FALSE(portal.Chosen());
  const PortalChanges changes = Made(portal.Choose());
  ASSERT_EQ(1u, changes.size());
  EXPECT_EQ(Own("portals.conf"), changes[0].path);
  EXPECT_EQ(Own("portals.conf"), portal.Chosen());
  EXPECT_THAT(ContentOf(Own("portals.conf")), EndsWith(std::string("\n[preferred]\n") + kOurs));
  EXPECT_TRUE(Made(portal.Choose()).empty());

  const PortalChanges back = Made(portal.TakeBack());
  ASSERT_EQ(1u, back.size());
  EXPECT_EQ(PortalChange::Kind::kRemoved, back[0].kind);
  EXPECT_FALSE(fs::exists(Own("portals.conf")));
  EXPECT_FALSE(portal.Chosen());
  EXPECT_TRUE(Made(portal.TakeBack()).empty());
}

// Of the files that it could read, the portal reads one.
TEST_F(PortalOptInTest, TheUsersFileBeginsAsACopyOfTheDesktops) {
  const std::string of_desktop = "[preferred]\ndefault=gnome;gtk;\n";
  folder_.Write("system/xdg-desktop-portal/gnome-portals.conf", of_desktop);
  folder_.Write("system/xdg-desktop-portal/portals.conf", "[preferred]\ndefault=gtk\n");
  const PortalOptIn portal = Portal("1.17.0");
  Made(portal.Choose());
  const std::string text = ContentOf(Own("gnome-portals.conf"));
  EXPECT_THAT(text, EndsWith(std::string("\n[preferred]\n") + kOurs + "default=gnome;gtk;\n"));
  EXPECT_FALSE(fs::exists(Own("portals.conf")));

  Made(portal.TakeBack());
  EXPECT_FALSE(fs::exists(Own("gnome-portals.conf")));
  EXPECT_EQ(of_desktop, ContentOf(folder_.path() / "system/xdg-desktop-portal/gnome-portals.conf"));
}

TEST_F(PortalOptInTest, ACopyThatTheUserHasChangedStays) {
  const PortalOptIn portal = Portal("1.18.4");
  Made(portal.Choose());
  const std::string text = ContentOf(Own("portals.conf")) + "default=kde\n";
  Write("portals.conf", text);
  Made(portal.TakeBack());
  EXPECT_EQ("[preferred]\ndefault=kde\n", ContentOf(Own("portals.conf")));
}

TEST_F(PortalOptInTest, AFileOfTheUsersIsChangedAndChangedBack) {
  const std::string before = "# mine\n[preferred]\ndefault=gtk\n";
  for (const char *name : {"portals.conf", "gnome-portals.conf"}) {
    Write(name, before);
    const PortalOptIn portal = Portal("1.20.3");
    Made(portal.Choose());
    EXPECT_EQ(Own(name), portal.Chosen());
    EXPECT_EQ(std::string("# mine\n[preferred]\n") + kOurs + "default=gtk\n", ContentOf(Own(name)));
    Made(portal.TakeBack());
    EXPECT_EQ(before, ContentOf(Own(name)));
  }
}

TEST_F(PortalOptInTest, AFileWithoutPreferencesIsKeptWithTheDesktopsBelowIt) {
  folder_.Write("system/xdg-desktop-portal/gnome-portals.conf", "[preferred]\ndefault=gnome\n");
  Write("gnome-portals.conf", "# nothing yet\n");
  Made(Portal("1.20.3").Choose());
  EXPECT_EQ(std::string("# nothing yet\n[preferred]\n") + kOurs + "default=gnome\n",
            ContentOf(Own("gnome-portals.conf")));
}

TEST_F(PortalOptInTest, BeforeFilesWereReadTheServiceIsOfADesktopOfThisName) {
  const PortalOptIn portal = Portal("1.16.0");
  const PortalChanges changes = Made(portal.Choose());
  ASSERT_EQ(1u, changes.size());
  EXPECT_EQ(service_file(), changes[0].path);
  EXPECT_THAT(ContentOf(service_file()),
              EndsWith("\n[Service]\nEnvironment=XDG_CURRENT_DESKTOP=pdeprint:ubuntu:GNOME\n"));
  EXPECT_EQ(service_file(), portal.Chosen());
  EXPECT_TRUE(Made(portal.Choose()).empty());
  EXPECT_FALSE(fs::exists(Own("portals.conf")));

  // As it is once it holds.
  desktops_ = "pdeprint:ubuntu:GNOME";
  EXPECT_TRUE(Made(Portal("1.16.0").Choose()).empty());
  // After the next release has come.
  EXPECT_FALSE(Portal("1.20.3").Chosen());
  Made(Portal("1.20.3").TakeBack());
  EXPECT_FALSE(fs::exists(service_file()));
}

TEST_F(PortalOptInTest, WhatIsNoNameOfADesktopDoesNotGetIntoTheService) {
  for (const char *desktops : {"", "pdeprint", "GNOME\nExecStart=/bin/false", "a b", "%h"}) {
    desktops_ = desktops;
    const Expected<PortalChanges> changes = Portal("1.16.0").Choose();
    ASSERT_FALSE(changes) << desktops;
    EXPECT_THAT(changes.message(), StartsWith("XDG_CURRENT_DESKTOP does not name the desktop"));
    EXPECT_FALSE(fs::exists(service_file()));
  }
}

TEST_F(PortalOptInTest, WhatIsAddedToTheServiceFileStays) {
  const PortalOptIn portal = Portal("1.16.0");
  Made(portal.Choose());
  const std::string made = ContentOf(service_file());
  folder_.Write(fs::relative(service_file(), folder_.path()), made + "Environment=MORE=1\n");
  EXPECT_THAT(portal.Choose().message(), EndsWith("is there already"));
  Made(portal.TakeBack());
  EXPECT_EQ("[Service]\nEnvironment=MORE=1\n", ContentOf(service_file()));
  EXPECT_FALSE(portal.Chosen());
}

TEST_F(PortalOptInTest, AServiceFileThatCannotBeReadIsNotTakenForNone) {
  fs::create_directories(service_file());
  EXPECT_THAT(Portal("1.16.0").TakeBack().message(), StartsWith("cannot read"));
}

TEST_F(PortalOptInTest, AServiceFileOfSomebodyElsesStays) {
  fs::create_directories(service_file().parent_path());
  const fs::path file = folder_.Write(fs::relative(service_file(), folder_.path()), "[Service]\n");
  const Expected<PortalChanges> changes = Portal("1.16.0").Choose();
  ASSERT_FALSE(changes);
  EXPECT_EQ(file.string() + " is there already", changes.message());
  EXPECT_TRUE(Made(Portal("1.16.0").TakeBack()).empty());
  EXPECT_EQ("[Service]\n", ContentOf(file));
}

TEST_F(PortalOptInTest, KnowsWhetherThePortalKnowsThisProgram) {
  EXPECT_FALSE(Portal("1.20.3").HasBackend());
  folder_.Write("portals/pdeprint.portal", "");
  EXPECT_TRUE(Portal("1.20.3").HasBackend());
}

TEST_F(PortalOptInTest, AFolderThatCannotBeMadeIsSaid) {
  folder_.Write("home", "");
  const Expected<PortalChanges> changes = Portal("1.20.3").Choose();
  ASSERT_FALSE(changes);
  EXPECT_THAT(changes.message(),
              HasSubstr("cannot make the folder " + config().parent_path().string()));
}

TEST_F(PortalOptInTest, WithoutAPortalThereIsNothingToChoose) {
  Expected<PortalOptIn> none = PortalOptIn::Find({.program = "/nowhere/portal",
                                                  .backends = {},
                                                  .config = config(),
                                                  .further = {},
                                                  .desktops = ""});
  ASSERT_FALSE(none);
  EXPECT_EQ("the program /nowhere/portal is not there; install the package xdg-desktop-portal",
            none.message());
  const fs::path silent = folder_.Write("silent", "#!/bin/sh\n");
  fs::permissions(silent, fs::perms::owner_all);
  none = PortalOptIn::Find(
      {.program = silent, .backends = {}, .config = config(), .further = {}, .desktops = ""});
  ASSERT_FALSE(none);
  EXPECT_EQ(silent.string() + " does not say its version", none.message());
}
