#include "host/ppd/edit/OptionOrder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "host/base/Localized.h"
#include "host/ppd/edit/PPDText.h"

namespace {

// Readers keep order numbers with 24 bits.
constexpr double kGreatest = 1'000'000;

std::string_view OrderText(const PPDStatement &statement) {
  if (statement.keyword != "OrderDependency" && statement.keyword != "NonUIOrderDependency") {
    return {};
  }
  return statement.value.substr(0, statement.value.find_first_of(" \t"));
}

std::optional<double> Order(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end == text.data() || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::string Written(double number) {
  char digits[400];  // any number
  return {digits,
          std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr};
}

}  // namespace

Expected<std::string> OrderedAfter(std::string_view ppd, std::string_view lines) {
  double greatest = -std::numeric_limits<double>::infinity();
  for (const PPDStatement &statement : StatementsOf(ppd)) {
    greatest = std::max(greatest, Order(OrderText(statement)).value_or(greatest));
  }
  const std::vector<PPDStatement> statements = StatementsOf(lines);
  double least = std::numeric_limits<double>::infinity();
  for (const PPDStatement &statement : statements) {
    least = std::min(least, Order(OrderText(statement)).value_or(least));
  }
  if (least > greatest) return std::string(lines);
  if (greatest > kGreatest) {
    return Failure{
        Localized("its order number %1 leaves no room for greater ones", {Written(greatest)})};
  }
  const double raise = std::floor(greatest) + 1 - std::floor(least);
  std::string result;
  for (const PPDStatement &statement : statements) {
    const std::string_view text = OrderText(statement);
    const std::optional<double> order = Order(text);
    if (!order) {
      result += statement.all;
      continue;
    }
    const size_t at = static_cast<size_t>(text.data() - statement.all.data());
    result += statement.all.substr(0, at);
    result += Written(*order + raise);
    result += statement.all.substr(at + text.size());
  }
  return result;
}
