#include "tests/support/ClassTable.h"

#include <fstream>
#include <iterator>

namespace {

template <typename Lines>
void AddLines(std::string &table, const char *prefix, const Lines &lines) {
  for (const std::string &line : lines) table += prefix + line + '\n';
}

}  // namespace

std::string ClassTable(const std::map<std::string, ClassEntry> &classes) {
  std::string table;
  for (const auto &[name, entry] : classes) {
    if (!table.empty()) table += '\n';
    table += name + " : " + entry.superclass + '\n';
    AddLines(table, "  protocol ", entry.protocols);
    AddLines(table, "  field ", entry.fields);
    AddLines(table, "  property ", entry.properties);
    AddLines(table, "  ", entry.methods);
  }
  return table;
}

std::string ExpectedClassTable() {
  std::ifstream file(SOURCE_DIRECTORY "/tests/bundle/classes.txt");
  return {std::istreambuf_iterator<char>(file), {}};
}
