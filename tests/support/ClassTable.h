// The classes of a bundle as text, to be compared with classes.txt.

#ifndef TESTS_SUPPORT_CLASSTABLE_H
#define TESTS_SUPPORT_CLASSTABLE_H

#include <map>
#include <set>
#include <string>
#include <vector>

struct ClassEntry {
  std::string superclass;
  std::vector<std::string> protocols;
  std::vector<std::string> fields;      // "name type", in their order; of an object its class
  std::vector<std::string> properties;  // "name attributes", in their order
  std::set<std::string> methods;        // "- selector" or "+ selector"
};

// By name, a paragraph each.
std::string ClassTable(const std::map<std::string, ClassEntry> &classes);

// The table of what the classes are to be.
std::string ExpectedClassTable();

#endif
