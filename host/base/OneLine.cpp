#include "host/base/OneLine.h"

std::string OnOneLine(std::string text) {
  for (char &character : text) {
    if (static_cast<unsigned char>(character) < ' ' || character == '\x7f') character = ' ';
  }
  return text;
}
