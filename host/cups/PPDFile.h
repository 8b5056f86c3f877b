// A printer description, as libcups parses it. All calls of libcups' PPD functions are here.

#ifndef HOST_CUPS_PPDFILE_H
#define HOST_CUPS_PPDFILE_H

#include <cups/ppd.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "host/base/Expected.h"

class PPDFile {
 public:
  // Opens and parses a file, compressed or not. The failure is what libcups says, with the line.
  static Expected<PPDFile> Open(const std::filesystem::path &path);

  // Valid as long as this object; never null.
  ppd_file_t *get() const { return ppd_.get(); }

  // The value of the first attribute with this keyword, whatever its option part.
  std::optional<std::string> Attribute(const std::string &keyword) const;

  // ColorDevice is exactly True.
  bool IsColorDevice() const;

 private:
  struct Closer {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
  };
  explicit PPDFile(ppd_file_t *ppd) : ppd_(ppd) {}

  std::unique_ptr<ppd_file_t, Closer> ppd_;
};

#endif
