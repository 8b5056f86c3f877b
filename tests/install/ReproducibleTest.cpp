// What objects say of where they were made, by cmake/Reproducible.cmake.

#include <gtest/gtest.h>

#include "tests/support/RunProgram.h"

namespace {

// The conversion to the lambda has no name but one after the lambda's place.
constexpr char kSource[] = R"(
template <typename Work>
struct Reference {
  operator Work &() const { return *work; }
  Work *work;
};
template <typename Work>
int Call(Work work) {
  const Reference<Work> reference{&work};
  return static_cast<Work &>(reference)();
}
int Answer() {
  return Call([] { return 1; });
}
)";

constexpr char kProject[] = R"(
cmake_minimum_required(VERSION 3.25)
project(Sample CXX)
include(")" SOURCE_DIRECTORY R"(/cmake/Reproducible.cmake")
add_library(Sample STATIC Sample.cpp)
)";

}  // namespace

// Packages have it in files of their own, whose checksums and numbers are in the programs.
TEST(Reproducible, DebuggingInformationHasNoPathWhereThoseAreMapped) {
  const TemporaryFolder folder;
  const std::string path = folder.path();
  folder.Write("Sample.cpp", kSource);
  folder.Write("CMakeLists.txt", kProject);
  const RunResult configured =
      RunProgram({CMAKE_PROGRAM, "-G", "Ninja", "-S", path, "-B", path + "/build", "-D",
                  "CMAKE_CXX_COMPILER=" CXX_COMPILER, "-D",
                  "CMAKE_CXX_FLAGS=-g -ffile-prefix-map=" + path + "=."});
  ASSERT_EQ(0, configured.status) << configured.out << configured.err;
  const RunResult built = RunProgram({CMAKE_PROGRAM, "--build", path + "/build"});
  ASSERT_EQ(0, built.status) << built.out << built.err;
  const std::string library = ContentOf(path + "/build/libSample.a");
  ASSERT_NE(std::string::npos, library.find("operator (lambda at "));
  const size_t at = library.find(path);
  EXPECT_EQ(std::string::npos, at) << library.substr(at, library.find('\0', at) - at);
}
