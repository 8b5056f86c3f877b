// The values of the mapping's rows.

#ifndef PORTAL_MAPPEDVALUES_H
#define PORTAL_MAPPEDVALUES_H

#include <optional>
#include <string>

#include "portal/Chosen.h"
#include "portal/Value.h"

// Each answers the value of a job option for what stands in the dictionary under a key, which the
// mapping names beside it; empty: there is nothing, or what no job can have.
std::string TakeCopies(const Dictionary &settings);
std::string TakeCollating(const Dictionary &settings);
std::string TakeRanges(const Dictionary &settings);  // only where these are to be printed
std::string TakePageSet(const Dictionary &settings);
std::string TakeOrder(const Dictionary &settings);
std::string TakeNumberUp(const Dictionary &settings);
std::string TakeNumberUpLayout(const Dictionary &settings);
std::string TakeSides(const Dictionary &settings);
std::string TakeColor(const Dictionary &settings);
std::string TakeQuality(const Dictionary &settings);
std::string TakePaperFormat(const Dictionary &settings);
std::string TakePaperSize(const Dictionary &settings);
std::string TakePpdPaper(const Dictionary &page_setup);
std::string TakeSetUpPaper(const Dictionary &page_setup);
std::string TakeSetUpSize(const Dictionary &page_setup);

// All pages, unless the application alone can do it: what is selected, the page on show.
std::optional<Value> GivePages(const Value *sent, const Chosen &chosen);
// What was chosen, under whichever name.
std::optional<Value> GiveSides(const Value *sent, const Chosen &chosen);

// The paper's name in the standard for such names; of one without a name there, that of its size.
std::string PaperName(const Paper &paper);
// As PPD files have it; empty: it has none there.
std::string PpdPaperName(const Paper &paper);
// For people.
std::string ShownPaperName(const Paper &paper);
// With a decimal point, in whatever language.
std::string DecimalText(double number);

#endif
