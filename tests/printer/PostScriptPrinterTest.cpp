#include "printer/generator/PostScriptPrinter.h"

#include <gmock/gmock.h>

#include "tests/printer/SourceTree.h"

using testing::HasSubstr;

namespace {

constexpr char kTemplate[] = "printer/PostScriptPrinter.ppd.in";

std::string Text(const SourceTree &tree, bool color) {
  return PPDText({"A Printer", "A.PPD", "1.2", color, "*More: \"lines\"\n"},
                 tree.printer() / "PostScriptPrinter.ppd.in", tree.AllTexts());
}

}  // namespace

TEST(PostScriptPrinter, ItsNameVersionColorAndLinesAreInTheFile) {
  const SourceTree tree;
  const std::string text = Text(tree, true);
  for (const char *line :
       {"*ModelName: \"A Printer\"\n", "*PCFileName: \"A.PPD\"\n", "*FileVersion: \"1.2\"\n",
        "*ColorDevice: True\n", "*DefaultColorSpace: RGB\n", "*More: \"lines\"\n"}) {
    EXPECT_THAT(text, HasSubstr(line)) << line;
  }
  EXPECT_THAT(Text(tree, false), HasSubstr("*ColorDevice: False\n"));
  EXPECT_THAT(Text(tree, false), HasSubstr("*DefaultColorSpace: Gray\n"));
}

TEST(PostScriptPrinter, APlaceOfTheTemplateThatNothingFillsIsTold) {
  for (const char *place : {"@Weight@", "@Weight", "@"}) {
    const SourceTree tree;
    tree.Edit(kTemplate, "@MoreLines@", place);
    EXPECT_EQ(0u, ErrorOf([&tree] {
                    (void)Text(tree, true);
                  }).find("the template of PPD files asks for something unknown: @"))
        << place;
  }
}
