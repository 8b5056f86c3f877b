#include "printer/generator/Numbering.h"

#include <map>

namespace {

constexpr char kGroup[] = "BackgroundNumbering";

// An option whose choices leave a value for the drawing.
struct Value {
  const char *setting;      // its name in the setting info and in the drawing's values
  const char *text;         // key of its text
  const char *text_prefix;  // of the keys of its choices' texts
  const char *variable;     // where the PostScript finds it
};
constexpr Value kSize = {"Size", "Size", "Size_", "VelmoraSize"};
constexpr Value kDensity = {"Density", "Density", "Density_", "VelmoraDensity"};
constexpr Value kColor = {"Color", "Color", "Color_", "VelmoraInk"};
constexpr Value kPlacement = {"Placement", "Placement", "Placement", "VelmoraOver"};
constexpr char kStartVariable[] = "VelmoraStart";

std::string Leave(const std::string &variable, const std::string &value) {
  return "userdict /" + variable + " " + value + " put";
}

PrinterOption ValueOption(const Value &value, int order, const std::string &keyword,
                          const std::vector<std::string> &items, const std::string &default_item,
                          const SourceList &values) {
  PrinterOption option{keyword, value.text, order, default_item, {}};
  for (const std::string &item : items) {
    option.choices.push_back({item, value.text_prefix + item,
                              Leave(value.variable, values.String(value.setting, item))});
  }
  return option;
}

std::string Replaced(std::string text, const std::string &from, const std::string &to) {
  const size_t place = text.find(from);
  if (place == std::string::npos) throw SourceError("the drawing does not use " + from);
  return text.replace(place, from.size(), to);
}

// Programs that send the code of choices other than the defaults only leave out the rest.
std::string WithDefaults(std::string program, const SourceList &info, const SourceList &values,
                         const std::string &color, const std::string &placement) {
  program = Replaced(program, "@StartNumber@", info.String("DefaultValue", "StartNumber"));
  for (const char *setting : {"Size", "Density"}) {
    program = Replaced(program, std::string("@") + setting + "@",
                       values.String(setting, info.String("DefaultValue", setting)));
  }
  program = Replaced(program, "@Color@", values.String("Color", color));
  return Replaced(program, "@Placement@", values.String("Placement", placement));
}

}  // namespace

std::vector<PrinterOption> NumberingOptions(const SourceList &info,
                                            const std::filesystem::path &drawing_folder,
                                            bool color) {
  const SourceList values(drawing_folder / "Values.plist");
  const auto keyword = [&info](const char *setting) { return info.String("TicketKey", setting); };
  const auto default_item = [&info](const char *setting) {
    return info.String("DefaultValue", setting);
  };
  const auto items = [&info](const char *setting) { return info.Strings("PopUpItem", setting); };

  // Printers without color have the one that the panel offers for them.
  const std::string black = "Black";
  const std::string default_color = color ? default_item("Color") : black;
  const std::vector<std::string> colors = color ? items("Color") : std::vector{black};
  const std::string behind = "Behind";

  PrinterOption start{keyword("StartNumber"), "StartNumber", 64, default_item("StartNumber"), {}};
  const int last = info.Integer("DefaultValue", "StartNumberMax");
  for (int number = info.Integer("DefaultValue", "StartNumberMin"); number <= last; ++number) {
    const std::string digits = std::to_string(number);
    start.choices.push_back({digits, "", Leave(kStartVariable, digits)});
  }

  // Switching on takes the values of the others, and chains to what they set up: it comes last.
  const PrinterOption valid{keyword("Valid"),
                            "EnableFunction",
                            70,
                            default_item("Valid"),
                            {{"Off", "Off", ReadPostScript(drawing_folder / "Off.ps")},
                             {"On", "On",
                              WithDefaults(ReadPostScript(drawing_folder / "On.ps"), info, values,
                                           default_color, behind)}}};

  return {valid,
          ValueOption(kSize, 61, keyword("Size"), items("Size"), default_item("Size"), values),
          ValueOption(kDensity, 62, keyword("Density"), items("Density"), default_item("Density"),
                      values),
          ValueOption(kColor, 63, keyword("Color"), colors, default_color, values),
          start,
          ValueOption(kPlacement, 65, "VQBNPlacement", {behind, "Over"}, behind, values)};
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
