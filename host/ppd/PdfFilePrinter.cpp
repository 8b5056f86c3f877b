#include "host/ppd/PdfFilePrinter.h"

#include <langinfo.h>
#include <locale.h>

#include <cstdint>

#include "host/base/Localized.h"

namespace {

struct Paper {
  const char *name;
  const char *title;
  const char *size;  // width and height in points
};

constexpr Paper kPapers[] = {
    {"A3", "A3", "841.89 1190.55"},     {"A4", "A4", "595.28 841.89"},
    {"A5", "A5", "419.53 595.28"},      {"A6", "A6", "297.64 419.53"},
    {"B5", "B5 (JIS)", "515.91 728.5"}, {"Executive", "Executive", "522 756"},
    {"Legal", "Legal", "612 1008"},     {"Letter", "Letter", "612 792"},
    {"Tabloid", "Tabloid", "792 1224"},
};

constexpr char kBegin[] =
    "*PPD-Adobe: \"4.3\"\n"
    "*FormatVersion: \"4.3\"\n"
    "*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n"
    "*LanguageEncoding: UTF-8\n"
    "*PCFileName: \"PDFFILE.PPD\"\n"
    "*Manufacturer: \"Generic\"\n"
    "*Product: \"(PDF file)\"\n"
    "*ModelName: \"PDF file\"\n"
    "*ShortNickName: \"PDF file\"\n"
    "*NickName: \"PDF file\"\n"
    "*PSVersion: \"(3010.000) 0\"\n"
    "*LanguageLevel: \"3\"\n"
    "*ColorDevice: True\n"
    "*DefaultColorSpace: RGB\n"
    "*FileSystem: False\n"
    "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n"
    "*HWMargins: 0 0 0 0\n"
    "*VariablePaperSize: True\n"
    "*MaxMediaWidth: \"14400\"\n"
    "*MaxMediaHeight: \"14400\"\n"
    "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n"
    "*CustomPageSize True: \"\"\n"
    "*ParamCustomPageSize Width: 1 points 36 14400\n"
    "*ParamCustomPageSize Height: 2 points 36 14400\n"
    "*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
    "*ParamCustomPageSize HeightOffset: 4 points 0 0\n"
    "*ParamCustomPageSize Orientation: 5 int 0 0\n";

bool UsesLetter() {
  const locale_t locale = newlocale(LC_PAPER_MASK, "", nullptr);
  if (locale == nullptr) return false;
  // The platform answers a number in the place of the text.
  const auto height = reinterpret_cast<intptr_t>(nl_langinfo_l(_NL_PAPER_HEIGHT, locale));
  freelocale(locale);
  constexpr int kLetterHeight = 279;  // in mm
  return static_cast<int>(height) == kLetterHeight;
}

std::string Option(const char *keyword, const std::string &usual) {
  const std::string name = keyword;
  std::string text = "*OpenUI *" + name + '/' + Localized("Paper Size") +
                     ": PickOne\n*OrderDependency: 10 AnySetup *" + name + "\n*Default" + name +
                     ": " + usual + '\n';
  for (const Paper &paper : kPapers) {
    text += '*' + name + ' ' + paper.name + '/' + paper.title + ": \"\"\n";
  }
  return text + "*CloseUI: *" + name + '\n';
}

}  // namespace

std::string PdfFilePrinterPPD() {
  const std::string usual = UsesLetter() ? "Letter" : "A4";
  std::string text = kBegin + Option("PageSize", usual) + Option("PageRegion", usual);
  text += "*DefaultImageableArea: " + usual + "\n*DefaultPaperDimension: " + usual + '\n';
  for (const Paper &paper : kPapers) {
    const std::string size = paper.size;
    const std::string name = std::string(paper.name) + '/' + paper.title;
    text += "*ImageableArea " + name + ": \"0 0 " + size + "\"\n";
    text += "*PaperDimension " + name + ": \"" + size + "\"\n";
  }
  return text;
}
