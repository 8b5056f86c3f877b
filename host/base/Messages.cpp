#include "host/base/Messages.h"

#include <iostream>

void Complain(std::string_view message) { std::cerr << "pdeprint: " << message << '\n'; }
