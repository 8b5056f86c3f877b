// Extensions that are loaded, and what they are asked.

#ifndef TESTS_HOST_EXTENSION_LOADEDEXTENSIONS_H
#define TESTS_HOST_EXTENSION_LOADEDEXTENSIONS_H

#include "host/extension/Extensions.h"
#include "host/job/PrintSettings.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TestPPD.h"

using Names = std::vector<std::string>;

inline constexpr char kBuilt[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

// The bundles that the user has installed, while the object lives.
class UsersBundles {
 public:
  UsersBundles() : home_("HOME", home_folder_.path().string()) {
    std::filesystem::create_directories(folder());
  }

  std::filesystem::path folder() const { return home_folder_.path() / "GNUstep/Library/Bundles"; }

 private:
  TemporaryFolder home_folder_;
  EnvironmentVariable home_;
};

// Lies beside this program, where bundles are found without a name.
inline Expected<Extensions> LoadTwoPanels() { return Extensions::Load({}); }

inline Names NamesOf(const Extensions &extensions) {
  Names names;
  for (const ExtensionBundle &bundle : extensions.bundles()) names.push_back(bundle.Name());
  return names;
}

inline Names LeftOutOf(const Extensions &extensions) {
  Names lines;
  for (const LeftOut &one : extensions.left_out()) lines.push_back(one.name + ": " + one.reason);
  return lines;
}

// A host for a printer with these lines.
struct HostedPrinter {
  TestPPD ppd;
  PrintSettings settings = EmptyPrintSettings();
  Retained<HostCallback *> host;

  explicit HostedPrinter(const std::string &lines = kSupported) : ppd(lines) {
    host =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                            ppdFile:ppd.get()]);
  }
};

#endif
