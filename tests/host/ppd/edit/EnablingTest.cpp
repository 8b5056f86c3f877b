#include "host/ppd/edit/Enabling.h"

#include <gmock/gmock.h>

#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/PPDText.h"
#include "tests/support/MarkOptions.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

std::string Enabled(std::string_view ppd,
                    const std::vector<PrinterOptions> &options = {MarkOptions()}) {
  Expected<EnabledPPD> enabled = EnableOptions(ppd, options);
  if (enabled) return enabled->text;
  ADD_FAILURE() << enabled.message();
  return "";
}

DisabledPPD Disabled(std::string_view ppd) {
  Expected<DisabledPPD> disabled = DisableOptions(ppd);
  if (disabled) return *disabled;
  ADD_FAILURE() << disabled.message();
  return {};
}

std::string Refusal(std::string_view ppd, const PrinterOptions &options = MarkOptions()) {
  Expected<EnabledPPD> enabled = EnableOptions(ppd, {options});
  return enabled ? "" : enabled.message();
}

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
}

// Options of another bundle.
PrinterOptions OtherOptions() {
  PrinterOptions options = {.bundle = "test.other",
                            .name = "Other",
                            .support_keyword = "",
                            .support_value = "",
                            .printer = {.color = "*OpenUI *Other/Other: Boolean\n"
                                                 "*OrderDependency: 10 AnySetup *Other\n"
                                                 "*DefaultOther: False\n*Other True/On: \"\"\n"
                                                 "*Other False/Off: \"\"\n*CloseUI: *Other\n",
                                        .monochrome = ""},
                            .document_filter = "",
                            .document = {}};
  return options;
}

}  // namespace

TEST(Enabling, AddsTheOptionsOfADocumentFilterToAnyPrinter) {
  PrinterOptions options = MarkOptions();
  options.document = options.printer;
  options.printer = {};
  const std::string raster = PrinterText("*cupsFilter: \"application/vnd.cups-raster 0 -\"\n");
  EXPECT_FALSE(EnableOptions(raster, {options}));
  Expected<std::string> added = AddDocumentOptions(raster, options);
  ASSERT_TRUE(added) << added.message();
  EXPECT_THAT(*added, StartsWith(raster));
  EXPECT_TRUE(ParsePPD(*added)->Allows("Mark", "On"));
  // In the place of a block that is there.
  EXPECT_EQ(*AddDocumentOptions(*added, options), *added);
}

TEST(Enabling, DoesNotAddTheOptionsOfADocumentFilterToAPrinterThatHasThem) {
  PrinterOptions options = MarkOptions();
  options.document = options.printer;
  Expected<std::string> added = AddDocumentOptions(PrinterText("*MarkSupport: \"no\"\n"), options);
  ASSERT_FALSE(added);
  EXPECT_THAT(added.message(), HasSubstr("MarkSupport"));
}

TEST(Enabling, AddsTheOptionsAsLibcupsReadsThem) {
  Expected<PPDFile> ppd = ParsePPD(Enabled(PrinterText()));
  ASSERT_TRUE(ppd) << ppd.message();
  const std::optional<PPDOption> size = ppd->Option("MarkSize");
  ASSERT_TRUE(size);
  EXPECT_EQ("Water Marks", size->group);
  EXPECT_EQ(3u, size->choices.size());
  EXPECT_EQ("yes", ppd->Attribute("MarkSupport"));
}

TEST(Enabling, TheFileBeforeTheBlockStaysAsItWas) {
  for (const std::string &text :
       {PrinterText(), WithLineEnds(PrinterText(), "\r\n"), WithLineEnds(PrinterText(), "\r"),
        PrinterText("*% last line"), WithLineEnds(PrinterText("*% last line"), "\r\n"),
        PrinterText("*% \xE4\xF6\xFC in Latin 1\r\n\n\n")}) {
    EXPECT_THAT(Enabled(text), StartsWith(text)) << text.substr(text.size() - 30);
  }
}

TEST(Enabling, DisablingGivesTheFileBackByteForByte) {
  for (const std::string &text :
       {PrinterText(), WithLineEnds(PrinterText(), "\r\n"), WithLineEnds(PrinterText(), "\r"),
        PrinterText("*% last line"), WithLineEnds(PrinterText("*% last line"), "\r\n"),
        WithLineEnds(PrinterText("*% last line"), "\r"), PrinterText("\n\r\n\r*% mixed\r\n")}) {
    const DisabledPPD disabled = Disabled(Enabled(text, {MarkOptions(), OtherOptions()}));
    EXPECT_EQ(text, disabled.text);
    EXPECT_EQ((std::vector<std::string>{"test.marks", "test.other"}), disabled.bundles);
  }
}

TEST(Enabling, TwiceIsTheSameAsOnce) {
  for (const std::string &text : {PrinterText(), PrinterText("*OrderDependency: 99 AnySetup *X\n"),
                                  WithLineEnds(PrinterText("*% last line"), "\r\n"),
                                  PrinterText("*cupsLanguages: \"de th\"\n")}) {
    const std::vector<PrinterOptions> options = {MarkOptions(), OtherOptions()};
    const std::string once = Enabled(text, options);
    EXPECT_EQ(once, Enabled(once, options));
    EXPECT_EQ(once.size(), Enabled(once, {MarkOptions()}).size());
  }
}

TEST(Enabling, ReplacesTheBlockOfAnEarlierVersion) {
  PrinterOptions earlier = MarkOptions();
  earlier.printer.color = OtherOptions().printer.color;
  earlier.support_keyword = "";
  EXPECT_EQ(Enabled(PrinterText()), Enabled(Enabled(PrinterText(), {earlier})));
}

TEST(Enabling, KeepsTheDefaultsOfAnEarlierBlock) {
  const std::string changed =
      Replaced(Enabled(PrinterText()), "*DefaultMarkSize: Small", "*DefaultMarkSize: Large");
  EXPECT_EQ(changed, Enabled(changed));
}

TEST(Enabling, KeepsTheBlocksOfOtherBundles) {
  const std::string both = Enabled(Enabled(PrinterText(), {OtherOptions()}));
  Expected<PPDFile> ppd = ParsePPD(both);
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->Option("Other"));
  EXPECT_TRUE(ppd->Option("Mark"));
}

TEST(Enabling, OrdersTheOptionsAfterAllOthers) {
  const std::string text = Enabled(PrinterText("*OrderDependency: 100 AnySetup *PageSize\n"),
                                   {OtherOptions(), MarkOptions()});
  EXPECT_THAT(text, HasSubstr("*OrderDependency: 101 AnySetup *Other\n"));
  EXPECT_THAT(text, HasSubstr("*OrderDependency: 102 AnySetup *MarkSize\n"));
  EXPECT_THAT(text, HasSubstr("*OrderDependency: 111 AnySetup *Mark\n"));
}

TEST(Enabling, TranslatesForTheLanguagesOfTheFile) {
  const std::string text = Enabled(PrinterText("*cupsLanguages: \"en de_AT\"\n"));
  EXPECT_THAT(text, HasSubstr("*de_AT.Translation Mark/Zeichen: \"\"\n"));
  EXPECT_THAT(text, Not(HasSubstr("*fr.")));
}

TEST(Enabling, TranslatesForAllLanguagesWhereTheFileListsNone) {
  const std::string text = Enabled(PrinterText());
  EXPECT_THAT(text, HasSubstr("*de.Translation Mark/Zeichen: \"\"\n"));
  EXPECT_THAT(text, HasSubstr("*fr.Translation Mark/Marque: \"\"\n"));
}

TEST(Enabling, MonochromePrintersHaveTheirOwnLines) {
  EXPECT_THAT(Enabled(TestPPD::Text(kMonoDevice)), Not(HasSubstr("*de.")));
  EXPECT_EQ("the bundle Other brings no options for monochrome printers",
            Refusal(TestPPD::Text(kMonoDevice), OtherOptions()));
}

TEST(Enabling, RefusesAPrinterThatDoesNotSayWhetherItHasColor) {
  EXPECT_EQ(
      "the file does not say whether it is a color printer: *ColorDevice must be True or False",
      Refusal(TestPPD::Text("")));
  EXPECT_EQ(
      "the file does not say whether it is a color printer: *ColorDevice must be True or False, "
      "not \"Yes\"",
      Refusal(TestPPD::Text("*ColorDevice: Yes\n")));
}

TEST(Enabling, RefusesWhatIsNoPPDFile) {
  EXPECT_THAT(Refusal("%PDF-1.7\n"), StartsWith("not a PPD file, or a damaged one: "));
  EXPECT_NE("", Refusal(""));
  EXPECT_EQ("not a PPD file, or a damaged one: Missing asterisk in column 1 on line 2",
            Refusal("*PPD-Adobe: \"4.3\"\nrubbish\n"));
}

TEST(Enabling, RefusesADamagedFile) {
  EXPECT_NE("", Refusal(PrinterText("*Foo: \"no end\n")));
  EXPECT_NE("", Refusal(PrinterText(std::string("*Foo: \"\0\"\n", 10))));
  EXPECT_NE("", Refusal(PrinterText("*OpenUI *Foo: PickOne\n*Foo A: \"\"\n")));
}

TEST(Enabling, RefusesAPrinterWithoutPostScript) {
  EXPECT_EQ(
      "no PostScript printer: it does not get PostScript as the print system makes it, but "
      "application/vnd.cups-raster through the filter rastertopcl",
      Refusal(PrinterText("*cupsFilter: \"application/vnd.cups-raster 50 rastertopcl\"\n")));
}

TEST(Enabling, RefusesAFileWhoseMakerHasTheFunctionInIt) {
  EXPECT_EQ(
      "the printer's maker has put the attribute MarkSupport into the file already; the options of "
      "Marks are only for files without it",
      Refusal(PrinterText("*MarkSupport: \"no\"\n")));
  EXPECT_EQ(
      "the printer's maker has put the option marksize into the file already; the options of Marks "
      "are only for files without it",
      Refusal(PrinterText("*OpenUI *marksize: PickOne\n*marksize A: \"\"\n*CloseUI: *marksize\n")));
}

TEST(Enabling, RefusesOptionsThatLibcupsDoesNotRead) {
  PrinterOptions options = MarkOptions();
  options.printer.color = "*OpenUI *Mark/Mark: PickOne\nrubbish\n*CloseUI: *Mark\n";
  const std::string refusal = Refusal(PrinterText(), options);
  EXPECT_THAT(refusal, StartsWith("the options of the bundle Marks do not fit this file: Missing "
                                  "asterisk in column 1 on line 3"));
  options.printer.color = "*OpenUI *Mark/Mark: PickOne\n*Mark A: \"\"\n";
  EXPECT_NE("", Refusal(PrinterText(), options));
}

TEST(Enabling, RefusesOptionsThatLibcupsReadsOtherwise) {
  PrinterOptions options = MarkOptions();
  options.support_value = "no";
  EXPECT_EQ(
      "the options of the bundle Marks do not fit this file: the attribute MarkSupport is not "
      "\"no\"; report it to the bundle's maker",
      Refusal(PrinterText(), options));
  options = MarkOptions();
  options.printer.color += "*OpenUI *PageSize: PickOne\n*PageSize A9: \"\"\n*CloseUI: *PageSize\n";
  EXPECT_NE("", Refusal(PrinterText(), options));
}

TEST(Enabling, RefusesABlockThatWasEdited) {
  const std::string edited = Replaced(Enabled(PrinterText()), "*% END", "*% end");
  EXPECT_THAT(Refusal(edited), HasSubstr("there is no end to what begins on line 29"));
}

TEST(Disabling, AFileWithoutBlocksIsUnchanged) {
  const DisabledPPD disabled = Disabled(PrinterText("*MarkSupport: \"yes\"\n"));
  EXPECT_EQ(PrinterText("*MarkSupport: \"yes\"\n"), disabled.text);
  EXPECT_TRUE(disabled.bundles.empty());
}

TEST(Disabling, RefusesABlockThatWasEdited) {
  Expected<DisabledPPD> disabled =
      DisableOptions(Replaced(Enabled(PrinterText()), "*% END", "*% end"));
  ASSERT_FALSE(disabled);
  EXPECT_THAT(disabled.message(), HasSubstr("there is no end to what begins on line 29"));
}

TEST(Disabling, RefusesWhatIsNoPPDFile) { EXPECT_FALSE(DisableOptions("rubbish\n")); }
