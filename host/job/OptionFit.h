// Which job options fit a printer.

#ifndef HOST_JOB_OPTIONFIT_H
#define HOST_JOB_OPTIONFIT_H

#include <set>
#include <string>
#include <vector>

#include "host/base/JobOptions.h"
#include "host/ppd/PPDFile.h"

struct UnfitOption {
  std::string keyword;
  std::string value;
  std::string
      reason;  // for people, a clause: "this printer has no PageSize \"A0\"; it has A4, Letter"
};

// The options among these whose value the PPD file does not list as a choice, nor allows as a
// custom one (long lists of choices are cut short in the reason), also where the print system would
// take another option's name for this one; and, among the printer-specific keywords, those that the
// printer does not have at all. Options of every queue (copies, page-ranges...) always fit,
// page-ranges and copies if they can be parsed. A null PPD file has no options.
std::vector<UnfitOption> UnfitOptions(const JobOptions &options, const PPDFile *ppd,
                                      const std::set<std::string> &printer_specific);

#endif
