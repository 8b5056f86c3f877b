# Targets PkgConfig::QPDF, which writes PDF files, and PkgConfig::POPPLER, which shows them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET GLOBAL libqpdf)
pkg_check_modules(POPPLER REQUIRED IMPORTED_TARGET GLOBAL poppler-cpp)
