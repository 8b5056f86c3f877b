// The PPD file of the printer that is a PDF file, as libcups reads it.

#include "host/ppd/PdfFilePrinter.h"

#include <gmock/gmock.h>

#include "host/base/Localized.h"
#include "host/ppd/PPDSource.h"
#include "tests/support/EnvironmentVariable.h"

using testing::Contains;

namespace {

PPDFile Printer() { return std::move(*ParsePPD(PdfFilePrinterPPD())); }

}  // namespace

TEST(PdfFilePrinter, HasPaperWithoutMargins) {
  const PPDFile ppd = Printer();
  EXPECT_EQ(ppd.Name(), "PDF file");
  const ppd_size_t *letter = ppdPageSize(ppd.get(), "Letter");
  ASSERT_NE(letter, nullptr);
  EXPECT_EQ(letter->width, 612);
  EXPECT_EQ(letter->length, 792);
  EXPECT_EQ(letter->left, 0);
  EXPECT_EQ(letter->top, 792);
  EXPECT_TRUE(ppd.get()->variable_sizes);
  EXPECT_TRUE(ppd.get()->color_device);
}

TEST(PdfFilePrinter, TakesThePaperOfTheCountry) {
  const EnvironmentVariable none("LC_ALL", "C.UTF-8");
  EXPECT_EQ(Printer().DefaultChoice("PageSize"), "A4");
}

TEST(PdfFilePrinter, SpeaksTheLanguageOfTheUser) {
  const Translation translation = {{"Paper Size", "Größe des Papiers"}};
  const TextsOf texts(&translation);
  const PPDFile ppd = Printer();
  ASSERT_FALSE(ppd.Options().empty());
  EXPECT_EQ(ppd.Options().front().text, "Größe des Papiers");
}
