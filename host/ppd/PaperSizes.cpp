#include "host/ppd/PaperSizes.h"

#include <algorithm>
#include <span>

#include "host/ppd/CustomChoice.h"

std::optional<PaperSize> PaperSizeOf(const PPDFile &ppd, const std::string &choice) {
  const ppd_file_t &file = *ppd.get();
  const std::span<const ppd_size_t> sizes(file.sizes, static_cast<size_t>(file.num_sizes));
  const auto found = std::ranges::find_if(
      sizes, [&choice](const ppd_size_t &size) { return choice == size.name; });
  if (found == sizes.end() || found->width <= 0 || found->length <= 0) return std::nullopt;
  return PaperSize{found->width, found->length};
}

std::optional<Paper> PaperOf(const PPDFile &ppd, const std::string &choice) {
  // For a custom size libcups writes it into the file's own entry for those.
  const ppd_size_t *size = ppdPageSize(ppd.get(), choice.c_str());
  if (size == nullptr || size->width <= 0 || size->length <= 0) return std::nullopt;
  return Paper{.size = {size->width, size->length},
               .top = size->length - size->top,
               .bottom = size->bottom,
               .left = size->left,
               .right = size->width - size->right};
}

std::optional<CustomPaperSizes> CustomPaperSizesOf(const PPDFile &ppd) {
  ppd_option_t *option = ppdFindOption(ppd.get(), "PageSize");
  if (option == nullptr || ppdFindChoice(option, kCustomChoice) == nullptr) return std::nullopt;
  const ppd_file_t &file = *ppd.get();
  CustomPaperSizes sizes;
  if (file.custom_max[0] > 0 && file.custom_max[1] > 0) {
    sizes.least = {file.custom_min[0], file.custom_min[1]};
    sizes.most = {file.custom_max[0], file.custom_max[1]};
  }
  return sizes;
}
