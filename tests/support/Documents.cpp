#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include "tests/support/Interpreter.h"
#include "tests/support/RunProgram.h"

std::string Document(const std::vector<std::string> &pages, const std::string &setup) {
  std::string text =
      "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 595 842\n%%Pages: " + std::to_string(pages.size()) +
      "\n%%EndComments\n%%BeginProlog\n%%EndProlog\n";
  if (!setup.empty()) text += "%%BeginSetup\n" + setup + "\n%%EndSetup\n";
  for (size_t at = 0; at < pages.size(); ++at) {
    const std::string number = std::to_string(at + 1);
    text += "%%Page: ";
    text.append(number).append(" ").append(number).append("\n");
    text += "save\n" + pages[at] + "\nshowpage\nrestore\n";
  }
  return text + "%%Trailer\n%%EOF\n";
}

std::string TextPage(const std::string &heading, int width, int height) {
  const std::string top = std::to_string(height - 60);
  return "/Helvetica findfont 24 scalefont setfont 60 " + top + " moveto (" + heading +
         ") show\n/Helvetica findfont 12 scalefont setfont\n" + std::to_string(height - 90) +
         " -18 60 { 60 exch moveto\n" + std::to_string(width / 100) +
         " { (Many words of this. ) show } repeat } for";
}

std::string TextDocument(int pages) {
  std::vector<std::string> contents;
  for (int page = 1; page <= pages; ++page) {
    contents.push_back(TextPage("Page " + std::to_string(page)));
  }
  return Document(contents);
}

std::string TextPdf(int pages) {
  static std::map<int, std::string> made;
  std::string &pdf = made[pages];
  if (pdf.empty()) pdf = PdfOf("<</PageSize[595 842]>>setpagedevice\n" + TextDocument(pages));
  return pdf;
}

std::map<std::string, std::filesystem::path> DocumentOfEachKind(const TemporaryFolder &folder) {
  const std::string text = "/Helvetica findfont 20 scalefont setfont 72 780 moveto (Top) show";
  const std::filesystem::path ps = folder.Write("a.ps", Document({text, text}));
  std::map<std::string, std::filesystem::path> files = {
      {"application/postscript", ps}, {"text/plain", folder.Write("a.txt", "Top\n")}};
  const std::pair<const char *, const char *> made[] = {
      {"pdfwrite", "application/pdf"}, {"png16m", "image/png"}, {"jpeg", "image/jpeg"}};
  for (const auto &[device, type] : made) {
    files[type] = folder.path() / (std::string("a.") + device);
    EXPECT_EQ(
        RunProgram({"gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-r36",
                    type[0] == 'i' ? "-dLastPage=1" : "-dFirstPage=1",
                    std::string("-sDEVICE=") + device, "-sOutputFile=" + files[type].string(), ps})
            .status,
        0);
  }
  return files;
}
