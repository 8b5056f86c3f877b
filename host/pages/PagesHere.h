// The pages of a printer's jobs, as this computer can make them.

#ifndef HOST_PAGES_PAGESHERE_H
#define HOST_PAGES_PAGESHERE_H

#include <set>
#include <string>
#include <vector>

#include "host/base/JobOptions.h"

// A program with the print system's interface for filters, and the bundle whose options it knows.
struct DocumentFilter {
  std::string program;
  std::string bundle;   // its name, for people
  std::string package;  // that has the program; empty: not told

  bool operator==(const DocumentFilter &) const = default;
};

// How they are made as the printer will print them.
struct PageMaking {
  std::string ppd;  // the printer's description, with the options of the filters
  std::vector<DocumentFilter> filters;
  std::set<std::string> of_filters;  // the options that they take

  bool operator==(const PageMaking &) const = default;
};

// What is done to them here when they are printed, since the queue cannot.
struct PagesHere : PageMaking {
  JobOptions sent_with;          // what the pages are sent with, but for what the job says itself
  JobOptions sent_with_banners;  // the same where the job has banner pages
  JobOptions defaults;  // of their options: what they have where nobody has chosen anything
};

#endif
