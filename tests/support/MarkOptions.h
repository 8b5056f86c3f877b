// Printer options of an extension bundle for tests: a mark, and its size.

#ifndef TESTS_SUPPORT_MARKOPTIONS_H
#define TESTS_SUPPORT_MARKOPTIONS_H

#include <string>

#include "host/ppd/PrinterOptions.h"
#include "tests/support/TestPPD.h"

inline constexpr char kMarkLines[] = R"(*MarkSupport: "yes"
*OpenGroup: Marks/Water Marks
*OpenUI *Mark/Mark: PickOne
*OrderDependency: 70 AnySetup *Mark
*DefaultMark: Off
*Mark Off/Off: "(mark off) pop"
*Mark On/On: "
(mark on) pop
"
*End
*CloseUI: *Mark
*OpenUI *MarkSize/Size: PickOne
*OrderDependency: 61 AnySetup *MarkSize
*DefaultMarkSize: Small
*MarkSize Small/Small: "(mark small) pop"
*MarkSize Large/Large: "(mark large) pop"
*MarkSize 100/100: "(mark 100) pop"
*CloseUI: *MarkSize
*CloseGroup: Marks
)";

inline constexpr char kMarkTranslations[] =
    "*de.Translation Marks/Wasserzeichen: \"\"\n"
    "*de.Translation Mark/Zeichen: \"\"\n"
    "*de.Mark Off/Aus: \"\"\n"
    "*de.Mark On/Ein: \"\"\n"
    "*de.Translation MarkSize/Gr<C3B6C39F>e: \"\"\n"
    "*de.MarkSize Small/Klein: \"\"\n"
    "*de.MarkSize Large/Gro<C39F>: \"\"\n"
    "*fr.Translation Mark/Marque: \"\"\n";

// The translations are the color printer's alone.
inline PrinterOptions MarkOptions() {
  return {
      .bundle = "test.marks",
      .name = "Marks",
      .support_keyword = "MarkSupport",
      .support_value = "yes",
      .printer = {.color = std::string(kMarkLines) + kMarkTranslations, .monochrome = kMarkLines},
      .document_filter = "",
      .document = {}};
}

// A color PostScript printer's PPD file, with these lines.
inline std::string PrinterText(const std::string &lines = "") {
  return TestPPD::Text(kColorDevice + lines);
}

#endif
