// The built program in a folder of its own, with a bundle beside it that brings printer options.

#ifndef TESTS_HOST_COMMAND_OPTIONSBUNDLE_H
#define TESTS_HOST_COMMAND_OPTIONSBUNDLE_H

#include <filesystem>
#include <string>

#include "tests/support/MarkOptions.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

class ProgramWithOptions {
 public:
  ProgramWithOptions() {
    CopyPdeprint(folder_.path());
    AddBundle(FirstBundle(), TWO_PANELS);
    WriteInfo(FirstBundle(), "test.marks", "Marks", "TwoPanels", "TwoPanelsPlugIn", kOptions);
    folder_.Write(FirstBundle() / "Resources/color.ppdpart", MarkOptions().printer.color);
    folder_.Write(FirstBundle() / "Resources/mono.ppdpart", MarkOptions().printer.monochrome);
  }

  std::filesystem::path path() const { return folder_.path() / "pdeprint"; }

  // In English, without a display and without bundles of the user's.
  RunOptions Options() const {
    return {.environment = {{"HOME", (folder_.path() / "home").string()},
                            {"DISPLAY", std::nullopt},
                            {"LANGUAGE", "en"}},
            .folder = {},
            .out = {}};
  }

  void RemoveOptions() const {
    WriteInfo(FirstBundle(), "test.marks", "Marks", "TwoPanels", "TwoPanelsPlugIn", "");
  }
  void RemoveBundle() const { std::filesystem::remove_all(FirstBundle()); }

  // Another one, with an option of its own.
  void AddSecondBundle() const {
    AddBundle(SecondBundle(), BINARY_DIRECTORY "/BackgroundNumbering.plugin");
    WriteSecondInfo(kOptions);
    for (const char *resource : {"color.ppdpart", "mono.ppdpart"}) {
      folder_.Write(SecondBundle() / "Resources" / resource,
                    "*OpenUI *Second/Second: Boolean\n*OrderDependency: 10 AnySetup *Second\n"
                    "*DefaultSecond: False\n*Second True/On: \"\"\n*Second False/Off: \"\"\n"
                    "*CloseUI: *Second\n");
    }
  }
  std::filesystem::path SecondBundle() const { return folder_.path() / "Second.plugin"; }
  void WriteSecondInfo(const std::string &entries) const {
    WriteInfo(SecondBundle(), "test.second", "Second", "BackgroundNumbering",
              "velmoraBNPdePluginRV2", entries);
  }

 private:
  static constexpr char kOptions[] =
      "<key>PDEPrinterOptions</key><dict><key>Color</key><string>color.ppdpart</string>"
      "<key>Monochrome</key><string>mono.ppdpart</string></dict>";

  std::filesystem::path FirstBundle() const { return folder_.path() / "First.plugin"; }

  static void AddBundle(const std::filesystem::path &bundle, const std::filesystem::path &from) {
    std::filesystem::copy(from, bundle, std::filesystem::copy_options::recursive);
  }

  void WriteInfo(const std::filesystem::path &bundle, const std::string &identifier,
                 const std::string &name, const std::string &executable,
                 const std::string &principal, const std::string &entries) const {
    const std::string support = identifier == "test.marks"
                                    ? "<key>PDESupportAttribute</key><dict><key>Keyword</key>"
                                      "<string>MarkSupport</string><key>Value</key>"
                                      "<string>yes</string></dict>"
                                    : "";
    folder_.Write(bundle / "Resources/Info.plist",
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
                  "<key>CFBundleIdentifier</key><string>" +
                      identifier + "</string><key>CFBundleName</key><string>" + name +
                      "</string><key>CFBundleExecutable</key><string>" + executable +
                      "</string><key>NSPrincipalClass</key><string>" + principal + "</string>" +
                      support + entries + "</dict></plist>\n");
  }

  TemporaryFolder folder_;
};

#endif
