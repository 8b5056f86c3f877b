#include "host/chain/DocumentWays.h"

#include <gmock/gmock.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TestPPD.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kTypes[] =
    "application/pdf\nimage/jpeg\nimage/png\ntext/plain\napplication/vnd.cups-pdf\n"
    "application/vnd.cups-raster\napplication/vnd.cups-postscript\napplication/postscript\n";

constexpr char kConversions[] =
    "application/postscript application/pdf 0 gstopdf\n"
    "application/pdf application/vnd.cups-pdf 66 pdftopdf\n"
    "application/vnd.cups-pdf application/vnd.cups-raster 99 gstoraster\n"
    "application/vnd.cups-pdf application/vnd.cups-postscript 100 pdftops\n"
    "application/postscript application/vnd.cups-postscript 66 pstops\n"
    "text/plain application/pdf 32 texttopdf\n"
    "image/* application/vnd.cups-pdf 65 imagetopdf\n"
    "image/* application/vnd.cups-raster 100 imagetoraster\n";

MimeTables Tables(const std::string &conversions = kConversions) {
  MimeTables tables;
  tables.AddTypes(kTypes);
  tables.AddConversions(conversions, [](const std::string &) { return true; });
  return tables;
}

Expected<std::vector<std::string>> Past(const std::string &lines,
                                        const MimeTables &tables = Tables()) {
  Expected<PPDFile> ppd = ParsePPD(TestPPD::Text(lines));
  if (!ppd) return ppd.failure();
  return WaysPast({"mark", "markpictures"}, tables, *ppd);
}

constexpr char kRaster[] = "*cupsFilter: \"application/vnd.cups-raster 0 driver\"\n";
constexpr char kBefore[] = "*cupsPreFilter: \"application/vnd.cups-pdf 0 mark\"\n";

}  // namespace

TEST(DocumentWays, AllPassWherePicturesHaveAFilterOfTheirOwn) {
  const auto past = Past(std::string(kRaster) + kBefore +
                         "*cupsFilter: \"image/jpeg -1 markpictures\"\n"
                         "*cupsFilter: \"image/png -1 markpictures\"\n");
  ASSERT_TRUE(past) << past.message();
  EXPECT_THAT(*past, IsEmpty());
}

TEST(DocumentWays, AllPassWherePixelsAreSentUnderAnotherName) {
  const auto past = Past("*cupsFilter2: \"application/vnd.cups-raster image/pwg-raster 0 -\"\n" +
                         std::string(kBefore) +
                         "*cupsFilter2: \"image/jpeg image/pwg-raster -1 markpictures\"\n"
                         "*cupsFilter2: \"image/png image/pwg-raster -1 markpictures\"\n");
  ASSERT_TRUE(past) << past.message();
  EXPECT_THAT(*past, IsEmpty());
}

TEST(DocumentWays, PicturesThatBecomePixelsAtOnceAreSaid) {
  const auto past = Past(std::string(kRaster) + kBefore);
  ASSERT_TRUE(past) << past.message();
  EXPECT_THAT(*past, ElementsAre("pictures do not pass the filter mark: they go through "
                                 "imagetoraster, driver"));
}

TEST(DocumentWays, PostScriptThatIsPassedOnIsSaid) {
  const auto past = Past(kBefore);
  ASSERT_TRUE(past) << past.message();
  EXPECT_THAT(*past, ElementsAre("PostScript documents do not pass the filter mark: they go "
                                 "through pstops"));
}

TEST(DocumentWays, OneFilterForAllStepsIsRefused) {
  EXPECT_EQ(MessageOf(Past(std::string(kRaster) + kBefore,
                           Tables("application/pdf application/vnd.cups-raster 0 universal\n"))),
            "PDF documents do not pass the filter mark: they go through universal, driver");
}

TEST(DocumentWays, AServerWithoutConvertersIsRefused) {
  EXPECT_EQ(MessageOf(Past(std::string(kRaster) + kBefore, Tables(""))),
            "the print server cannot print PDF documents on it; install cups-filters there");
}
