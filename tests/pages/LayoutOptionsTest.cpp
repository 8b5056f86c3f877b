#include "host/pages/LayoutOptions.h"

#include <gmock/gmock.h>

#include "host/pages/PrinterForLayout.h"
#include "host/ppd/CupsOptions.h"

using testing::HasSubstr;
using testing::Not;

TEST(LayoutOptions, LeaveTheServerWhatIsThePrinters) {
  EXPECT_EQ(OptionsOfLaidOut({{"copies", "3"},
                              {"collate", "true"},
                              {"number-up", "4"},
                              {"page-ranges", "1-2"},
                              {"fit-to-page", "true"},
                              {"media", "A4"},
                              {"sides", "two-sided-long-edge"},
                              {"Duplex", "None"},
                              {"job-sheets", "none,none"}}),
            (JobOptions{{"copies", "1"},
                        {"media", "A4"},
                        {"sides", "two-sided-long-edge"},
                        {"Duplex", "None"},
                        {"job-sheets", "none,none"}}));
}

TEST(LayoutOptions, OfLaidOutPicturesAreCopiesAndOrder) {
  EXPECT_EQ(OptionsForCopies({{"copies", "3"}, {"scaling", "50"}, {"outputorder", "reverse"}}),
            (JobOptions{{"copies", "3"}, {"outputorder", "reverse"}}));
}

TEST(LayoutOptions, AreReadAsTheyWereWritten) {
  const JobOptions options = {{"a", "two words"}, {"b", "it's \"so\""}, {"c", "back\\slash"},
                              {"d", "{x=1 y=2}"}, {"e", "new\nline"},   {"f", "25"}};
  EXPECT_EQ(CupsOptions(OptionText(options)).Content(), options);
}

TEST(PrinterForLayout, MakesNoCopiesItself) {
  const std::string text =
      ForLayout("*One: \"1\"\r\n*cupsManualCopies: False\r\n*Two: \"2\"", LastSide::kAsPrinter);
  EXPECT_EQ(text, "*One: \"1\"\r\n*Two: \"2\"\r\n*cupsManualCopies: True\r\n");
  EXPECT_THAT(ForLayout("*One: \"1\"\n", LastSide::kBack), HasSubstr("*cupsEvenDuplex: True\n"));
}
