// A printer description, as libcups parses it. All calls of libcups' PPD functions are here.

#ifndef HOST_CUPS_PPDFILE_H
#define HOST_CUPS_PPDFILE_H

#include <cups/ppd.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/JobOptions.h"

struct PPDChoice {
  std::string keyword;
  std::string text;  // localized, UTF-8
};

struct PPDOption {
  std::string keyword;
  std::string text;   // localized, UTF-8
  std::string group;  // the text of its group
  std::string default_choice;
  std::vector<PPDChoice> choices;  // in the file's order
};

// Two choices that the printer description forbids together, by keywords and texts.
struct PPDConflict {
  PPDOption first;  // with one choice: the one in conflict
  PPDOption second;
};

class PPDFile {
 public:
  // Opens and parses a file, compressed or not. The failure is what libcups says, with the line.
  static Expected<PPDFile> Open(const std::filesystem::path &path);

  // Valid as long as this object; never null.
  ppd_file_t *get() const { return ppd_.get(); }

  // The printer's name for people: NickName, or what comes nearest.
  std::string Name() const;

  // The value of the first attribute with this keyword, whatever its option part.
  std::optional<std::string> Attribute(const std::string &keyword) const;
  // The values of all attributes with this keyword, in the file's order.
  std::vector<std::string> Attributes(const std::string &keyword) const;

  // ColorDevice is exactly True.
  bool IsColorDevice() const;

  // The options whose choice belongs to a job, in the file's order: not those of installed
  // hardware, and not PageRegion, which follows PageSize.
  std::vector<PPDOption> Options() const;

  // The option, of whatever kind, with this keyword; none: there is no such option.
  std::optional<PPDOption> Option(const std::string &keyword) const;

  // Whether a job may ask for this choice of an option: one that is listed, or Custom.VALUE where
  // the option takes custom values. False for options that are not there.
  bool Allows(const std::string &option, const std::string &choice) const;

  // What these job options, over the file's defaults, bring together that the constraints forbid;
  // each pair once.
  std::vector<PPDConflict> Conflicts(const JobOptions &options) const;

  // The changes to these job options that end all conflicts and leave the option `keep` (empty:
  // none) as it is. No value: there is no way.
  std::optional<JobOptions> Resolution(const JobOptions &options, const std::string &keep) const;

 private:
  struct Closer {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
  };
  explicit PPDFile(ppd_file_t *ppd) : ppd_(ppd) {}

  std::unique_ptr<ppd_file_t, Closer> ppd_;
};

#endif
