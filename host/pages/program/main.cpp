// The helper of pdeprint for PDF files: counts their pages, makes documents of them. It is a
// program of its own since documents may be anything.
//
//   pdeprint-pages count FILE               prints the number of its pages, if they may be printed
//   pdeprint-pages join OUT FILE...         makes OUT of them and prints the number of its pages
//   pdeprint-pages document OUT FILE        makes OUT of what is no line in a printer's language
//   pdeprint-pages single OUT FILE NUMBER   makes OUT of one page, counted from 1, behind as many
//                                           empty ones as there are pages before it

#include <cstdio>
#include <exception>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <iterator>
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

struct ForbidsPrinting : std::exception {};

size_t Count(const std::string &path) {
  const Wrapped file(path);
  QPDF pdf;
  Open(pdf, path, file.document);
  if (!pdf.allowPrintLowRes()) throw ForbidsPrinting();
  return pdf.getAllPages().size();
}

void Write(const std::string &out, std::initializer_list<std::string_view> parts) {
  std::FILE *file = std::fopen(out.c_str(), "wb");
  if (file == nullptr) throw std::runtime_error("cannot write " + out);
  bool written = true;
  for (const std::string_view part : parts) {
    written = written && std::fwrite(part.data(), 1, part.size(), file) == part.size();
  }
  if (std::fclose(file) != 0 || !written) throw std::runtime_error("no room");
}

// Positions in it count from its own beginning, as filters write them.
std::string Written(QPDF &pdf) {
  QPDFWriter writer(pdf);
  writer.setOutputMemory();
  writer.write();
  const auto buffer = writer.getBufferSharedPointer();
  return {reinterpret_cast<const char *>(buffer->getBuffer()), buffer->getSize()};
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
  const std::string document = Written(all);
  Write(out, {files.front().before, document, files.back().behind});
  return all.getAllPages().size();
}

void MakeSingle(const std::string &out, const std::string &path, size_t number) {
  const Wrapped file(path);
  QPDF pdf, single;
  Open(pdf, path, file.document);
  const auto &pages = pdf.getAllPages();
  if (number < 1 || number > pages.size()) throw std::runtime_error("no such page: " + path);
  single.emptyPDF();
  for (size_t before = 1; before < number; ++before) {
    single.addPage(QPDFObjectHandle::parse("<< /Type /Page /MediaBox [0 0 72 72] >>"), false);
  }
  single.addPage(pages[number - 1], false);
  const std::string document = Written(single);
  Write(out, {document});
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
  } else if (verb == "document" && arguments.size() == 3) {
    Write(*std::next(arguments.begin()), {Wrapped(arguments.back()).document});
  } else if (verb == "single" && arguments.size() == 4) {
    const auto out = std::next(arguments.begin());
    MakeSingle(*out, *std::next(out), std::stoul(arguments.back()));
  } else {
    return kWrongArguments;
  }
  return std::cout ? kPdfDone : kDamaged;
}

}  // namespace

int main(int argc, char **argv) {
  try {
    return Run({argv + 1, argv + argc});
  } catch (const ForbidsPrinting &) {
    return kForbidsPrinting;
  } catch (const QPDFExc &error) {
    std::cerr << error.what() << '\n';
    return error.getErrorCode() == qpdf_e_password ? kNeedsPassword : kDamaged;
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return kDamaged;
  }
}
