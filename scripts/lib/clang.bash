# Sourced by the scripts that call tools of clang.

# Where a tool is, as the build would find it; of one version of clang if that is given.
#   clang_tool NAME [VERSION]
clang_tool() {
  cmake -D TOOL="$1" ${2:+-D VERSION="$2"} -P "$project/cmake/ClangTools.cmake"
}
