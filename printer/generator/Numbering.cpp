#include "printer/generator/Numbering.h"

#include <map>
#include <span>

#include "numbering/Literal.h"
#include "numbering/Look.h"

namespace {

using numbering::Literal;

constexpr char kGroup[] = "BackgroundNumbering";

// What a choice does: On.ps finds its value in this variable.
std::string Leave(const std::string &variable, const std::string &value) {
  return "userdict /" + variable + " " + value + " put";
}

// What On.ps takes for the items of a setting, by their keywords.
using Values = std::map<std::string, std::string>;

Values ValuesOf(std::span<const numbering::NamedValue> table) {
  Values values;
  for (const auto &[keyword, value] : table) values.emplace(keyword, Literal(value));
  return values;
}

// Gray, or red, green and blue; then the strength.
Values Inks() {
  Values values;
  for (const numbering::Ink &ink : numbering::kInks) {
    std::string text = "[";
    for (const double component : std::span(ink.rgb).first(ink.IsGray() ? 1 : 3)) {
      text += Literal(component) + ' ';
    }
    values.emplace(ink.keyword, text + Literal(ink.strength) + ']');
  }
  return values;
}

// Whether the number is drawn over the page.
const Values &Placements() {
  static const Values values = {{"Behind", "false"}, {"Over", "true"}};
  return values;
}

std::string ValueOf(const Values &values, const std::string &setting, const std::string &item) {
  const auto value = values.find(item);
  if (value != values.end()) return value->second;
  throw SourceError("numbering/Look.h has no entry " + item + " for " + setting);
}

struct Menu {
  std::string keyword;
  std::string text_prefix;  // of the keys of the items' texts
  std::vector<std::string> items;
  std::string default_item;
};

PrinterOption ValueOption(const std::string &setting, const std::string &variable, int order,
                          const Menu &menu, const Values &values) {
  PrinterOption option{menu.keyword, setting, order, menu.default_item, {}};
  for (const std::string &item : menu.items) {
    option.choices.push_back(
        {item, menu.text_prefix + item, Leave(variable, ValueOf(values, setting, item))});
  }
  return option;
}

// The menu that the panel has for a setting.
Menu PanelMenu(const SourceList &info, const std::string &setting) {
  return {info.String("TicketKey", setting), info.String("Wording", "PrefixFor" + setting),
          info.Strings("PopUpItem", setting), info.String("DefaultValue", setting)};
}

// Printers without color have the one that the panel offers for them.
Menu ColorMenu(const SourceList &info, bool color) {
  Menu menu = PanelMenu(info, "Color");
  if (!color) {
    menu.default_item = "Black";
    menu.items = {menu.default_item};
  }
  return menu;
}

PrinterOption StartNumberOption(const SourceList &info) {
  PrinterOption option{info.String("TicketKey", "StartNumber"),
                       "StartNumber",
                       64,
                       info.String("DefaultValue", "StartNumber"),
                       {}};
  const int last = info.Integer("DefaultValue", "StartNumberMax");
  for (int number = info.Integer("DefaultValue", "StartNumberMin"); number <= last; ++number) {
    const std::string digits = std::to_string(number);
    option.choices.push_back({digits, "", Leave("VelmoraStart", digits)});
  }
  return option;
}

// The program with these values in place of their names, each of which it uses.
std::string Filled(std::string program, const Values &values) {
  for (const auto &[name, value] : values) {
    const std::string place = '@' + name + '@';
    size_t found = program.find(place);
    if (found == std::string::npos) throw SourceError("the drawing does not use " + place);
    for (; found != std::string::npos; found = program.find(place, found + value.size())) {
      program.replace(found, place.size(), value);
    }
  }
  return program;
}

}  // namespace

std::vector<PrinterOption> NumberingOptions(const SourceList &info,
                                            const std::filesystem::path &drawing_folder,
                                            bool color) {
  const Values sizes = ValuesOf(numbering::kSizes), densities = ValuesOf(numbering::kDensities);
  const Values inks = Inks(), &placements = Placements();
  const Menu size = PanelMenu(info, "Size");
  const Menu density = PanelMenu(info, "Density");
  const Menu colors = ColorMenu(info, color);
  const PrinterOption start = StartNumberOption(info);
  const Menu placement = {"VQBNPlacement", "Placement", {"Behind", "Over"}, "Behind"};
  // Programs that send the code of choices other than the defaults only leave out the rest.
  const Values drawing = {
      {"Size", ValueOf(sizes, "Size", size.default_item)},
      {"Density", ValueOf(densities, "Density", density.default_item)},
      {"Color", ValueOf(inks, "Color", colors.default_item)},
      {"StartNumber", start.default_choice},
      {"Placement", ValueOf(placements, "Placement", placement.default_item)},
      {"LargestExtent", Literal(numbering::kLargestExtent)},
      {"LargestFontSize", Literal(numbering::kLargestFontSize)},
      {"StripePeriod", Literal(numbering::kStripePeriod)},
      {"StripeShare", Literal(numbering::kStripeShare)},
      {"StripeStrength", Literal(numbering::kStripeStrength)},
  };
  // Switching on takes the values of the others, and chains to what they set up: it comes last.
  const PrinterOption valid{
      info.String("TicketKey", "Valid"),
      "EnableFunction",
      70,
      info.String("DefaultValue", "Valid"),
      {{"Off", "Off", ReadPostScript(drawing_folder / "Off.ps")},
       {"On", "On", Filled(ReadPostScript(drawing_folder / "On.ps"), drawing)}}};
  return {valid,
          ValueOption("Size", "VelmoraSize", 61, size, sizes),
          ValueOption("Density", "VelmoraDensity", 62, density, densities),
          ValueOption("Color", "VelmoraInk", 63, colors, inks),
          start,
          ValueOption("Placement", "VelmoraOver", 65, placement, placements)};
}

std::vector<PrinterOption> DocumentOptions(std::vector<PrinterOption> options) {
  for (PrinterOption &option : options) {
    for (PrinterChoice &choice : option.choices) choice.code.clear();
  }
  PrinterOption &placement = options.back();
  placement.default_choice = "Automatic";
  placement.choices.insert(placement.choices.begin(),
                           {placement.default_choice, "PlacementAutomatic", ""});
  return options;
}

std::string PrinterDeclarations() {
  return "*PDESubstituteChoice: \"VQBNPlacement Automatic Behind\"\n"
         "*PDEJobOption: \"VQBackgroundNumbering On pdftops-renderer=pdftocairo\"\n";
}

std::string NumberingLines(const std::vector<PrinterOption> &options, const Texts &texts,
                           const std::string &declarations) {
  std::string lines =
      "*VQBackgroundNumberingSupport: \"true\"\n"
      "*APDialogExtension: \"/Library/Printers/Velmora/PDEs/BackgroundNumbering.plugin\"\n";
  lines += declarations;
  lines += std::string("*OpenGroup: ") + kGroup + "/" + EncodedText(texts.Text("", kGroup)) + "\n";
  for (const PrinterOption &option : options) lines += Lines(option, texts);
  lines += std::string("*CloseGroup: ") + kGroup + "\n";
  for (const std::string &language : texts.Translations()) {
    lines += GroupTranslation(kGroup, texts, language);
    for (const PrinterOption &option : options) lines += Translation(option, texts, language);
  }
  return lines;
}
