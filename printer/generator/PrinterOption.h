// An option of a printer, as PPD files describe it.

#ifndef PRINTER_GENERATOR_PRINTEROPTION_H
#define PRINTER_GENERATOR_PRINTEROPTION_H

#include <string>
#include <vector>

#include "printer/generator/Source.h"

struct PrinterChoice {
  std::string keyword;
  std::string text;  // key of a text; empty: the keyword, in all languages
  std::string code;  // PostScript
};

struct PrinterOption {
  std::string keyword;
  std::string text;  // key of a text
  int order;         // when its code is run, among the others of a document's setup
  std::string default_choice;
  std::vector<PrinterChoice> choices;
};

// The lines of the option, in English. Throws SourceError for what PPD files cannot hold.
std::string Lines(const PrinterOption &option, const Texts &texts);

// The lines that translate the option's texts into a language.
std::string Translation(const PrinterOption &option, const Texts &texts,
                        const std::string &language);

// The line that translates the text of a group of options.
std::string GroupTranslation(const std::string &group, const Texts &texts,
                             const std::string &language);

// A text as PPD files carry it whatever their encoding: ASCII, all else in hexadecimal.
std::string EncodedText(const std::string &text);

#endif
