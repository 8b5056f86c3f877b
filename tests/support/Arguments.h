// The words of a command.

#ifndef TESTS_SUPPORT_ARGUMENTS_H
#define TESTS_SUPPORT_ARGUMENTS_H

#include <string>
#include <vector>

using Arguments = std::vector<std::string>;

inline Arguments operator+(Arguments first, const Arguments &more) {
  first.insert(first.end(), more.begin(), more.end());
  return first;
}

#endif
