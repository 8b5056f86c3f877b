// Pages of a raster printer.

#ifndef TESTS_PAGES_RASTERPAGES_H
#define TESTS_PAGES_RASTERPAGES_H

#include <cups/raster.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Interpreter.h"
#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <unistd.h>

// Of three colors with eight bits each.
inline std::vector<Picture> RasterPages(const std::string &bytes) {
  const TemporaryFolder folder;
  const int file = open(folder.Write("raster", bytes).c_str(), O_RDONLY | O_CLOEXEC);
  cups_raster_t *raster = cupsRasterOpen(file, CUPS_RASTER_READ);
  std::vector<Picture> pages;
  cups_page_header2_t header;
  while (raster != nullptr && cupsRasterReadHeader2(raster, &header) != 0) {
    EXPECT_EQ(header.cupsBitsPerPixel, 24u);
    std::string ppm = "P6\n" + std::to_string(header.cupsWidth) + ' ' +
                      std::to_string(header.cupsHeight) + "\n255\n";
    std::vector<unsigned char> line(header.cupsBytesPerLine);
    for (unsigned row = 0; row < header.cupsHeight; ++row) {
      cupsRasterReadPixels(raster, line.data(), header.cupsBytesPerLine);
      ppm.append(line.begin(), line.end());
    }
    pages.emplace_back(ppm);
  }
  cupsRasterClose(raster);
  close(file);
  return pages;
}

#endif
