#include "host/pages/Conversions.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> Filters(std::string_view table, const std::string &from) {
  std::vector<std::string> filters;
  for (const Conversion &step : WayBetween(ParseConversions(table), from, "pdf")) {
    filters.push_back(step.filter);
  }
  return filters;
}

}  // namespace

TEST(Conversions, GoTheCheapestWay) {
  EXPECT_THAT(Filters("a pdf 100 direct\na b 10 one\nb pdf 20 two\n", "a"),
              ElementsAre("one", "two"));
  EXPECT_THAT(Filters("a pdf 25 direct\na b 10 one\nb pdf 20 two\n", "a"), ElementsAre("direct"));
}

TEST(Conversions, PassOverWhatIsNone) {
  EXPECT_THAT(Filters("# a pdf 0 comment\na pdf\na pdf 0 -\n\nb pdf 0 other\n", "a"), IsEmpty());
}

TEST(Conversions, EndInCircles) {
  EXPECT_THAT(Filters("a b 0 x\nb a 0 y\nb c 0 z\nc b 0 w\n", "a"), IsEmpty());
}
