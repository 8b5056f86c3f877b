#include "host/chain/ServerFolders.h"

#include <gtest/gtest.h>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryFolder.h"

TEST(ServerFolders, AreThoseOfTheServersConfiguration) {
  const TemporaryFolder folder;
  folder.Write("cups-files.conf",
               "# ServerBin /no\nServerBin /opt/cups/lib\n datadir  /opt/data\n");
  const EnvironmentVariable root("CUPS_SERVERROOT", folder.path().string());
  const EnvironmentVariable programs("CUPS_SERVERBIN", std::nullopt);
  const EnvironmentVariable data("CUPS_DATADIR", std::nullopt);
  const ServerFolders folders = FindServerFolders();
  EXPECT_EQ(folders.root, folder.path());
  EXPECT_EQ(folders.FilterAt("mark"), "/opt/cups/lib/filter/mark");
  EXPECT_EQ(folders.data, "/opt/data");
}

TEST(ServerFolders, AreThoseOfTheVariablesFirst) {
  const EnvironmentVariable programs("CUPS_SERVERBIN", "/private/bin");
  const EnvironmentVariable data("CUPS_DATADIR", "/private/data");
  const ServerFolders folders = FindServerFolders();
  EXPECT_EQ(folders.programs, "/private/bin");
  EXPECT_EQ(folders.data, "/private/data");
}

TEST(ServerFolders, AreThisComputersForLocalAddresses) {
  for (const char *address :
       {"localhost:631", "/run/cups/cups.sock", "127.0.0.1:8631", "[::1]:631"}) {
    EXPECT_TRUE(IsOnThisComputer(address)) << address;
  }
  for (const char *address :
       {"print.example.com:631", "192.0.2.7:631", "localhost.example.com:631"}) {
    EXPECT_FALSE(IsOnThisComputer(address)) << address;
  }
}
