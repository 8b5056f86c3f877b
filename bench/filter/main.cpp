// Measures the filter beside what else numbers pages, or does as much with them.
//   filter_bench ROUNDS OUT
// OUT is a folder for the values (filter.txt) and for documents.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "bench/filter/Cost.h"
#include "bench/results/Samples.h"
#include "tests/support/Interpreter.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;

namespace {

using Command = std::vector<std::string>;

struct Side {
  std::string name;
  Command command;
  double times = 1;  // as often as others have what it measures
};

std::string Write(const fs::path &file, const std::string &content) {
  std::ofstream(file, std::ios::binary) << content;
  return file;
}

// Pages of text, as programs write them.
std::string TextPages(int pages) {
  return PdfOf(
      "/Helvetica findfont 12 scalefont setfont 1 1 " + std::to_string(pages) +
      " { 60 740 moveto 10 string cvs show 720 -18 60 { 60 exch moveto (Many words of this. "
      "Many words of this.) show } for showpage } for");
}

Command Filter(const std::string &options, const std::string &file) {
  return {BINARY_DIRECTORY "/backgroundnumbers", "1", "user", "title", "1", options, file};
}

class Rounds {
 public:
  Rounds(int rounds, fs::path folder) : rounds_(rounds), folder_(std::move(folder)) {}

  // The sides are run in an order that changes from round to round.
  void Hold(const std::string &measure, std::vector<Side> sides, int rounds = 0) {
    const std::string out = folder_ / "out";
    for (const Side &side : sides) CostOf(side.command, out);  // what is read lies in memory then
    for (int round = 0; round < (rounds == 0 ? rounds_ : rounds); ++round) {
      for (const Side &side : sides) {
        const Cost cost = CostOf(side.command, out);
        measures_[measure][side.name].push_back(cost.seconds * side.times);
        measures_[measure + "-memory"][side.name].push_back(cost.memory);
      }
      std::rotate(sides.begin(), sides.begin() + 1, sides.end());
    }
  }
  const Measures &measures() const { return measures_; }

 private:
  int rounds_;
  fs::path folder_;
  Measures measures_;
};

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) {
    std::cerr << "usage: filter_bench ROUNDS OUT\n";
    return 2;
  }
  const fs::path out = argv[2];
  const std::string on = "VQBackgroundNumbering=On VQBNPlacement=";
  const std::string copy = out / "copy.pdf";
  const std::string many = Write(out / "5000.pdf", TextPages(5000));
  const std::string most = Write(out / "50000.pdf", TextPages(50000));
  const std::string some = Write(out / "200.pdf", TextPages(200));
  const std::string one = Write(out / "1.pdf", TextPages(1));
  const std::string large = Write(out / "large", std::string(512 << 20, 'x'));
  const std::string numbers = Write(
      out / "numbers.pdf",
      PdfOf("/Helvetica-Bold findfont 300 scalefont setfont 1 1 5000 { 60 300 moveto 10 string cvs "
            "show showpage } for"));

  Rounds rounds(std::max(1, std::atoi(argv[1])), out);
  rounds.Hold("numbers", {{"behind", Filter(on + "Behind", many)},
                          {"over", Filter(on + "Over", many)},
                          {"copy", {"qpdf", many, copy}}});
  rounds.Hold("underlay",
              {{"behind", Filter(on + "Behind", many)},
               {"qpdf", {"qpdf", many, "--underlay", numbers, "--", copy}},
               {"pdftk", {"pdftk", many, "multibackground", numbers, "output", copy}}},
              3);
  rounds.Hold("linear",
              {{"most", Filter(on + "Behind", most)}, {"many", Filter(on + "Behind", many), 10}},
              3);
  rounds.Hold("off", {{"filter", Filter("", large)}, {"cat", {"cat", large}}});
  rounds.Hold("automatic",
              {{"filter", Filter(on + "Automatic", some)},
               {"gstoraster",
                {"env", "CONTENT_TYPE=application/vnd.cups-pdf", "/usr/lib/cups/filter/gstoraster",
                 "1", "user", "title", "1", "Resolution=300dpi ColorModel=RGB", some}}},
              3);
  rounds.Hold("one-page", {{"filter", Filter(on + "Behind", one)}, {"cat", {"cat", one}}});
  WriteMeasures(rounds.measures(), out / "filter.txt");
  return 0;
}
