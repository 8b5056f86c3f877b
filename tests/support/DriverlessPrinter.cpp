#include "tests/support/DriverlessPrinter.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr char kAbilities[] = R"(
ATTR text printer-make-and-model "Test Driverless"
ATTR keyword media-supported "iso_a4_210x297mm"
ATTR keyword media-default "iso_a4_210x297mm"
ATTR keyword media-ready "iso_a4_210x297mm"
ATTR collection media-size-supported { MEMBER integer x-dimension 21000 MEMBER integer y-dimension 29700 }
ATTR integer media-bottom-margin-supported 0
ATTR integer media-left-margin-supported 0
ATTR integer media-right-margin-supported 0
ATTR integer media-top-margin-supported 0
ATTR boolean color-supported true
ATTR keyword print-color-mode-supported "auto","color","monochrome"
ATTR keyword print-color-mode-default "auto"
ATTR resolution printer-resolution-supported 75dpi
ATTR resolution printer-resolution-default 75dpi
ATTR keyword pwg-raster-document-type-supported "sgray_8","srgb_8"
ATTR resolution pwg-raster-document-resolution-supported 75dpi
ATTR keyword urf-supported "V1.4","CP1","W8","SRGB24","RS75"
ATTR rangeOfInteger copies-supported 1-99
ATTR keyword sides-supported "one-sided","two-sided-long-edge","two-sided-short-edge"
ATTR keyword sides-default "one-sided"
)";

std::string Description(const std::vector<std::string> &types) {
  std::string list = "\"application/octet-stream\"";
  for (const std::string &type : types) list += ",\"" + type + '"';
  return "ATTR mimeMediaType document-format-supported " + list + kAbilities;
}

}  // namespace

DriverlessPrinter::DriverlessPrinter(const std::vector<std::string> &types) {
  const fs::path description = folder_.Write("description", Description(types));
  const fs::path kept = folder_.path() / "kept";
  fs::create_directory(kept);
  // With a command it does not take the time that a real one would take to print.
  program_ = std::make_unique<RunningProgram>(
      std::vector<std::string>{"setpriv", "--pdeathsig", "KILL", "/usr/sbin/ippeveprinter", "-p",
                               std::to_string(port_.number()), "-n", "localhost", "-a", description,
                               "-d", kept, "-k", "-c", "/bin/true", "Printer"},
      RunOptions{
          .environment = {{"LD_PRELOAD", UNANNOUNCED_LIBRARY}, {"HOME", folder_.path().string()}}});
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (std::chrono::steady_clock::now() < deadline && !program_->HasEnded(10ms)) {
    if (const int connection = port_.Connect(); connection >= 0) {
      close(connection);
      return;
    }
  }
  std::cerr << "ippeveprinter does not start: " << program_->Wait(1ms).err << '\n';
  std::abort();
}

std::string DriverlessPrinter::uri() const { return "ipp://" + port_.address() + "/ipp/print"; }

std::string DriverlessPrinter::Got(const std::string &title) const {
  for (const fs::directory_entry &entry : fs::directory_iterator(folder_.path() / "kept")) {
    // "NUMBER-TITLE.KIND"; of the kind prn is what the command has written.
    const std::string name = entry.path().stem();
    if (entry.path().extension() == ".prn") continue;
    if (name.substr(name.find('-') + 1) == title) return ContentOf(entry.path());
  }
  ADD_FAILURE() << "the printer got nothing of the job " << title;
  return "";
}
