#include "host/job/PaperSize.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

constexpr std::string_view kCustom = "Custom.";
constexpr std::string_view kSigns[] = {"x", "X", "*", "\u00d7"};
constexpr std::string_view kUnits[] = {"mm", "cm", "in", "pt"};
constexpr double kPointsOfMillimeter = 72 / 25.4;

struct TypedSize {
  std::string width, height, unit;
};

std::string_view Cut(std::string_view &text, size_t length) {
  const std::string_view part = text.substr(0, length);
  text.remove_prefix(length);
  return part;
}

// A number from the front of the text, with a decimal point; empty: there is none.
std::string TakeNumber(std::string_view &text) {
  text = Trimmed(text);
  const size_t end = std::min(text.find_first_not_of("0123456789.,"), text.size());
  std::string number(Cut(text, end));
  std::ranges::replace(number, ',', '.');
  double value = 0;
  const auto [rest, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  const bool is_number = error == std::errc() && rest == number.data() + number.size();
  text = Trimmed(text);
  return is_number && value > 0 ? number : "";
}

bool TakeSign(std::string_view &text) {
  for (const std::string_view sign : kSigns) {
    if (!text.starts_with(sign)) continue;
    Cut(text, sign.size());
    return true;
  }
  return false;
}

std::optional<TypedSize> SizeIn(std::string_view text) {
  TypedSize size;
  size.width = TakeNumber(text);
  if (!TakeSign(text)) return std::nullopt;
  size.height = TakeNumber(text);
  size.unit = text;
  if (size.width.empty() || size.height.empty()) return std::nullopt;
  return size;
}

// With one digit behind the point, and without it where that is 0.
std::string Rounded(double number) {
  const long tenths = std::lround(number * 10);
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
  return text;
}

std::string AsTyped(const TypedSize &size) {
  return size.width + " x " + size.height + " " + size.unit;
}

}  // namespace

Expected<std::string> ParsePaperSize(std::string_view text) {
  std::optional<TypedSize> size = SizeIn(text);
  if (size && size->unit.empty()) size->unit = "mm";
  if (!size || std::ranges::find(kUnits, size->unit) == std::end(kUnits)) {
    return Failure{
        Localized("%1 is no size of paper; write for example 210 x 297 mm", {Quoted(text)})};
  }
  return std::string(kCustom) + size->width + "x" + size->height + size->unit;
}

std::string TypedPaperSize(std::string_view choice) {
  if (!choice.starts_with(kCustom)) return "";
  std::optional<TypedSize> size = SizeIn(choice.substr(kCustom.size()));
  if (!size) return "";
  if (size->unit.empty()) size->unit = "pt";
  return AsTyped(*size);
}

std::string TypedPaperSize(PaperSize size) {
  return AsTyped({Rounded(size.width / kPointsOfMillimeter),
                  Rounded(size.height / kPointsOfMillimeter), "mm"});
}
