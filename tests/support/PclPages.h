// Pages of a printer whose language is PCL.

#ifndef TESTS_SUPPORT_PCLPAGES_H
#define TESTS_SUPPORT_PCLPAGES_H

#include <string>
#include <string_view>
#include <vector>

// Black and white, as raster drivers send it: lines of dots, as they are or packed (modes 0 and 2).
struct PclPage {
  std::string setup;               // all that comes before the first line
  std::vector<std::string> lines;  // from the top, eight dots a byte, without white at the end
};

std::vector<PclPage> PclPages(std::string_view bytes);

#endif
