// Measures the filter beside what else numbers pages, or does as much with them.
//   filter_bench ROUNDS OUT
// OUT is a folder for the values (filter.txt) and for documents.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
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

void Write(const fs::path &file, const std::string &content) {
  std::ofstream(file, std::ios::binary) << content;
}

// The most memory that this process ever had is the least that the system tells of its children.
void InAnotherProcess(const std::function<void()> &work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = -1;
  if (waitpid(child, &status, 0) != child || status != 0) {
    std::cerr << "the documents cannot be made\n";
    std::exit(1);
  }
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
  const std::string copy = out / "copy.pdf", many = out / "5000.pdf", most = out / "50000.pdf",
                    some = out / "200.pdf", one = out / "1.pdf", large = out / "large",
                    numbers = out / "numbers.pdf";
  InAnotherProcess([&] {
    Write(many, TextPages(5000));
    Write(most, TextPages(50000));
    Write(some, TextPages(200));
    Write(one, TextPages(1));
    Write(large, std::string(512 << 20, 'x'));
    Write(numbers,
          PdfOf("/Helvetica-Bold findfont 300 scalefont setfont 1 1 5000 { 60 300 moveto 10 string "
                "cvs show showpage } for"));
  });

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
