#include "filter/pictures/Steps.h"

#include <cups/ppd.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <sstream>

namespace {

struct ClosePPD {
  void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
};

// "TYPE [TYPE] COST PROGRAM"
void Take(const std::string &line, int &least, std::string &driver) {
  std::istringstream words(line);
  std::string source, word, program;
  words >> source >> word;
  if (word.find('/') != std::string::npos) words >> word;
  std::getline(words >> std::ws, program);
  const int cost = std::atoi(word.c_str());
  if (source != "application/vnd.cups-raster" || program.empty() || cost >= least) return;
  least = cost;
  driver = program;
  if (driver.starts_with("maxsize(")) {
    driver.erase(0, driver.find_first_not_of(" \t", driver.find(')') + 1));
  }
}

}  // namespace

std::string RasterDriver(const char *path) {
  const std::unique_ptr<ppd_file_t, ClosePPD> ppd(path == nullptr ? nullptr : ppdOpenFile(path));
  if (!ppd) return "";
  std::string driver;
  int least = INT_MAX;
  for (const char *keyword : {"cupsFilter2", "cupsFilter"}) {
    for (const ppd_attr_t *attribute = ppdFindAttr(ppd.get(), keyword, nullptr);
         attribute != nullptr; attribute = ppdFindNextAttr(ppd.get(), keyword, nullptr)) {
      if (attribute->value != nullptr) Take(attribute->value, least, driver);
    }
    // Where there are lines of the newer kind, no others are in force.
    if (ppdFindAttr(ppd.get(), keyword, nullptr) != nullptr) break;
  }
  return driver;
}
