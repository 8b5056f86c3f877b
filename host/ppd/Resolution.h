// Ways out of conflicts between the choices of a job.
//
// libcups proposes one, which may change what is to stay, or what no job may ask for, or may end
// nothing; then the defaults are tried.

#ifndef HOST_PPD_RESOLUTION_H
#define HOST_PPD_RESOLUTION_H

#include <optional>
#include <string>

#include "host/base/JobOptions.h"
#include "host/ppd/PPDFile.h"

// PPDFile::Resolution.
std::optional<JobOptions> ResolutionOf(const PPDFile &ppd, const JobOptions &options,
                                       const std::string &keep);

#endif
