#include "tests/filter/FilterRun.h"

#include "tests/support/RawPdf.h"

namespace {

// All that a print server sets, or leaves out.
RunOptions OptionsOf(const EnvironmentChanges &environment) {
  RunOptions options;
  options.environment = environment;
  for (const char *variable : {"PPD", "CONTENT_TYPE", "FINAL_CONTENT_TYPE"}) {
    options.environment.emplace(variable, std::nullopt);
  }
  return options;
}

Filtered Run(const std::string &document, const std::string &shell, const std::string &options,
             const EnvironmentChanges &environment) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("document", document);
  const RunResult result =
      RunProgram({"bash", "-c", shell, "-", kFilter, options, file}, OptionsOf(environment));
  return {result.status, result.out, result.err};
}

}  // namespace

Filtered Filter(const std::string &document, const std::string &options,
                const EnvironmentChanges &environment) {
  return Run(document, "cat \"$3\" | \"$1\" 1 user title 1 \"$2\"", options, environment);
}

Filtered FilterFile(const std::string &document, const std::string &options,
                    const EnvironmentChanges &environment) {
  return Run(document, "\"$1\" 1 user title 1 \"$2\" \"$3\"", options, environment);
}

std::string SmallPdf(int pages) {
  std::vector<RawPage> all;
  for (int page = 1; page <= pages; ++page) {
    all.push_back({"BT /F 12 Tf 50 750 Td (Page " + std::to_string(page) + ") Tj ET"});
  }
  return RawPdf(all);
}
