#include "printer/generator/Numbering.h"

namespace {

constexpr char kGroup[] = "BackgroundNumbering";

// What a choice does: On.ps finds its value in this variable.
std::string Leave(const std::string &variable, const std::string &value) {
  return "userdict /" + variable + " " + value + " put";
}

struct Menu {
  std::string keyword;
  std::string text_prefix;  // of the keys of the items' texts
  std::vector<std::string> items;
  std::string default_item;
};

PrinterOption ValueOption(const std::string &setting, const std::string &variable, int order,
                          const Menu &menu, const SourceList &values) {
  PrinterOption option{menu.keyword, setting, order, menu.default_item, {}};
  for (const std::string &item : menu.items) {
    option.choices.push_back(
        {item, menu.text_prefix + item, Leave(variable, values.String(setting, item))});
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

std::string Replaced(std::string text, const std::string &from, const std::string &to) {
  const size_t place = text.find(from);
  if (place == std::string::npos) throw SourceError("the drawing does not use " + from);
  return text.replace(place, from.size(), to);
}

// Programs that send the code of choices other than the defaults only leave out the rest.
std::string WithDefaults(std::string program, const SourceList &values, const std::string &size,
                         const std::string &density, const std::string &color,
                         const std::string &start, const std::string &placement) {
  program = Replaced(program, "@Size@", values.String("Size", size));
  program = Replaced(program, "@Density@", values.String("Density", density));
  program = Replaced(program, "@Color@", values.String("Color", color));
  program = Replaced(program, "@StartNumber@", start);
  return Replaced(program, "@Placement@", values.String("Placement", placement));
}

}  // namespace

std::vector<PrinterOption> NumberingOptions(const SourceList &info,
                                            const std::filesystem::path &drawing_folder,
                                            bool color) {
  const SourceList values(drawing_folder / "Values.plist");
  const Menu size = PanelMenu(info, "Size");
  const Menu density = PanelMenu(info, "Density");
  const Menu colors = ColorMenu(info, color);
  const PrinterOption start = StartNumberOption(info);
  const Menu placement = {"VQBNPlacement", "Placement", {"Behind", "Over"}, "Behind"};
  // Switching on takes the values of the others, and chains to what they set up: it comes last.
  const PrinterOption valid{
      info.String("TicketKey", "Valid"),
      "EnableFunction",
      70,
      info.String("DefaultValue", "Valid"),
      {{"Off", "Off", ReadPostScript(drawing_folder / "Off.ps")},
       {"On", "On",
        WithDefaults(ReadPostScript(drawing_folder / "On.ps"), values, size.default_item,
                     density.default_item, colors.default_item, start.default_choice,
                     placement.default_item)}}};
  return {valid,
          ValueOption("Size", "VelmoraSize", 61, size, values),
          ValueOption("Density", "VelmoraDensity", 62, density, values),
          ValueOption("Color", "VelmoraInk", 63, colors, values),
          start,
          ValueOption("Placement", "VelmoraOver", 65, placement, values)};
}

std::string NumberingLines(const std::vector<PrinterOption> &options, const Texts &texts) {
  std::string lines =
      "*VQBackgroundNumberingSupport: \"true\"\n"
      "*APDialogExtension: \"/Library/Printers/Velmora/PDEs/BackgroundNumbering.plugin\"\n";
  lines += std::string("*OpenGroup: ") + kGroup + "/" + EncodedText(texts.Text("", kGroup)) + "\n";
  for (const PrinterOption &option : options) lines += Lines(option, texts);
  lines += std::string("*CloseGroup: ") + kGroup + "\n";
  for (const std::string &language : texts.Translations()) {
    lines += GroupTranslation(kGroup, texts, language);
    for (const PrinterOption &option : options) lines += Translation(option, texts, language);
  }
  return lines;
}
