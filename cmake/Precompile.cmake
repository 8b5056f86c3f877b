# precompile_headers(<target>)
#
# What most sources of a large target include is read once for all of them, if that is wanted: it halves
# the time of a first build. Tools that read the sources without building them cannot have it.

option(PRECOMPILE_HEADERS "Read what many sources include only once" OFF)

function(precompile_headers target)
  if(PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE
      <chrono> <filesystem> <functional> <map> <memory> <optional> <string> <vector>
      "$<$<COMPILE_LANGUAGE:OBJCXX>:<Cocoa/Cocoa.h$<ANGLE-R>>")
  endif()
endfunction()
