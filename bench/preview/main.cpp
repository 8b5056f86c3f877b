// Measures the preview beside a program that draws the same page.
//   preview_bench ROUNDS OUT
// OUT is a folder for the values (preview.txt) and for documents.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "bench/results/Samples.h"
#include "host/preview/PageStore.h"
#include "tests/support/Interpreter.h"
#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;

namespace {

constexpr int kPages = 1000;
constexpr PixelSize kRoom = {284, 290};  // of the dialog at its usual size

// Pages of text, as programs write them.
std::string TextPages() {
  return PdfOf(
      "<</PageSize[595 842]>>setpagedevice /Helvetica findfont 12 scalefont setfont 1 1 " +
      std::to_string(kPages) +
      " { 60 740 moveto 10 string cvs show 720 -18 60 { 60 exch moveto (Many words of this. "
      "Many words of this.) show } for showpage } for");
}

std::string Content(const fs::path &path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

[[noreturn]] void Fail(const std::string &why) {
  std::cerr << "preview_bench: " << why << '\n';
  std::exit(1);
}

double Seconds(const std::function<void()> &work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

PagesRequest Job(const fs::path &document) {
  return {.files = {document},
          .title = "document",
          .options = {{"VQBackgroundNumbering", "On"}},
          .making = {.ppd = Content(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"),
                     .filters = {{.program = "backgroundnumbers", .bundle = "", .package = ""}},
                     .of_filters = {"VQBackgroundNumbering", "VQStartNumber", "VQBNPlacement"}}};
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) {
    std::cerr << "usage: preview_bench ROUNDS OUT\n";
    return 2;
  }
  const fs::path out = argv[2];
  const fs::path document = out / "1000.pdf", numbered = out / "numbered.pdf";
  std::ofstream(document, std::ios::binary) << TextPages();
  PagesRequest job = Job(document);
  const std::atomic<bool> cancel = false;
  {
    const Expected<JobPages> pages = MakePages(job, cancel);
    if (!pages) Fail(pages.message());
    fs::copy_file(pages->file, numbered, fs::copy_options::overwrite_existing);
  }

  PageStore store;
  int start = 0;
  const auto change = [&](const char *placement) {
    job.options["VQStartNumber"] = std::to_string(++start % 900 + 1);
    job.options["VQBNPlacement"] = placement;
    const auto picture = store.Picture(job, 1, {.room = kRoom}, cancel);
    if (!picture) Fail(picture.message());
  };
  const auto draw = [&] {
    const RunResult result = RunProgram({"pdftoppm", "-f", "1", "-l", "1", "-scale-to",
                                         std::to_string(kRoom.height), numbered, out / "page"});
    if (result.status != 0) Fail(result.err);
  };
  change("Behind");
  draw();
  Measures measures;
  for (int round = std::max(1, std::atoi(argv[1])); round > 0; --round) {
    auto &sides = measures["preview"];
    sides["behind"].push_back(Seconds([&] { change("Behind"); }));
    sides["pdftoppm"].push_back(Seconds(draw));
    sides["automatic"].push_back(Seconds([&] { change("Automatic"); }));
  }
  WriteMeasures(measures, out / "preview.txt");
  return 0;
}
