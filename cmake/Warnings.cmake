# Every source of ours is compiled with these; a warning stops the build.
#
# -Wdeprecated-declarations stays off: the PPD calls and the one-argument layout loader are deprecated
# in their libraries, and both are what this interface is made of.
add_compile_options(-Wall -Wextra -Wpedantic -Werror -Wno-deprecated-declarations)
