#include "host/base/Messages.h"

#include <iostream>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"

// What is quoted may hold line ends, or control the terminal.
void Complain(std::string_view message) {
  std::cerr << "pdeprint: " << OnOneLine(std::string(message)) << '\n';
}

void Note(std::string_view message) { Complain(Localized("note: %1", {std::string(message)})); }
