// Print settings as the options of a job.

#ifndef HOST_JOB_SETTINGOPTIONS_H
#define HOST_JOB_SETTINGOPTIONS_H

#import <Foundation/Foundation.h>
#import <PrintCore/PrintCore.h>

#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"

// The settings as job options. A value that is neither a string nor a number is none, nor is one of
// those below.
Expected<JobOptions> JobOptionsFromSettings(PMPrintSettings settings);

// The names, in order, of the strings and numbers among these values of settings that are no job
// options, because no server can be sent them: a text with a zero character or half of a surrogate
// pair, or a name with blanks, control characters, quotation marks, braces, backslashes or equals
// signs, with which it would be read as something else, or as several.
std::vector<std::string> TextsThatAreNoOptions(NSDictionary *values);

// The value of one of them; none: there is no such option.
Expected<std::optional<std::string>> JobOptionFromSettings(PMPrintSettings settings,
                                                           const std::string &name);

#endif
