#include "tests/support/RawPdf.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

std::string PdfOfObjects(const std::vector<std::string> &objects, const std::string &trailer) {
  std::string pdf = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n", table;
  for (size_t at = 0; at < objects.size(); ++at) {
    char entry[32];
    snprintf(entry, sizeof entry, "%010zu 00000 n \n", pdf.size());
    table += entry;
    pdf += std::to_string(at + 1) + " 0 obj\n" + objects[at] + "\nendobj\n";
  }
  const std::string size = std::to_string(objects.size() + 1);
  const std::string begin = std::to_string(pdf.size());
  return pdf + "xref\n0 " + size + "\n0000000000 65535 f \n" + table + "trailer\n<< /Size " + size +
         " /Root 1 0 R " + trailer + " >>\nstartxref\n" + begin + "\n%%EOF\n";
}

std::string PdfStream(const std::string &content, const std::string &entries) {
  return "<< /Length " + std::to_string(content.size()) + ' ' + entries + " >>\nstream\n" +
         content + "\nendstream";
}

std::string RawPdf(const std::vector<RawPage> &pages, const std::vector<std::string> &more,
                   const std::string &catalog) {
  constexpr size_t kFirstOfMore = 10;
  std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R " + catalog + " >>", "",
                                      "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
  objects.resize(kFirstOfMore - 1, "null");
  objects.insert(objects.end(), more.begin(), more.end());
  std::string kids;
  for (const RawPage &page : pages) {
    const std::string number = std::to_string(objects.size() + 1);
    kids += number + " 0 R ";
    const std::string contents = page.entries.find("/Contents") == std::string::npos
                                     ? "/Contents " + std::to_string(objects.size() + 2) + " 0 R "
                                     : "";
    objects.push_back("<< /Type /Page /Parent 2 0 R " + contents + page.entries + " >>");
    objects.push_back(PdfStream(page.content));
  }
  objects[1] = "<< /Type /Pages /Resources << /Font << /F 3 0 R >> >> /Count " +
               std::to_string(pages.size()) + " /Kids [" + kids + "] >>";
  return PdfOfObjects(objects);
}

std::string ChangedByQpdf(const std::string &pdf, const std::vector<std::string> &options) {
  const TemporaryFolder folder;
  const std::string out = folder.path() / "out.pdf";
  std::vector<std::string> command = {"qpdf"};
  command.insert(command.end(), options.begin(), options.end());
  command.insert(command.end(), {"--", folder.Write("in.pdf", pdf), out});
  const RunResult result = RunProgram(command);
  EXPECT_EQ(result.status, 0) << result.err;
  return ContentOf(out);
}

std::vector<Picture> PicturesOf(const std::vector<std::string> &files, int dots_per_inch) {
  const TemporaryFolder folder;
  std::vector<std::string> command = {"gs",
                                      "-q",
                                      "-dBATCH",
                                      "-dNOPAUSE",
                                      "-dSAFER",
                                      "-sDEVICE=ppmraw",
                                      "-r" + std::to_string(dots_per_inch),
                                      "-sOutputFile=" + (folder.path() / "%d.ppm").string()};
  for (size_t at = 0; at < files.size(); ++at) {
    command.push_back(folder.Write("file" + std::to_string(at), files[at]));
  }
  const RunResult result = RunProgram(command);
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  std::vector<Picture> pictures;
  for (;;) {
    const std::string ppm =
        ContentOf(folder.path() / (std::to_string(pictures.size() + 1) + ".ppm"));
    if (ppm.empty()) return pictures;
    pictures.emplace_back(ppm);
  }
}

std::string TextOfPdf(const std::string &pdf) {
  const TemporaryFolder folder;
  const RunResult result = RunProgram({"pdftotext", folder.Write("file.pdf", pdf), "-"});
  EXPECT_EQ(result.status, 0) << result.err;
  std::istringstream words(result.out);
  std::string text;
  for (std::string word; words >> word;) text += (text.empty() ? "" : " ") + word;
  return text;
}
