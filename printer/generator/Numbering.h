// The options that make a PostScript printer number its pages.

#ifndef PRINTER_GENERATOR_NUMBERING_H
#define PRINTER_GENERATOR_NUMBERING_H

#include <filesystem>
#include <string>
#include <vector>

#include "printer/generator/PrinterOption.h"

// The options of a printer with or without color: those that the setting info names, with its
// choices, defaults and range, and where the number is placed. Throws SourceError, for instance
// where the setting info has a choice for which the drawing has no value.
std::vector<PrinterOption> NumberingOptions(const SourceList &setting_info,
                                            const std::filesystem::path &drawing_folder,
                                            bool color);

// The same where a filter draws the numbers into the document, behind the page or over it as each
// page needs: the printer has no code to run.
std::vector<PrinterOption> DocumentOptions(std::vector<PrinterOption> printer_options);

// What belongs to a PostScript printer's choices: which it takes for one that filters alone have,
// and that documents reach it with their pages' transparency in pieces, between which numbers show.
std::string PrinterDeclarations();

// The piece of a PPD file that brings these options, in all languages, and declares the function.
std::string NumberingLines(const std::vector<PrinterOption> &options, const Texts &texts,
                           const std::string &declarations = "");

#endif
