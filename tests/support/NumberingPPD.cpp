#include "tests/support/NumberingPPD.h"

#include <vector>

#include "tests/support/TestPPD.h"

namespace {

struct Choice {
  std::string keyword;
  std::string text;
};

// An option whose default is the choice of this keyword.
std::string PickOne(const std::string &keyword, const std::string &text,
                    const std::string &default_choice, const std::vector<Choice> &choices) {
  std::string lines = "*OpenUI *" + keyword + "/" + text + ": PickOne\n";
  lines += "*OrderDependency: 60 AnySetup *" + keyword + "\n";
  lines += "*Default" + keyword + ": " + default_choice + "\n";
  for (const Choice &choice : choices) {
    lines += "*" + keyword + " " + choice.keyword + "/" + choice.text + ": \"\"\n";
  }
  return lines + "*CloseUI: *" + keyword + "\n";
}

std::string NumberingOptions(bool color) {
  std::vector<Choice> colors = {{"Black", "Black"}};
  if (color) {
    for (const char *name : {"Red", "Green", "Blue", "Cyan", "Magenta", "Yellow"}) {
      colors.push_back({name, name});
    }
  }
  std::vector<Choice> numbers;
  for (int number = 1; number <= 999; ++number) {
    numbers.push_back({std::to_string(number), std::to_string(number)});
  }
  return "*OpenGroup: Numbering/Background Numbering\n" +
         PickOne("VQBackgroundNumbering", "Background Numbering", "Off",
                 {{"Off", "Off"}, {"On", "On"}}) +
         PickOne("VQBNSize", "Number Size", "Medium",
                 {{"Small", "Small"}, {"Medium", "Medium"}, {"Large", "Large"}}) +
         PickOne("VQBNDensity", "Number Density", "Medium",
                 {{"Light", "Light"}, {"Medium", "Medium"}, {"Dark", "Dark"}}) +
         PickOne("VQBNColor", "Number Color", "Black", colors) +
         PickOne("VQStartNumber", "Start Number", "1", numbers) + "*CloseGroup: Numbering\n";
}

std::string PaperOptions() {
  return PickOne("InputSlot", "Paper Source", "Auto",
                 {{"Auto", "Automatic"}, {"Tray1", "Tray 1"}, {"Manual", "Manual Feed"}}) +
         PickOne("MediaType", "Paper Type", "Plain",
                 {{"Plain", "Plain Paper"}, {"Transparency", "Transparency"}}) +
         PickOne("Duplex", "Two-Sided", "None",
                 {{"None", "Off"},
                  {"DuplexNoTumble", "Long-Edge Binding"},
                  {"DuplexTumble", "Short-Edge Binding"}}) +
         "*UIConstraints: *Duplex DuplexNoTumble *MediaType Transparency\n"
         "*UIConstraints: *MediaType Transparency *Duplex DuplexNoTumble\n"
         "*UIConstraints: *Duplex DuplexTumble *MediaType Transparency\n"
         "*UIConstraints: *MediaType Transparency *Duplex DuplexTumble\n";
}

// Page sizes for an option that TestPPD::Text opens.
std::string PageSizes(const std::string &keyword) {
  return "*" + keyword + " Letter/US Letter: \"<</PageSize[612 792]>>setpagedevice\"\n*" + keyword +
         " A3/A3: \"<</PageSize[842 1191]>>setpagedevice\"\n";
}

std::string WithMorePageSizes(std::string text) {
  for (const std::string keyword : {"PageSize", "PageRegion"}) {
    text.insert(text.find("*CloseUI: *" + keyword + "\n"), PageSizes(keyword));
  }
  return text;
}

}  // namespace

std::string NumberingPPDText(bool color, const std::string &lines) {
  return WithMorePageSizes(
      TestPPD::Text(std::string("*ImageableArea Letter/US Letter: \"18 18 594 774\"\n"
                                "*ImageableArea A3/A3: \"18 18 824 1173\"\n"
                                "*PaperDimension Letter/US Letter: \"612 792\"\n"
                                "*PaperDimension A3/A3: \"842 1191\"\n") +
                    kSupported + (color ? kColorDevice : kMonoDevice) + PaperOptions() +
                    NumberingOptions(color) + lines));
}
