// What a job and its queue say about numbers.

#ifndef FILTER_JOBCHOICES_H
#define FILTER_JOBCHOICES_H

#include <string>

#include "numbering/Choices.h"

// Of the options as the print system hands them to filters, and of the defaults of the queue's PPD
// file for those that the job does not say, or says wrongly, which goes into the log. `ppd`: the
// file's path; null or not to be read: there is none.
numbering::Choices JobChoices(const char *options, const char *ppd);

#endif
