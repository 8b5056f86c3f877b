#include "host/chain/DocumentWays.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/chain/FilterChain.h"

namespace {

using Programs = std::vector<std::string>;

struct Kind {
  std::string name;  // for people
  std::vector<std::string> types;
};

bool Passes(const Programs &programs, const WantedFilters &filters) {
  return std::ranges::any_of(programs, [&filters](const std::string &program) {
    return program == filters.documents || (program == filters.pictures && !program.empty());
  });
}

std::string Joined(const Programs &programs) {
  std::string text;
  for (const std::string &program : programs) text += (text.empty() ? "" : ", ") + program;
  return text.empty() ? kPassedOn : text;
}

// The programs of the first way that leads past the filters; no value: there is none such.
std::optional<Programs> WayPast(const Kind &kind, const WantedFilters &filters,
                                const FilterChains &chains) {
  for (const std::string &type : kind.types) {
    // Some printers are sent pixels when they could not print the PDF document.
    for (const char *destination : {"", "image/urf", "image/pwg-raster"}) {
      if (*destination != '\0' && !chains.HasDestination(destination)) continue;
      std::optional<Programs> programs = chains.For(type, destination);
      if (programs && !Passes(*programs, filters)) return programs;
    }
  }
  return std::nullopt;
}

}  // namespace

Expected<std::vector<std::string>> WaysPast(const WantedFilters &filters, const MimeTables &tables,
                                            const PPDFile &ppd) {
  const FilterChains chains(tables, ppd);
  const auto sentence = [&](const Kind &kind) -> std::optional<std::string> {
    const std::optional<Programs> programs = WayPast(kind, filters, chains);
    if (!programs) return std::nullopt;
    return Localized("%1 do not pass the filter %2: they go through %3",
                     {kind.name, filters.documents, Joined(*programs)});
  };
  const Kind pdf = {Localized("PDF documents"), {"application/pdf"}};
  if (!chains.For(pdf.types.front())) {
    return Failure{
        Localized("the print server cannot print PDF documents on it; install cups-filters there")};
  }
  if (const auto past = sentence(pdf)) return Failure{*past};
  std::vector<std::string> sentences;
  for (const Kind &kind : {Kind{Localized("pictures"), {"image/jpeg", "image/png"}},
                           Kind{Localized("text files"), {"text/plain"}},
                           Kind{Localized("PostScript documents"), {"application/postscript"}}}) {
    if (auto past = sentence(kind)) sentences.push_back(std::move(*past));
  }
  return sentences;
}
