// Real PPD files, opened by libcups.

#ifndef TESTS_SUPPORT_TESTPPD_H
#define TESTS_SUPPORT_TESTPPD_H

#include <cups/ppd.h>

#include <memory>
#include <string>

#include "tests/support/TemporaryFolder.h"

// Lines that make a PPD file a supported printer's, with and without color.
inline constexpr char kSupported[] = "*VQBackgroundNumberingSupport: \"true\"\n";
inline constexpr char kColorDevice[] = "*ColorDevice: True\n";
inline constexpr char kMonoDevice[] = "*ColorDevice: False\n";

class TestPPD {
 public:
  // A small, complete PPD file with these lines beside what every PPD file has; it declares neither
  // support nor color by itself.
  explicit TestPPD(const std::string &lines);

  // Never null: a file that libcups refuses ends the test program.
  ppd_file_t *get() const { return ppd_.get(); }
  std::filesystem::path path() const { return path_; }

  static std::string Text(const std::string &lines);

 private:
  struct Closer {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
  };
  TemporaryFolder folder_;
  std::filesystem::path path_;
  std::unique_ptr<ppd_file_t, Closer> ppd_;
};

#endif
