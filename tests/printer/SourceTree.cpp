#include "tests/printer/SourceTree.h"

#include <cstdlib>
#include <iostream>

namespace fs = std::filesystem;

SourceTree::SourceTree() {
  for (const char *part : {"resources", "printer"}) {
    fs::copy(fs::path(SOURCE_DIRECTORY) / part, folder_.path() / part, fs::copy_options::recursive);
  }
}

void SourceTree::Edit(const std::string &file, const std::string &from,
                      const std::string &to) const {
  std::string text = ContentOf(folder_.path() / file);
  const size_t place = text.find(from);
  if (place == std::string::npos) {
    std::cerr << file << " does not contain " << from << "\n";
    std::abort();
  }
  folder_.Write(file, text.replace(place, from.size(), to));
}

std::vector<PrinterOption> SourceTree::Options(bool color) const {
  return NumberingOptions(SourceList(resources() / "BackgroundNumberingRV2-SettingInfo.plist"),
                          printer() / "numbering", color);
}

Texts SourceTree::AllTexts() const { return Texts({resources(), printer() / "strings"}); }
