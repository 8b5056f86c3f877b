// Makes the PPD files of printers that number their pages, and the pieces that give the same to
// other printers, or to filters, from the setting info that the panel reads.

#include <fstream>
#include <iostream>

#include "printer/generator/Numbering.h"
#include "printer/generator/PostScriptPrinter.h"

namespace fs = std::filesystem;

namespace {

void WriteText(const fs::path &path, const std::string &text) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << text << std::flush)) throw SourceError(path.string() + ": cannot be written");
}

void Make(const fs::path &resources, const fs::path &printer_folder, const std::string &version,
          const fs::path &output) {
  const SourceList setting_info(resources / "BackgroundNumberingRV2-SettingInfo.plist");
  const Texts texts({resources, printer_folder / "strings"});
  struct Kind {
    const char *model, *file_name, *ppd, *printer_part, *document_part;
    bool color;
  };
  const Kind kinds[] = {{"Velmora Numbering", "VQNUMBER.PPD", "VelmoraNumbering.ppd",
                         "ColorPrinter.ppdpart", "ColorDocument.ppdpart", true},
                        {"Velmora Numbering Mono", "VQNUMBRM.PPD", "VelmoraNumberingMono.ppd",
                         "MonochromePrinter.ppdpart", "MonochromeDocument.ppdpart", false}};
  for (const Kind &kind : kinds) {
    const std::vector<PrinterOption> options =
        NumberingOptions(setting_info, printer_folder / "numbering", kind.color);
    const std::string lines = NumberingLines(options, texts, PrinterDeclarations());
    WriteText(output / kind.printer_part, lines);
    WriteText(output / kind.document_part, NumberingLines(DocumentOptions(options), texts));
    WriteText(output / kind.ppd, PPDText({kind.model, kind.file_name, version, kind.color, lines},
                                         printer_folder / "PostScriptPrinter.ppd.in", texts));
  }
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 5) {
    std::cerr << "usage: " << argv[0] << " RESOURCES PRINTER_FOLDER VERSION OUTPUT_FOLDER\n";
    return 2;
  }
  try {
    Make(argv[1], argv[2], argv[3], argv[4]);
  } catch (const std::exception &error) {
    std::cerr << argv[0] << ": " << error.what() << "\n";
    return 1;
  }
  return 0;
}
