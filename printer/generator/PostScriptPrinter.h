// A PostScript printer of no particular make, to be described by a PPD file.

#ifndef PRINTER_GENERATOR_POSTSCRIPTPRINTER_H
#define PRINTER_GENERATOR_POSTSCRIPTPRINTER_H

#include <filesystem>
#include <string>

#include "printer/generator/Source.h"

struct PostScriptPrinter {
  std::string model;
  std::string file_name;  // as DOS would take it
  std::string version;
  bool color;
  std::string more_lines;  // of its PPD file
};

// Its PPD file, in all languages: the template with its paper sizes, duplex and the lines of its
// own. Throws SourceError.
std::string PPDText(const PostScriptPrinter &printer, const std::filesystem::path &ppd_template,
                    const Texts &texts);

#endif
