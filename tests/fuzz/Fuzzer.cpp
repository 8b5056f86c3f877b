// The target that the variable FUZZ_TARGET names, for the library that looks for input.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "tests/fuzz/Targets.h"
#include "tests/support/TestProcess.h"

namespace {

const fuzz::Target &TargetOfUser() {
  const char *name = std::getenv("FUZZ_TARGET");
  const auto *const found =
      std::ranges::find(fuzz::kTargets, name == nullptr ? "" : name, &fuzz::Target::name);
  if (found != std::end(fuzz::kTargets)) return *found;
  std::cerr << "FUZZ_TARGET must be one of";
  for (const fuzz::Target &target : fuzz::kTargets) std::cerr << ' ' << target.name;
  std::cerr << '\n';
  std::exit(1);
}

const fuzz::Target *target = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int * /*count*/, char ***arguments) {
  SpeakEnglish(*arguments);
  target = &TargetOfUser();
  StartApplication();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
  const std::string finding = target->run({reinterpret_cast<const char *>(bytes), size});
  if (finding.empty()) return 0;
  std::cerr << "FINDING: " << finding << '\n';
  std::abort();
}
