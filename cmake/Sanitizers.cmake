option(SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

if(SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
