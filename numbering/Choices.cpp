#include "numbering/Choices.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <string>

namespace numbering {

namespace {

bool Equal(std::string_view one, std::string_view other) {
  return one.size() == other.size() && strncasecmp(one.data(), other.data(), one.size()) == 0;
}

template <typename Entry, size_t size>
const Entry *Find(const Entry (&table)[size], std::string_view keyword) {
  const Entry *entry = std::ranges::find_if(
      table, [keyword](const Entry &known) { return Equal(known.keyword, keyword); });
  return entry == std::end(table) ? nullptr : entry;
}

template <size_t size>
bool ChooseValue(double &value, const NamedValue (&table)[size], std::string_view keyword) {
  const NamedValue *entry = Find(table, keyword);
  if (entry != nullptr) value = entry->value;
  return entry != nullptr;
}

bool ChooseStart(int &start, std::string_view text) {
  int number = 0;
  const char *end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  // As a choice is written in a PPD file: 025 is none.
  if (error != std::errc() || stop != end || number < kSmallestStart || number > kLargestStart ||
      std::to_string(number) != text) {
    return false;
  }
  start = number;
  return true;
}

bool ChooseOn(bool &on, std::string_view keyword) {
  const bool is_on = Equal(keyword, "On");
  if (!is_on && !Equal(keyword, "Off")) return false;
  on = is_on;
  return true;
}

}  // namespace

bool Choose(Choices &choices, std::string_view option, std::string_view keyword) {
  const auto at = std::ranges::find_if(
      kOptions, [option](std::string_view known) { return Equal(known, option); });
  switch (at - std::begin(kOptions)) {
    case 0:
      return ChooseOn(choices.on, keyword);
    case 1:
      return ChooseValue(choices.size, kSizes, keyword);
    case 2:
      return ChooseValue(choices.density, kDensities, keyword);
    case 3: {
      const Ink *ink = Find(kInks, keyword);
      if (ink != nullptr) choices.ink = *ink;
      return ink != nullptr;
    }
    case 4:
      return ChooseStart(choices.start, keyword);
    case 5: {
      const NamedPlacement *placement = Find(kPlacements, keyword);
      if (placement != nullptr) choices.placement = placement->placement;
      return placement != nullptr;
    }
    default:
      return false;
  }
}

}  // namespace numbering
