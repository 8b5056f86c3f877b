# Every source of ours is compiled with these. The presets make a warning stop the build; nobody else's
# newer compiler is to.
#
# -Wdeprecated-declarations stays off: the PPD calls and the one-argument layout loader are deprecated
# in their libraries, and both are what this interface is made of.
add_compile_options(-Wall -Wextra -Wpedantic -Wno-deprecated-declarations)
