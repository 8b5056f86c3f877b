// PPD files with options that may be in conflict.

#ifndef TESTS_HOST_PPD_THREEOPTIONS_H
#define TESTS_HOST_PPD_THREEOPTIONS_H

#include <gtest/gtest.h>

#include "tests/host/ppd/OpenedPPD.h"
#include "tests/support/NumberingPPD.h"

// Three options with the choices Off (the default), A and B, called VQ1, VQ2, VQ3, and a page size.
inline std::string ThreeOptions(const std::string &lines) {
  std::string options;
  for (const std::string keyword : {"VQ1", "VQ2", "VQ3"}) {
    options +=
        "*OpenUI *" + keyword + "/Option " + keyword + ": PickOne\n*Default" + keyword + ": Off\n";
    for (const std::string choice : {"Off", "A", "B"}) {
      options += "*" + keyword + " " + choice + "/Choice " + choice + ": \"\"\n";
    }
    options += "*CloseUI: *" + keyword + "\n";
  }
  return NumberingPPDText(true, options + lines);
}

using Lines = std::vector<std::string>;

// "keyword=choice/keyword=choice" each.
inline Lines Described(const std::vector<PPDConflict> &conflicts) {
  const auto side = [](const PPDOption &option) {
    std::string text = option.keyword + "=";
    for (const PPDChoice &choice : option.choices) text += choice.keyword;
    return text;
  };
  Lines lines;
  for (const PPDConflict &conflict : conflicts) {
    lines.push_back(side(conflict.first) + "/" + side(conflict.second));
  }
  return lines;
}

// The conflicts of these options in a file with three options and these lines.
inline Lines Conflicts(const std::string &lines, const JobOptions &options) {
  return Described(OpenText(ThreeOptions(lines)).Conflicts(options));
}

inline JobOptions Changed(JobOptions options, const JobOptions &changes) {
  for (const auto &[keyword, value] : changes) options[keyword] = value;
  return options;
}

inline constexpr char kOldConstraint[] =
    "*UIConstraints: *VQ1 A *VQ2 A\n*UIConstraints: *VQ2 A *VQ1 A\n";
inline constexpr char kNewConstraint[] = "*cupsUIConstraints vq: \"*VQ1 A *VQ2 A\"\n";

// An option for installed hardware, which is not installed.
inline constexpr char kTray[] =
    "*OpenGroup: InstallableOptions/Installed\n*OpenUI *VQTray/Tray: Boolean\n"
    "*DefaultVQTray: False\n*VQTray True/Yes: \"\"\n*VQTray False/No: \"\"\n"
    "*CloseUI: *VQTray\n*CloseGroup: InstallableOptions\n";

// An option without a default.
inline constexpr char kNoDefault[] = "*OpenUI *VQ4/Four: PickOne\n*VQ4 A/A: \"\"\n*CloseUI: *VQ4\n";

inline const JobOptions kBothSidesOfTransparencies = {{"Duplex", "DuplexTumble"},
                                                      {"MediaType", "Transparency"}};

#endif
