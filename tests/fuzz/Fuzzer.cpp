// The library that looks for input, on the target that is named FUZZ_TARGET.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "tests/fuzz/Targets.h"
#include "tests/support/TestProcess.h"

namespace {

constexpr const fuzz::Target &kTarget =
    *std::ranges::find(fuzz::kTargets, std::string_view(FUZZ_TARGET), &fuzz::Target::name);

}  // namespace

extern "C" int LLVMFuzzerInitialize(int * /*count*/, char ***arguments) {
  SpeakEnglish(*arguments);
  StartApplication();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
  const std::string finding = kTarget.run({reinterpret_cast<const char *>(bytes), size});
  if (finding.empty()) return 0;
  std::cerr << "FINDING: " << finding << '\n';
  std::abort();
}
