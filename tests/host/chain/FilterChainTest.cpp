// The ways that a print server would choose, by tables and PPD files written here.

#include "host/chain/FilterChain.h"

#include <gmock/gmock.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/TestPPD.h"

namespace {

constexpr char kTypes[] =
    "# comment\napplication/pdf pdf string(0,%PDF) \\\n\t(a/b + c)\nimage/jpeg jpg\nimage/png png\n"
    "text/plain txt\napplication/vnd.cups-pdf\napplication/vnd.cups-raster\nimage/urf\n"
    "application/vnd.cups-postscript\napplication/postscript ps\n";

constexpr char kConversions[] =
    "# comment\n"
    "application/postscript application/pdf 0 gstopdf\n"
    "application/pdf application/vnd.cups-pdf 66 pdftopdf\n"
    "application/vnd.cups-pdf application/vnd.cups-raster 99 gstoraster\n"
    "application/vnd.cups-pdf application/vnd.cups-postscript 100 pdftops\n"
    "application/postscript application/vnd.cups-postscript 66 pstops\n"
    "application/vnd.cups-raster image/urf 100 rastertopwg\n"
    "text/plain application/pdf 32 texttopdf\n"
    "image/* application/vnd.cups-pdf 65 imagetopdf\n"
    "image/* application/vnd.cups-raster 100 imagetoraster\n"
    "application/pdf application/absent 0 stray\n"
    "application/pdf application/vnd.cups-raster 1 missing\n";

MimeTables Tables(const std::string &more = "") {
  MimeTables tables;
  tables.AddTypes(kTypes);
  tables.AddConversions(kConversions + more,
                        [](const std::string &program) { return program != "missing"; });
  return tables;
}

std::string Chain(const std::string &type, const std::string &lines,
                  const std::string &destination = "", const MimeTables &tables = Tables()) {
  Expected<PPDFile> ppd = ParsePPD(TestPPD::Text(lines));
  if (!ppd) return "unreadable: " + ppd.message();
  const auto programs = FilterChains(tables, *ppd).For(type, destination);
  if (!programs) return "none";
  std::string text;
  for (const std::string &program : *programs) text += (text.empty() ? "" : " ") + program;
  return text.empty() ? "-" : text;
}

constexpr char kRaster[] = "*cupsFilter: \"application/vnd.cups-raster 0 driver\"\n";
constexpr char kBefore[] = "*cupsPreFilter: \"application/vnd.cups-pdf 0 mark\"\n";

}  // namespace

TEST(FilterChain, IsTheCheapestOfTheWays) {
  EXPECT_EQ(Chain("application/pdf", kRaster), "pdftopdf gstoraster driver");
  EXPECT_EQ(Chain("application/postscript", kRaster), "gstopdf pdftopdf gstoraster driver");
  EXPECT_EQ(Chain("image/jpeg", kRaster), "imagetoraster driver");
  EXPECT_EQ(Chain("text/plain", kRaster), "texttopdf pdftopdf gstoraster driver");
  EXPECT_EQ(Chain("application/postscript", ""), "pstops");
  EXPECT_EQ(Chain("application/unknown", kRaster), "none");
}

TEST(FilterChain, HasPreFiltersBeforeWhatIsLeftOfIt) {
  EXPECT_EQ(Chain("application/pdf", std::string(kRaster) + kBefore),
            "pdftopdf mark gstoraster driver");
  EXPECT_EQ(Chain("image/jpeg", std::string(kRaster) + kBefore), "imagetoraster driver");
  const std::string passed_on = "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n";
  EXPECT_EQ(Chain("application/pdf", passed_on + kBefore), "pdftopdf");
}

TEST(FilterChain, OfTwoLinesWithTheSameTypesTheCheaperIsInForce) {
  const std::string line = "*cupsFilter2: \"application/vnd.cups-pdf application/pdf ";
  EXPECT_EQ(Chain("application/pdf", line + "0 -\"\n" + line + "-1 mark\"\n"), "pdftopdf mark");
  EXPECT_EQ(Chain("application/pdf", line + "0 -\"\n" + line + "1 mark\"\n"), "pdftopdf");
}

TEST(FilterChain, LeadsToADestinationThatIsAskedFor) {
  const std::string lines =
      "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n"
      "*cupsFilter2: \"image/jpeg image/jpeg 0 -\"\n*cupsFilter2: \"image/urf image/urf 100 -\"\n";
  EXPECT_EQ(Chain("application/pdf", lines), "pdftopdf");
  EXPECT_EQ(Chain("application/pdf", lines, "image/urf"), "pdftopdf gstoraster rastertopwg");
  EXPECT_EQ(Chain("image/jpeg", lines), "-");
  EXPECT_EQ(Chain("image/jpeg", lines, "image/urf"), "imagetoraster rastertopwg");
}

TEST(FilterChain, DoesNotTakeDocumentsThatAreTooLarge) {
  EXPECT_EQ(Chain("application/pdf",
                  "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 maxsize(10) -\"\n"),
            "none");
}

TEST(FilterChain, MayBeOneStep) {
  EXPECT_EQ(Chain("application/pdf", std::string(kRaster) + kBefore, "",
                  Tables("application/pdf application/vnd.cups-raster 10 universal\n")),
            "universal driver");
}
