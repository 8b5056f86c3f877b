# A Debian package for each component of the installation:
#
#   library   libprintcoreN                          what bundle and program share
#   bundle    background-numbering                   the panel
#   program   pdeprint                               the print dialog and its command line
#   printers  printer-driver-background-numbering    the PPD files
#
# packaging/debian/finish.cmake adds what Debian wants beyond the installed files.

set(CPACK_GENERATOR DEB)
set(CPACK_SOURCE_GENERATOR "")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library bundle program printers)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

set(DEBIAN ${PROJECT_SOURCE_DIR}/packaging/debian)
set(CPACK_PROJECT_CONFIG_FILE ${DEBIAN}/config.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${DEBIAN}/finish.cmake)
set(CPACK_DEBIAN_PACKAGE_SOURCE ${CPACK_PACKAGE_NAME})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(LIBRARY libprintcore${PROJECT_VERSION_MAJOR})
set(SHLIBS ${PROJECT_BINARY_DIR}/packaging/shlibs)
file(CONFIGURE OUTPUT ${SHLIBS}
     CONTENT "libPrintCore ${PROJECT_VERSION_MAJOR} ${LIBRARY} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${LIBRARY})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${SHLIBS} ${DEBIAN}/triggers)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
"print settings for print-dialog extensions on GNUstep
The library holds the print settings of a job and the identifiers of
controls. A print dialog and the extension bundles that it loads meet in it,
such as pdeprint and background-numbering.")

set(CPACK_DEBIAN_BUNDLE_PACKAGE_NAME background-numbering)
set(CPACK_DEBIAN_BUNDLE_PACKAGE_SECTION gnustep)
set(CPACK_DEBIAN_BUNDLE_PACKAGE_RECOMMENDS pdeprint)
set(CPACK_DEBIAN_BUNDLE_PACKAGE_SUGGESTS printer-driver-background-numbering)
set(CPACK_DEBIAN_BUNDLE_DESCRIPTION
"print-dialog panel for numbers in the background of pages
This extension bundle adds a panel to the print dialog of printers that can
print a number in the background of every page: 25 on the first, 26 on the
second, and so on. The panel switches it on, and sets size, density, color
and the number of the first page.

The print dialog comes with the package pdeprint. It also adds the function
to the PPD files of PostScript printers that lack it; ready PPD files are in
the package printer-driver-background-numbering.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME pdeprint)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION gnustep)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS background-numbering)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "cups, printer-driver-background-numbering, fonts-noto-cjk")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"print dialog for GNUstep and CUPS that loads extension bundles
pdeprint prints documents on the queues of a print server. Its dialog shows
the panels of extension bundles, such as background-numbering, the printer's
own options and a summary, and keeps settings as presets. What the panels set
are options of the job.

The same can be done from scripts, without a display. pdeprint also says on
which queues a panel is offered, and adds the options that a bundle brings
along to the PPD file of a PostScript printer.")

set(CPACK_DEBIAN_PRINTERS_PACKAGE_NAME printer-driver-background-numbering)
set(CPACK_DEBIAN_PRINTERS_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PRINTERS_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PRINTERS_PACKAGE_RECOMMENDS "cups, cups-filters")
set(CPACK_DEBIAN_PRINTERS_PACKAGE_SUGGESTS pdeprint)
set(CPACK_DEBIAN_PRINTERS_PACKAGE_ENHANCES "cups, background-numbering")
set(CPACK_DEBIAN_PRINTERS_DESCRIPTION
"PPD files for PostScript printers with numbers behind pages
With one of these two printer descriptions, for printers with color and for
those without, a PostScript printer prints a number in the background of
every page when a job asks for it. All programs that print through the queue
can use it; a panel for it is in the package background-numbering.")
