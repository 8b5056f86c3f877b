// Lines of PPD files for printers that take paper of any size.

#ifndef TESTS_SUPPORT_CUSTOMPAPER_H
#define TESTS_SUPPORT_CUSTOMPAPER_H

inline constexpr char kCustomSizes[] =
    "*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n*MaxMediaWidth: 1000\n*MaxMediaHeight: 1000\n"
    "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n*CustomPageSize True: \"\"\n"
    "*ParamCustomPageSize Width: 1 points 36 1000\n"
    "*ParamCustomPageSize Height: 2 points 36 1000\n";

#endif
