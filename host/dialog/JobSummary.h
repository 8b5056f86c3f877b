// What the summary says of the job, before the panels say theirs.

#ifndef HOST_DIALOG_JOBSUMMARY_H
#define HOST_DIALOG_JOBSUMMARY_H

#include <string>

#include "host/dialog/SummarySection.h"
#include "host/session/JobSession.h"

struct SummarizedJob {
  std::string printer;
  std::string document;  // empty: nothing is printed
  std::string copies;
  std::string pages;  // empty: all
};

// Its lines, in the user's language. Of what the dialog's own panels show: what is set, and what is
// not as usual; of options of the printer, as its description has it. The failure: the job's
// settings cannot be read.
Expected<SummarySection> SummaryOfJob(const SummarizedJob &job, const JobSession &session);

#endif
