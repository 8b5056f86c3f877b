// Job options as libcups takes and reads them.

#ifndef HOST_PPD_CUPSOPTIONS_H
#define HOST_PPD_CUPSOPTIONS_H

#include <cups/cups.h>

#include <span>
#include <string>

#include "host/base/JobOptions.h"

class CupsOptions {
 public:
  explicit CupsOptions(const JobOptions &options) {
    for (const auto &[name, value] : options) {
      count_ = cupsAddOption(name.c_str(), value.c_str(), count_, &options_);
    }
  }
  // As libcups reads them: "NAME=VALUE ...", also in braces.
  explicit CupsOptions(const std::string &text)
      : count_(cupsParseOptions(text.c_str(), 0, &options_)) {}
  // Takes over what libcups has made.
  CupsOptions(int count, cups_option_t *options) : options_(options), count_(count) {}
  ~CupsOptions() { cupsFreeOptions(count_, options_); }
  CupsOptions(const CupsOptions &) = delete;
  CupsOptions &operator=(const CupsOptions &) = delete;

  int count() const { return count_; }
  cups_option_t *get() const { return options_; }
  std::span<const cups_option_t> all() const { return {options_, static_cast<size_t>(count_)}; }
  JobOptions Content() const {
    JobOptions content;
    for (const cups_option_t &option : all()) content[option.name] = option.value;
    return content;
  }

 private:
  cups_option_t *options_ = nullptr;
  int count_ = 0;
};

#endif
