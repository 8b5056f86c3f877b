#include "printer/generator/PostScriptPrinter.h"

#include <map>

#include "printer/generator/PrinterOption.h"

namespace {

struct Paper {
  const char *name;
  int width, height;  // in points
};
constexpr Paper kPapers[] = {{"A3", 842, 1191},    {"A4", 595, 842},     {"A5", 420, 595},
                             {"Letter", 612, 792}, {"Legal", 612, 1008}, {"Tabloid", 792, 1224}};
constexpr char kDefaultPaper[] = "A4";
constexpr int kMargin = 12;  // in points, on each side

std::string Numbers(std::initializer_list<int> numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

PrinterOption PaperOption(const std::string &keyword) {
  PrinterOption option{keyword, "PageSize", 10, kDefaultPaper, {}};
  for (const Paper &paper : kPapers) {
    option.choices.push_back({paper.name, paper.name,
                              "<</PageSize[" + Numbers({paper.width, paper.height}) +
                                  "]/ImagingBBox null>>setpagedevice"});
  }
  return option;
}

PrinterOption DuplexOption() {
  return {"Duplex",
          "Duplex",
          20,
          "None",
          {{"None", "DuplexNone", "<</Duplex false>>setpagedevice"},
           {"DuplexNoTumble", "DuplexNoTumble", "<</Duplex true/Tumble false>>setpagedevice"},
           {"DuplexTumble", "DuplexTumble", "<</Duplex true/Tumble true>>setpagedevice"}}};
}

std::string PaperDimensions(const Texts &texts) {
  std::string areas = std::string("*DefaultImageableArea: ") + kDefaultPaper + "\n";
  std::string dimensions = std::string("*DefaultPaperDimension: ") + kDefaultPaper + "\n";
  for (const Paper &paper : kPapers) {
    const std::string name =
        std::string(" ") + paper.name + "/" + EncodedText(texts.Text("", paper.name)) + ": \"";
    areas += "*ImageableArea" + name +
             Numbers({kMargin, kMargin, paper.width - kMargin, paper.height - kMargin}) + "\"\n";
    dimensions += "*PaperDimension" + name + Numbers({paper.width, paper.height}) + "\"\n";
  }
  return areas + dimensions;
}

std::string Joined(const std::vector<std::string> &words) {
  std::string text;
  for (const std::string &word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

// The template with the values in place of their names, @Name@.
std::string Filled(const std::string &text, const std::map<std::string, std::string> &values) {
  std::string filled;
  size_t done = 0;
  for (size_t begin; (begin = text.find('@', done)) != std::string::npos;) {
    const size_t end = text.find('@', begin + 1);
    const auto value = values.find(text.substr(begin + 1, end - begin - 1));
    if (end == std::string::npos || value == values.end()) {
      throw SourceError("the template of PPD files asks for something unknown: " +
                        text.substr(begin, end - begin));
    }
    filled += text.substr(done, begin - done) + value->second;
    done = end + 1;
  }
  return filled + text.substr(done);
}

}  // namespace

std::string PPDText(const PostScriptPrinter &printer, const std::filesystem::path &ppd_template,
                    const Texts &texts) {
  const PrinterOption options[] = {PaperOption("PageSize"), PaperOption("PageRegion"),
                                   DuplexOption()};
  std::string lines, translations;
  for (const PrinterOption &option : options) lines += Lines(option, texts);
  for (const std::string &language : texts.Translations()) {
    for (const PrinterOption &option : options) {
      translations += Translation(option, texts, language);
    }
  }
  return Filled(ReadText(ppd_template), {{"Model", printer.model},
                                         {"FileName", printer.file_name},
                                         {"Version", printer.version},
                                         {"ColorDevice", printer.color ? "True" : "False"},
                                         {"ColorSpace", printer.color ? "RGB" : "Gray"},
                                         {"Languages", Joined(texts.Translations())},
                                         {"PaperAndDuplex", lines},
                                         {"PaperDimensions", PaperDimensions(texts)},
                                         {"Translations", translations},
                                         {"MoreLines", printer.more_lines}});
}
