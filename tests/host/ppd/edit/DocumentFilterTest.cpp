// Filters for documents, on queues of every kind.

#include "host/ppd/edit/DocumentFilter.h"

#include <gmock/gmock.h>

#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/Enabling.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/MarkOptions.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr char kBefore[] = "*cupsPreFilter: \"application/vnd.cups-pdf 0 markfilter\"\n";

// Options without code, for a filter; without one for pictures, whose lines are many.
PrinterOptions DocumentOptions(const std::string &pictures = "") {
  PrinterOptions options = MarkOptions();
  options.document_filter = "markfilter";
  options.picture_filter = pictures;
  constexpr char kLines[] =
      "*MarkSupport: \"yes\"\n*OpenUI *Mark/Mark: PickOne\n*OrderDependency: 70 AnySetup *Mark\n"
      "*DefaultMark: Off\n*Mark Off/Off: \"\"\n*Mark On/On: \"\"\n*CloseUI: *Mark\n";
  options.document = {.color = kLines, .monochrome = kLines};
  return options;
}

std::string LinesFor(const std::string &ppd, const PrinterOptions &options = DocumentOptions()) {
  const Expected<PPDFile> file = ParsePPD(PrinterText(ppd));
  if (!file) return "unreadable: " + file.message();
  const Expected<std::string> lines = LinesForDocumentFilter(*file, options);
  return lines ? *lines : "refused: " + lines.message();
}

std::string Line(const std::string &value) { return "*cupsFilter: \"" + value + "\"\n"; }
std::string Line2(const std::string &value) { return "*cupsFilter2: \"" + value + "\"\n"; }

// As drivers, the print system itself and administrators write them.
struct Printer {
  const char *name;
  std::string lines;
};

std::vector<Printer> PrintersForFilters() {
  return {
      {"raster driver", Line("application/vnd.cups-raster 100 rastertogutenprint.5.3") +
                            Line("application/vnd.cups-command 33 commandtocanon")},
      {"PCL", Line("application/vnd.cups-raster 50 rastertohp")},
      {"raster driver, one newer line",
       Line2("application/vnd.cups-raster application/vnd.hp-PCL 0 rastertohp") +
           Line("application/vnd.cups-raster 50 other")},
      {"driverless URF", Line2("image/urf image/urf 100 -")},
      {"driverless PDF", Line2("application/vnd.cups-pdf application/pdf 10 -") +
                             Line2("image/jpeg image/jpeg 0 -") +
                             Line2("image/urf image/urf 100 -")},
      {"PDF printer", Line("application/vnd.cups-pdf 0 -") +
                          "*JCLToPDFInterpreter: \"@PJL ENTER LANGUAGE=PDF<0A>\"\n"},
      {"foomatic", Line("application/vnd.cups-postscript 100 foomatic-rip") +
                       Line("application/vnd.cups-pdf 0 foomatic-rip") +
                       "*FoomaticRIPCommandLine: \"gs -sDEVICE=pxlmono%Z -\"\n"},
  };
}

}  // namespace

TEST(DocumentFilter, RunsBeforeWhatMakesPixels) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-raster 50 rastertohp")), kBefore);
  EXPECT_EQ(LinesFor(Line2("image/urf image/urf 100 -")), kBefore);
  EXPECT_EQ(LinesFor(Line2("image/pwg-raster image/pwg-raster 300 -")), kBefore);
}

TEST(DocumentFilter, RunsBeforeFoomatic) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-postscript 100 foomatic-rip") +
                     Line("application/vnd.cups-pdf 0 foomatic-rip")),
            kBefore);
}

TEST(DocumentFilter, TakesThePlaceOfPassingPdfOn) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-pdf 0 -")),
            Line("application/vnd.cups-pdf -1 markfilter"));
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-pdf application/pdf 7 -")),
            Line("application/vnd.cups-pdf application/pdf 6 markfilter"));
  EXPECT_EQ(LinesFor(Line2("application/vnd.cups-pdf application/pdf -3 -")),
            Line2("application/vnd.cups-pdf application/pdf -4 markfilter"));
  EXPECT_EQ(LinesFor(Line2("application/vnd.cups-pdf application/pdf 0 maxsize(4096) -")),
            Line2("application/vnd.cups-pdf application/pdf -1 maxsize(4096) markfilter"));
}

TEST(DocumentFilter, IsInBothPlacesWherePixelsAreTheSecondWay) {
  EXPECT_EQ(LinesFor(Line2("application/vnd.cups-pdf application/pdf 10 -") +
                     Line2("image/urf image/urf 100 -")),
            Line2("application/vnd.cups-pdf application/pdf 9 markfilter") + kBefore);
}

TEST(DocumentFilter, TheKeywordIsTheOneThatIsInForce) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-raster 0 rastertohp") +
                     Line2("application/vnd.cups-pdf application/pdf 0 -")),
            Line2("application/vnd.cups-pdf application/pdf -1 markfilter"));
}

TEST(DocumentFilter, PostScriptGoesToItAsPdfToo) {
  const std::string ours = "application/vnd.cups-pdf application/vnd.cups-postscript -1 pdftops";
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-postscript 0 -")), kBefore + Line(ours));
  // What the print server has for files without a line of their own.
  EXPECT_EQ(LinesFor(""),
            Line2("application/vnd.cups-postscript application/vnd.cups-postscript 0 -") + kBefore +
                Line2(ours));
}

TEST(DocumentFilter, PicturesTakeTheWayOfDocumentsToPixels) {
  const std::string lines =
      LinesFor(Line("application/vnd.cups-raster 50 rastertohp"), DocumentOptions("markpictures"));
  EXPECT_THAT(lines, HasSubstr(kBefore));
  EXPECT_THAT(lines, HasSubstr(Line("image/jpeg application/vnd.cups-raster -1 markpictures")));
  EXPECT_THAT(lines, HasSubstr(Line("image/x-sun-raster application/vnd.cups-raster -1 "
                                    "markpictures")));
}

TEST(DocumentFilter, PicturesAreSentAsOtherPixelsAre) {
  const PrinterOptions options = DocumentOptions("markpictures");
  EXPECT_THAT(LinesFor(Line2("application/vnd.cups-raster image/pwg-raster 0 -"), options),
              HasSubstr(Line2("image/jpeg image/pwg-raster -1 markpictures")));
  // A driver takes them from the filter.
  EXPECT_THAT(
      LinesFor(Line2("application/vnd.cups-raster application/vnd.hp-PCL 0 rastertohp"), options),
      HasSubstr(Line2("image/jpeg application/vnd.cups-raster -1 markpictures")));
}

TEST(DocumentFilter, PicturesArePdfWherePdfIsTheFirstWay) {
  const std::string lines =
      LinesFor(Line2("application/vnd.cups-pdf application/pdf -5 -") +
                   Line2("image/jpeg image/jpeg 0 -") + Line2("image/urf image/urf 100 -"),
               DocumentOptions("markpictures"));
  EXPECT_THAT(lines, HasSubstr(Line2("image/jpeg application/pdf -7 markpictures")));
  EXPECT_THAT(lines, HasSubstr(Line2("image/jpeg image/urf -6 markpictures")));
}

TEST(DocumentFilter, PicturesThatAPdfPrinterDoesNotTakeNeedNoLine) {
  const std::string lines = LinesFor(
      Line2("application/vnd.cups-pdf application/pdf 0 -") + Line2("image/jpeg image/jpeg 0 -"),
      DocumentOptions("markpictures"));
  EXPECT_THAT(lines, HasSubstr("image/jpeg application/pdf -2 markpictures"));
  EXPECT_THAT(lines, Not(HasSubstr("image/png")));
}

TEST(DocumentFilter, IsNotForQueuesOfAnotherServer) {
  EXPECT_THAT(LinesFor(Line2("application/pdf application/pdf 0 -")),
              StartsWith("refused: another print server prepares its documents; "));
}

TEST(DocumentFilter, DoesNotDriveAnotherFilterAway) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-raster 0 rastertohp") +
                     "*cupsPreFilter: \"application/vnd.cups-pdf 0 account\"\n"),
            "refused: its PPD file has another filter in the place of markfilter: account");
}

TEST(DocumentFilter, HasNoPlaceAmongFiltersForCommands) {
  EXPECT_EQ(LinesFor(Line("application/vnd.cups-command 0 commandtops")),
            "refused: there is no place for the filter markfilter");
}

TEST(EnablingWithFilter, GivesEveryKindOfPrinterTheOptionsAndTheFileBack) {
  for (const Printer &printer : PrintersForFilters()) {
    SCOPED_TRACE(printer.name);
    for (const char *end : {"", "*% last line"}) {
      const std::string text = PrinterText(printer.lines + end);
      const Expected<EnabledPPD> enabled = EnableOptions(text, {DocumentOptions("markpictures")});
      ASSERT_TRUE(enabled) << enabled.message();
      EXPECT_EQ(enabled->filter, "markfilter");
      EXPECT_EQ(enabled->picture_filter, "markpictures");
      EXPECT_THAT(enabled->text, StartsWith(text));
      const Expected<PPDFile> ppd = ParsePPD(enabled->text);
      ASSERT_TRUE(ppd) << ppd.message();
      EXPECT_TRUE(ppd->Option("Mark"));
      const Expected<EnabledPPD> twice =
          EnableOptions(enabled->text, {DocumentOptions("markpictures")});
      ASSERT_TRUE(twice) << twice.message();
      EXPECT_EQ(twice->text, enabled->text);
      const Expected<DisabledPPD> disabled = DisableOptions(enabled->text);
      ASSERT_TRUE(disabled) << disabled.message();
      EXPECT_EQ(disabled->text, text);
    }
  }
}

TEST(EnablingWithFilter, LeavesPostScriptToThePrinterUnlessItIsAskedFor) {
  const Expected<EnabledPPD> fitting = EnableOptions(PrinterText(), {DocumentOptions()});
  ASSERT_TRUE(fitting) << fitting.message();
  EXPECT_EQ(fitting->filter, "");
  EXPECT_THAT(fitting->text, HasSubstr("(mark on) pop"));
  const Expected<EnabledPPD> asked =
      EnableOptions(PrinterText(), {DocumentOptions()}, DrawingMethod::kFilter);
  ASSERT_TRUE(asked) << asked.message();
  EXPECT_EQ(asked->filter, "markfilter");
  EXPECT_THAT(asked->text, Not(HasSubstr("(mark on) pop")));
  EXPECT_THAT(asked->text, HasSubstr(kBefore));
}

TEST(EnablingWithFilter, StaysWithWhatWasAskedForBefore) {
  const Expected<EnabledPPD> asked =
      EnableOptions(PrinterText(), {DocumentOptions()}, DrawingMethod::kFilter);
  ASSERT_TRUE(asked) << asked.message();
  EXPECT_EQ(EnableOptions(asked->text, {DocumentOptions()})->text, asked->text);
  EXPECT_EQ(EnableOptions(asked->text, {DocumentOptions()}, DrawingMethod::kPrinter)->text,
            EnableOptions(PrinterText(), {DocumentOptions()})->text);
}

TEST(EnablingWithFilter, KeepsTheDefaultsThatWereChosenAndNoOthers) {
  PrinterOptions options = DocumentOptions();
  options.document.color = options.printer.color;
  const std::string own = "*DefaultMarkSize: Small", printers = "*DefaultMarkSize: Large",
                    chosen = "*DefaultMarkSize: 100";
  options.printer.color.replace(options.printer.color.find(own), own.size(), printers);
  const auto enabled = [&options](const std::string &ppd, DrawingMethod method) {
    const Expected<EnabledPPD> result = EnableOptions(ppd, {options}, method);
    return result ? result->text : result.message();
  };
  std::string ppd = enabled(PrinterText(), DrawingMethod::kPrinter);
  EXPECT_THAT(ppd, HasSubstr(printers));
  EXPECT_EQ(enabled(ppd, DrawingMethod::kFilter), enabled(PrinterText(), DrawingMethod::kFilter));
  EXPECT_EQ(enabled(enabled(ppd, DrawingMethod::kFilter), DrawingMethod::kPrinter), ppd);
  ppd.replace(ppd.find(printers), printers.size(), chosen);
  EXPECT_THAT(enabled(ppd, DrawingMethod::kFilter), HasSubstr(chosen));
}

TEST(EnablingWithFilter, RefusesThePrinterThatCannot) {
  const std::string text = PrinterText(Line("application/vnd.cups-raster 50 rastertohp"));
  EXPECT_THAT(MessageOf(EnableOptions(text, {DocumentOptions()}, DrawingMethod::kPrinter)),
              StartsWith("no PostScript printer: "));
  EXPECT_THAT(MessageOf(EnableOptions(text, {MarkOptions()})),
              StartsWith("no PostScript printer: "));
}

TEST(EnablingWithFilter, RefusesBundlesWithoutFilterAndMoreThanOneWith) {
  EXPECT_EQ(MessageOf(EnableOptions(PrinterText(), {MarkOptions()}, DrawingMethod::kFilter)),
            "the bundle Marks brings no filter (PDEDocumentFilter)");
  PrinterOptions other = DocumentOptions();
  other.bundle = "test.other";
  other.name = "Other";
  EXPECT_EQ(
      MessageOf(EnableOptions(PrinterText(), {DocumentOptions(), other}, DrawingMethod::kFilter)),
      "only one bundle can bring a filter: Marks or Other");
}
