// The programs that print a picture in the way of a document.

#ifndef FILTER_PICTURES_STEPS_H
#define FILTER_PICTURES_STEPS_H

#include <string>
#include <vector>

// The printer's program for the pixels that the print system makes (application/vnd.cups-raster),
// as the PPD file names it; "-": none is needed; empty: there is none.
std::string RasterDriver(const char *ppd);

// Names of programs, the first of which takes the picture and the last writes the type `wanted`,
// which goes to the printer. `has` tells whether the print server has one. Empty: there is no way.
template <typename Has>
std::vector<std::string> StepsTo(const std::string &wanted, const std::string &driver, Has has) {
  std::vector<std::string> steps = {"imagetopdf", "backgroundnumbers"};
  if (wanted == "application/pdf") return steps;
  // In the order in which the print system would rather have them.
  for (const char *program : {"gstoraster", "pdftoraster", "mupdftoraster"}) {
    if (!has(program)) continue;
    steps.push_back(program);
    if (wanted == "image/pwg-raster") return steps;
    if (wanted == "image/urf") {
      steps.push_back("rastertopwg");
    } else if (wanted == "application/PCLm" || wanted == "application/pclm") {
      steps.push_back("rastertopclm");
    } else if (driver.empty()) {
      return {};
    } else if (driver != "-") {
      steps.push_back(driver);
    }
    return steps;
  }
  return {};
}

#endif
