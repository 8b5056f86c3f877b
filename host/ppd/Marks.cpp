#include "host/ppd/Marks.h"

#include "host/ppd/CupsOptions.h"
#include "host/ppd/Keywords.h"

namespace {

void MarkDefaults(ppd_file_t *ppd) {
  // Without a default page size libcups keeps the one that was marked last.
  for (int size = 0; size < ppd->num_sizes; ++size) ppd->sizes[size].marked = 0;
  ppdMarkDefaults(ppd);
}

}  // namespace

Marks::Marks(ppd_file_t *ppd, const JobOptions &options) : ppd_(ppd) {
  MarkDefaults(ppd_);
  const CupsOptions list(options);
  cupsMarkOptions(ppd_, list.count(), list.get());
}

Marks::~Marks() { MarkDefaults(ppd_); }

const ppd_choice_t *MarkedChoice(ppd_file_t *ppd, const char *keyword) {
  if (!IsPageSize(keyword)) return ppdFindMarkedChoice(ppd, keyword);
  const ppd_choice_t *size = ppdFindMarkedChoice(ppd, "PageSize");
  return size != nullptr ? size : ppdFindMarkedChoice(ppd, "PageRegion");
}

JobOptions MarkedChoices(ppd_file_t *ppd, const JobOptions &options) {
  const Marks marks(ppd, options);
  JobOptions choices;
  for (auto *marked = static_cast<ppd_choice_t *>(cupsArrayFirst(ppd->marked)); marked != nullptr;
       marked = static_cast<ppd_choice_t *>(cupsArrayNext(ppd->marked))) {
    choices[KeywordForPeople(marked->option->keyword)] = marked->choice;
  }
  return choices;
}
