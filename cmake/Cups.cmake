# Target Cups::Cups, from the module that CMake ships.
find_package(Cups REQUIRED)
