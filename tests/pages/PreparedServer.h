// Jobs on queues that nobody has prepared for numbers: a PDF printer, a raster printer.

#ifndef TESTS_PAGES_PREPAREDSERVER_H
#define TESTS_PAGES_PREPAREDSERVER_H

#include <map>
#include <string>
#include <vector>

#include "tests/host/command/ServedProgram.h"

// Pages 1 to so many, each with its heading "Page N".
std::string PlainPdf(int pages);

class UnpreparedQueues : public ServedProgram {
 protected:
  static void SetUpTestSuite();

  // Of a PDF printer that has paper for both sides, with these lines.
  static std::string PdfPrinter(const std::string &lines = "");

  struct Printed {
    std::map<std::string, std::string> job;    // its attributes, once it is complete
    std::string out;                           // what the printer got
    std::vector<std::string> documents;        // what the server got
    std::string text;                          // of a PDF document that the printer got
    std::string said;                          // by the program, on standard error
    std::vector<std::string> numbers() const;  // of two digits, page by page
  };
  static Printed Print(const std::string &queue, const Arguments &more,
                       const std::vector<std::string> &files,
                       const EnvironmentChanges &changes = {});
  // On the PDF printer, with numbers from 25 on.
  static Printed Number(const Arguments &more, const std::vector<std::string> &files);
  std::string File(const std::string &name, const std::string &content) const {
    return folder_.Write(name, content);
  }
};

inline const Arguments kFrom25 = {"--set", "Valid=On", "--set", "StartNumber=25"};

#endif
