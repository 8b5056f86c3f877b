#include "host/ppd/CustomChoice.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "host/ppd/CupsOptions.h"

namespace {

constexpr std::string_view kPrefix = "Custom.";

struct Unit {
  std::string_view name;
  double points;
};
constexpr Unit kUnits[] = {{"", 1},           {"pt", 1},         {"in", 72},        {"ft", 12 * 72},
                           {"mm", 72 / 25.4}, {"cm", 72 / 2.54}, {"m", 72 / 0.0254}};

// Limits are given in points and sizes mostly in millimeters.
constexpr double kTolerance = 0.5;

// Takes a number from the front of the text.
std::optional<double> TakeNumber(std::string_view &text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
  text.remove_prefix(static_cast<size_t>(end - text.data()));
  return number;
}

std::optional<double> PointsOf(std::string_view unit) {
  const auto *found = std::ranges::find(kUnits, unit, &Unit::name);
  if (found == std::end(kUnits)) return std::nullopt;
  return found->points;
}

bool IsWithin(double value, double least, double most) {
  return value >= least - kTolerance && value <= most + kTolerance;
}

bool IsPageSize(const ppd_file_t &ppd, std::string_view value) {
  const std::optional<double> width = TakeNumber(value);
  if (!width || !value.starts_with('x')) return false;
  value.remove_prefix(1);
  const std::optional<double> height = TakeNumber(value);
  const std::optional<double> unit = PointsOf(value);
  if (!height || !unit || *width <= 0 || *height <= 0) return false;
  const auto fits = [&](double length, int side) {
    // A file without limits leaves them to the printer.
    return ppd.custom_max[side] <= 0 ||
           IsWithin(length * *unit, ppd.custom_min[side], ppd.custom_max[side]);
  };
  return fits(*width, 0) && fits(*height, 1);
}

bool IsWholeNumber(std::string_view value, int least, int most) {
  int number = 0;
  const char *const last = value.data() + value.size();
  const auto [end, error] = std::from_chars(value.data(), last, number);
  return error == std::errc() && end == last && number >= least && number <= most;
}

bool IsReal(std::string_view value, double least, double most) {
  const std::optional<double> number = TakeNumber(value);
  return number && value.empty() && *number >= least && *number <= most;
}

bool IsLength(std::string_view value, double least, double most) {
  const std::optional<double> number = TakeNumber(value);
  const std::optional<double> unit = PointsOf(value);
  return number && unit && IsWithin(*number * *unit, least, most);
}

bool IsString(std::string_view value, int shortest, int longest) {
  const auto length = static_cast<int>(value.size());
  return length >= shortest && (longest <= 0 || length <= longest);
}

bool IsPasscode(std::string_view value, int shortest, int longest) {
  return IsString(value, shortest, longest) &&
         value.find_first_not_of("0123456789") == std::string_view::npos;
}

// Whether custom values of the option are sent outside of the PostScript. Files may give them
// another place than the option's other choices.
bool IsOutsideOfPostScript(const ppd_file_t &ppd, const ppd_option_t &option) {
  if (option.section == PPD_ORDER_JCL || option.section == PPD_ORDER_EXIT) return true;
  auto *file = const_cast<ppd_file_t *>(&ppd);  // nothing in it is changed
  const std::string keyword = std::string("Custom") + option.keyword;
  for (const ppd_attr_t *order = ppdFindAttr(file, "NonUIOrderDependency", nullptr);
       order != nullptr; order = ppdFindNextAttr(file, "NonUIOrderDependency", nullptr)) {
    const std::string_view place = order->value == nullptr ? "" : order->value;
    const auto names = [place](std::string_view name) { return place.find(name) != place.npos; };
    if (names(keyword) && (names("JCLSetup") || names("ExitServer"))) return true;
  }
  return false;
}

// libcups sends a text as a string of PostScript, in which it escapes everything but the backslash;
// outside of the PostScript it sends the text as it is, in a language that it does not know.
bool IsSentAsText(std::string_view value, bool outside) {
  if (!outside) return value.find('\\') == std::string_view::npos;
  constexpr std::string_view kMarks = "\\\"()<>[]{}/%";
  return std::ranges::none_of(value, [&](unsigned char character) {
    return character < ' ' || character == 0x7f ||
           kMarks.find(static_cast<char>(character)) != std::string_view::npos;
  });
}

bool FitsParameter(const ppd_cparam_t &parameter, std::string_view value, bool outside) {
  const ppd_cplimit_t &least = parameter.minimum;
  const ppd_cplimit_t &most = parameter.maximum;
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return IsWholeNumber(value, least.custom_int, most.custom_int);
    case PPD_CUSTOM_REAL:
      return IsReal(value, least.custom_real, most.custom_real);
    case PPD_CUSTOM_CURVE:
      return IsReal(value, least.custom_curve, most.custom_curve);
    case PPD_CUSTOM_INVCURVE:
      return IsReal(value, least.custom_invcurve, most.custom_invcurve);
    case PPD_CUSTOM_POINTS:
      return IsLength(value, least.custom_points, most.custom_points);
    case PPD_CUSTOM_STRING:
      return IsString(value, least.custom_string, most.custom_string) &&
             IsSentAsText(value, outside);
    case PPD_CUSTOM_PASSWORD:
      return IsString(value, least.custom_password, most.custom_password) &&
             IsSentAsText(value, outside);
    case PPD_CUSTOM_PASSCODE:
      return IsPasscode(value, least.custom_passcode, most.custom_passcode);
    case PPD_CUSTOM_UNKNOWN:
      break;
  }
  return true;
}

// Values by the names of their parameters.
bool AreParameters(ppd_coption_t *custom, std::string_view choice, bool outside) {
  if (custom == nullptr || !choice.ends_with('}')) return false;
  const CupsOptions values(std::string{choice});
  if (values.count() == 0) return false;
  return std::ranges::all_of(values.all(), [&](const cups_option_t &value) {
    const ppd_cparam_t *parameter = ppdFindCustomParam(custom, value.name);
    return parameter != nullptr && FitsParameter(*parameter, value.value, outside);
  });
}

}  // namespace

bool IsCustomChoice(std::string_view choice) {
  return choice.starts_with(kPrefix) || choice.starts_with('{');
}

bool MayBeTakenForCustomChoice(std::string_view choice) {
  return choice.starts_with('{') ||
         (choice.size() >= kPrefix.size() &&
          strncasecmp(choice.data(), kPrefix.data(), kPrefix.size()) == 0);
}

bool AllowsCustomChoice(const ppd_file_t &ppd, const ppd_option_t &option,
                        std::string_view choice) {
  if (!IsCustomChoice(choice)) return false;
  // Neither call changes anything, whatever its declaration says.
  if (ppdFindChoice(const_cast<ppd_option_t *>(&option), kCustomChoice) == nullptr) return false;
  ppd_coption_t *custom = ppdFindCustomOption(const_cast<ppd_file_t *>(&ppd), option.keyword);
  const bool outside = IsOutsideOfPostScript(ppd, option);
  if (choice.starts_with('{')) return AreParameters(custom, choice, outside);

  const std::string_view value = choice.substr(kPrefix.size());
  if (value.empty()) return false;
  const std::string_view keyword = option.keyword;
  if (keyword == "PageSize" || keyword == "PageRegion") return IsPageSize(ppd, value);
  const ppd_cparam_t *parameter = custom == nullptr ? nullptr : ppdFirstCustomParam(custom);
  return parameter == nullptr || FitsParameter(*parameter, value, outside);
}
