#include "host/base/Messages.h"

#include <iostream>

#include "host/base/Localized.h"

void Complain(std::string_view message) { std::cerr << "pdeprint: " << message << '\n'; }

void Note(std::string_view message) { Complain(Localized("note: %1", {std::string(message)})); }
