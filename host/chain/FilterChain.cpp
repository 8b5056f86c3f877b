#include "host/chain/FilterChain.h"

#include <algorithm>
#include <tuple>

#include "host/chain/CheapestWay.h"

namespace {

constexpr char kPrinter[] = "printer/";  // no type of the tables is called like this

}  // namespace

FilterChains::FilterChains(const MimeTables &tables, const PPDFile &ppd)
    : conversions_(tables.conversions()) {
  for (const FilterLine &line : FilterLinesOf(ppd)) {
    const std::string destination = kPrinter + line.destination;
    for (const std::string &source : TypesLike(line.source, tables.types())) {
      Add(source, destination, line);
    }
    if (!line.destination.empty()) {
      Add(destination, kPrinter, {"", "", 0, kPassedOn, std::nullopt});
    }
  }
  for (const FilterLine &line : PreFilterLinesOf(ppd)) {
    for (const std::string &source : TypesLike(line.source, tables.types())) {
      before_.push_back(line);
      before_.back().source = source;
    }
  }
  std::ranges::stable_sort(before_, {}, &FilterLine::cost);
  std::ranges::sort(conversions_, {},
                    [](const FilterLine &line) { return std::tie(line.source, line.destination); });
}

// Of two with the same types, that with the lower cost stays.
void FilterChains::Add(const std::string &source, const std::string &destination,
                       const FilterLine &line) {
  const auto same = std::ranges::find_if(conversions_, [&](const FilterLine &other) {
    return other.source == source && other.destination == destination;
  });
  if (same == conversions_.end()) {
    conversions_.push_back({source, destination, line.cost, line.program, line.most});
  } else if (line.cost < same->cost) {
    *same = {source, destination, line.cost, line.program, line.most};
  }
}

std::vector<std::string> FilterChains::ProgramsOn(const std::vector<FilterLine> &way) const {
  std::vector<std::string> programs;
  for (const FilterLine &line : way) {
    if (line.program == kPassedOn) continue;
    const auto before = std::ranges::find(before_, line.source, &FilterLine::source);
    if (before != before_.end()) programs.push_back(before->program);
    programs.push_back(line.program);
  }
  return programs;
}

std::optional<std::vector<std::string>> FilterChains::For(const std::string &type) const {
  return For(type, "");
}

std::optional<std::vector<std::string>> FilterChains::For(const std::string &type,
                                                          const std::string &destination) const {
  const auto way = CheapestWay(conversions_, type, kPrinter + destination);
  if (!way) return std::nullopt;
  return ProgramsOn(*way);
}

bool FilterChains::HasDestination(const std::string &type) const {
  return std::ranges::any_of(conversions_, [&type](const FilterLine &line) {
    return line.destination == kPrinter + type;
  });
}
