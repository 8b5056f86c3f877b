// Values that would do something on paper if a printer carried them out, and a printer that takes
// custom ones.

#ifndef TESTS_HOST_COMMAND_FOREIGNCODE_H
#define TESTS_HOST_COMMAND_FOREIGNCODE_H

#include <sstream>

#include "tests/host/command/ServedProgram.h"
#include "tests/support/NumberingPPD.h"

// Prints a page of its own.
inline const std::string kCode =
    "/Helvetica findfont 20 scalefont setfont 100 100 moveto (MARKED) show showpage";

// Ways to write it so that it might be carried out.
inline std::vector<std::string> Hostile() {
  return {kCode,
          "1) " + kCode + " (",
          "%!PS\n" + kCode + "\n",
          "On\n" + kCode,
          "On: \"" + kCode + "\"",
          "*% x\n*VQBNSize Huge: \"" + kCode + "\"",
          "On VQText='Custom." + kCode + "'",
          "On\n%%EndFeature\n" + kCode,
          std::string(70'000, 'x') + kCode};
}

// As custom values, for options with a text. What libcups would leave as it is ends the string, or
// the command in the printer's own language.
inline std::vector<std::string> HostileCustom() {
  return {"Custom.a\\",
          "Custom.a\\) " + kCode,
          "{Value=\"a\\\\\"}",
          "{Value=a Other=\"" + kCode + "\"}",
          "{Other=\"" + kCode + "\"}",
          "{" + kCode,
          "Custom." + std::string(500, 'x') + kCode};
}

inline std::string XmlOf(const std::string &text) {
  std::string xml;
  for (const char character : text) {
    switch (character) {
      case '<':
        xml += "&lt;";
        break;
      case '&':
        xml += "&amp;";
        break;
      default:
        xml += character;
    }
  }
  return xml;
}

// An option whose custom values are a text.
inline std::string TextOption(const std::string &keyword, const std::string &section,
                              const std::string &code) {
  const std::string ui = keyword.starts_with("JCL") ? "JCLOpenUI" : "OpenUI";
  const std::string end = keyword.starts_with("JCL") ? "JCLCloseUI" : "CloseUI";
  return "*" + ui + " *" + keyword + ": PickOne\n*OrderDependency: 50 " + section + " *" + keyword +
         "\n*Default" + keyword + ": None\n*" + keyword + " None: \"\"\n*" + end + ": *" + keyword +
         "\n*Custom" + keyword + " True: \"" + code + "\"\n*ParamCustom" + keyword +
         " Value: 1 string 1 200\n";
}

// VQText and VQNote are sent as PostScript, VQExit before it, JCLNote in a language of the
// printer's.
inline std::string PPDWithCustomTexts() {
  return NumberingPPDText(
      /*color=*/true, TextOption("VQText", "AnySetup", "pop") +
                          TextOption("VQNote", "AnySetup", "pop") +
                          TextOption("VQExit", "ExitServer", "(\\1) pop<0A>") +
                          TextOption("JCLNote", "JCLSetup", "@PJL SET NOTE=<22>\\1<22><0A>") +
                          "*JCLBegin: \"<1B>%-12345X@PJL<0A>\"\n"
                          "*JCLToPSInterpreter: \"@PJL ENTER LANGUAGE = POSTSCRIPT<0A>\"\n"
                          "*JCLEnd: \"<1B>%-12345X\"\n");
}

// Without what differs between two jobs that are alike.
inline std::string Comparable(const std::string &output) {
  std::string lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) {
    if (line.find("@PJL JOB NAME") == std::string::npos) lines += line + '\n';
  }
  return lines;
}

// The queue Office of a printer that takes custom texts.
class ForeignCode : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    newest_ = 0;
    plain_.clear();
    const TemporaryFolder folder;
    server().AddQueue({.name = "Office",
                       .ppd = folder.Write("office.ppd", PPDWithCustomTexts()),
                       .is_default = true});
  }

  static int NewestJob() {
    while (!server().JobAttributes(newest_ + 1).empty()) ++newest_;
    return newest_;
  }

  RunResult Print(const Arguments &more) const {
    return Run(Arguments{"print", "--wait"} + more + Arguments{file_});
  }

  // What the printer gets of a job, which is sent.
  std::string Printed(const Arguments &more, const std::string &message = "") const {
    const RunResult result = Print(more);
    EXPECT_EQ(0, result.status);
    EXPECT_EQ(message, result.err);
    return Comparable(server().OutputOf(NewestJob()));
  }

  // The same of a job for which nothing is chosen.
  const std::string &Plain() const {
    if (plain_.empty()) plain_ = Printed({});
    return plain_;
  }

  const std::string file_ = folder_.Write(
      "page.ps",
      "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Helvetica findfont 24 scalefont "
      "setfont\n72 700 moveto (Hello) show showpage\n%%EOF\n");

 private:
  static inline int newest_ = 0;
  static inline std::string plain_;
};

#endif
