// What libcups takes to open PPD files and look two attributes up.
//   open_ppds PPD...

#include <cups/ppd.h>

#include <cstdio>

int main(int argc, char **argv) {
  for (int i = 1; i < argc; ++i) {
    ppd_file_t *ppd = ppdOpenFile(argv[i]);
    if (ppd == nullptr) return 1;
    const ppd_attr_t *support = ppdFindAttr(ppd, "VQBackgroundNumberingSupport", nullptr);
    const ppd_attr_t *color = ppdFindAttr(ppd, "ColorDevice", nullptr);
    printf("%s: %s, %s\n", argv[i], support == nullptr ? "no" : support->value,
           color == nullptr ? "no" : color->value);
    ppdClose(ppd);
  }
  return 0;
}
