// The helper of pdeprint for PDF files: counts their pages, makes one document of several. It is a
// program of its own since documents may be anything.
//
//   pdeprint-pages count FILE         prints the number of its pages
//   pdeprint-pages join OUT FILE...   makes OUT of them and prints the number of its pages

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <list>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFWriter.hh>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/pages/ProgramStatus.h"

namespace {

// A document and what stands around it: lines in the language of a printer's jobs.
struct Wrapped {
  std::string before, document, behind;

  explicit Wrapped(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file) throw std::runtime_error("cannot read " + path);
    const std::string bytes = content.str();
    const size_t begin = bytes.find("%PDF-");
    if (begin == std::string::npos) throw std::runtime_error("no PDF file: " + path);
    constexpr std::string_view kEnd = "%%EOF";
    size_t end = bytes.rfind(kEnd);
    end = end == std::string::npos || end < begin ? bytes.size() : end + kEnd.size();
    if (end < bytes.size() && bytes[end] == '\n') ++end;
    before = bytes.substr(0, begin);
    document = bytes.substr(begin, end - begin);
    behind = bytes.substr(end);
  }
};

void Open(QPDF &pdf, const std::string &path, const std::string &document) {
  pdf.setSuppressWarnings(true);
  pdf.processMemoryFile(path.c_str(), document.data(), document.size());
}

size_t Count(const std::string &path) {
  const Wrapped file(path);
  QPDF pdf;
  Open(pdf, path, file.document);
  return pdf.getAllPages().size();
}

size_t Join(const std::string &out, const std::list<std::string> &paths) {
  std::list<Wrapped> files;
  std::list<QPDF> pdfs;  // which own the pages until all is written
  QPDF all;
  all.emptyPDF();
  for (const std::string &path : paths) {
    files.emplace_back(path);
    Open(pdfs.emplace_back(), path, files.back().document);
    for (const QPDFObjectHandle &page : pdfs.back().getAllPages()) all.addPage(page, false);
  }
  std::FILE *file = std::fopen(out.c_str(), "wb");
  if (file == nullptr) throw std::runtime_error("cannot write " + out);
  const auto write = [file](const std::string &bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
      throw std::runtime_error("no room");
    }
  };
  // Positions in a document count from its own beginning, as filters write them.
  std::string document;
  {
    QPDFWriter writer(all);
    writer.setOutputMemory();
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    document.assign(reinterpret_cast<const char *>(buffer->getBuffer()), buffer->getSize());
  }
  write(files.front().before);
  write(document);
  write(files.back().behind);
  if (std::fclose(file) != 0) throw std::runtime_error("no room");
  return all.getAllPages().size();
}

int Run(const std::list<std::string> &arguments) {
  const std::string verb = arguments.empty() ? "" : arguments.front();
  if (verb == "count" && arguments.size() == 2) {
    std::cout << Count(arguments.back()) << '\n' << std::flush;
  } else if (verb == "join" && arguments.size() > 2) {
    std::list<std::string> files = arguments;
    files.pop_front();
    const std::string out = files.front();
    files.pop_front();
    std::cout << Join(out, files) << '\n' << std::flush;
  } else {
    return kWrongArguments;
  }
  return std::cout ? kPdfDone : kDamaged;
}

}  // namespace

int main(int argc, char **argv) {
  try {
    return Run({argv + 1, argv + argc});
  } catch (const QPDFExc &error) {
    std::cerr << error.what() << '\n';
    return error.getErrorCode() == qpdf_e_password ? kNeedsPassword : kDamaged;
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return kDamaged;
  }
}
