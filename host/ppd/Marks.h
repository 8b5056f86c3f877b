// The choices of a job, marked in a printer description: what libcups makes of job options.

#ifndef HOST_PPD_MARKS_H
#define HOST_PPD_MARKS_H

#include <cups/ppd.h>

#include "host/base/JobOptions.h"

// Marks the choices of a job in the file, over its defaults, as long as it lives; then they are the
// defaults again.
class Marks {
 public:
  Marks(ppd_file_t *ppd, const JobOptions &options);
  ~Marks();
  Marks(const Marks &) = delete;
  Marks &operator=(const Marks &) = delete;

 private:
  ppd_file_t *ppd_;
};

// The marked choice of an option, the page size's for PageRegion too; null: there is none.
const ppd_choice_t *MarkedChoice(ppd_file_t *ppd, const char *keyword);

// The choices of all options of a job, under the keywords that people know. Names that every queue
// takes (media, sides...) have become the choices that they stand for.
JobOptions MarkedChoices(ppd_file_t *ppd, const JobOptions &options);

#endif
