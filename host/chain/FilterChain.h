// The programs that a print server runs for a document.

#ifndef HOST_CHAIN_FILTERCHAIN_H
#define HOST_CHAIN_FILTERCHAIN_H

#include <optional>
#include <string>
#include <vector>

#include "host/chain/MimeTables.h"
#include "host/ppd/PPDFile.h"

// The ways of documents to the printer of one queue, as the server finds them: the cheapest.
class FilterChains {
 public:
  FilterChains(const MimeTables &tables, const PPDFile &ppd);

  // For a document of this type, in the order in which they run; empty where it is passed on as it
  // is. No value: the queue does not take such documents.
  std::optional<std::vector<std::string>> For(const std::string &type) const;
  // The same where the printer must be sent this type, for which the file has lines.
  std::optional<std::vector<std::string>> For(const std::string &type,
                                              const std::string &destination) const;
  bool HasDestination(const std::string &type) const;

 private:
  std::vector<std::string> ProgramsOn(const std::vector<FilterLine> &way) const;
  void Add(const std::string &source, const std::string &destination, const FilterLine &line);

  std::vector<FilterLine> conversions_;  // sorted by types
  std::vector<FilterLine> before_;
};

#endif
