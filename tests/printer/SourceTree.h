// The sources that printer descriptions are made from, in a folder of a test's own.

#ifndef TESTS_PRINTER_SOURCETREE_H
#define TESTS_PRINTER_SOURCETREE_H

#include <string>
#include <vector>

#include "printer/generator/Numbering.h"
#include "tests/support/TemporaryFolder.h"

class SourceTree {
 public:
  // A copy of the project's.
  SourceTree();

  // Replaces a text that stands in one of the files; the test program ends where it does not.
  void Edit(const std::string &file, const std::string &from, const std::string &to) const;

  std::vector<PrinterOption> Options(bool color = true) const;
  Texts AllTexts() const;

  std::filesystem::path resources() const { return folder_.path() / "resources"; }
  std::filesystem::path printer() const { return folder_.path() / "printer"; }

 private:
  TemporaryFolder folder_;
};

// What is wrong with the sources, as an operation tells; empty: nothing.
template <typename Operation>
std::string ErrorOf(Operation operation) {
  try {
    operation();
  } catch (const SourceError &error) {
    return error.what();
  }
  return "";
}

#endif
