// Measures whole programs, from their start, beside others that do the same.
//   program_bench ROUNDS PPD-FOLDER OUT
// OUT is a folder for the values (programs.txt) and for pictures of the dialogs.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "bench/programs/Dialogs.h"
#include "bench/programs/Program.h"
#include "tests/support/PrivateServer.h"

namespace fs = std::filesystem;

namespace {

constexpr char kQueue[] = "Office";
const char kDocument[] = SOURCE_DIRECTORY "/scripts/lib/sample-document.ps";

using Command = std::vector<std::string>;

// The sides are run in an order that changes from round to round.
void Hold(const std::string &measure, std::vector<std::pair<std::string, Command>> sides,
          int rounds, const EnvironmentChanges &environment, Measures &measures) {
  const auto run = [&environment](const Command &command) {
    return Program(command, environment).SecondsUntilEnd();
  };
  for (const auto &[side, command] : sides) run(command);  // what is read lies in memory then
  for (int round = 0; round < rounds; ++round) {
    for (const auto &[side, command] : sides) measures[measure][side].push_back(run(command));
    std::rotate(sides.begin(), sides.begin() + 1, sides.end());
  }
}

std::vector<std::string> PPDFiles(const fs::path &folder) {
  std::vector<std::string> files;
  for (const auto &entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".ppd") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

Command With(Command command, const std::vector<std::string> &arguments) {
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 4) {
    std::cerr << "usage: program_bench ROUNDS PPD-FOLDER OUT\n";
    return 2;
  }
  const int rounds = std::atoi(argv[1]);
  const std::vector<std::string> ppds = PPDFiles(argv[2]);
  const fs::path out = argv[3];
  const std::string pdeprint = BINARY_DIRECTORY "/pdeprint";

  const PrivateServer server;
  server.AddQueue({.name = kQueue, .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"});
  Measures measures;
  MeasureDialogs(rounds, server, kQueue, out, measures);
  // What is sent is not printed while others are measured.
  server.StopQueue(kQueue, "measuring");
  Hold("print",
       {{"ours",
         {pdeprint, "print", "-d", kQueue, "--set", "Valid=On", "--set", "StartNumber=25",
          kDocument}},
        {"platform",
         {"lp", "-d", kQueue, "-o", "VQBackgroundNumbering=On", "-o", "VQStartNumber=25",
          kDocument}},
        {"bundle-loaded",
         {BENCH_DIRECTORY "/load_bundle", BINARY_DIRECTORY "/BackgroundNumbering.plugin"}}},
       rounds, server.Environment(), measures);
  Hold("check",
       {{"ours", With({pdeprint, "check"}, ppds)},
        {"platform", With({BENCH_DIRECTORY "/open_ppds"}, ppds)}},
       std::max(3, rounds / 3), server.Environment(), measures);
  WriteMeasures(measures, out / "programs.txt");
  return 0;
}
