#include "numbering/pdf/PageContent.h"

#include <exception>
#include <functional>
#include <qpdf/Pipeline.hh>
#include <stdexcept>
#include <string_view>

#include "numbering/pdf/ContentScanner.h"

namespace numbering {

namespace {

// A few bytes may unpack to any number of them.
constexpr size_t kLongestContent = 256 << 20;

class Parts : public Pipeline {
 public:
  explicit Parts(std::function<void(std::string_view)> take)
      : Pipeline("content", nullptr), take_(std::move(take)) {}
  void write(const unsigned char *data, size_t size) override {
    total_ += size;
    if (total_ > kLongestContent) throw std::runtime_error("its instructions are too long");
    take_({reinterpret_cast<const char *>(data), size});
  }
  void finish() override {}

 private:
  std::function<void(std::string_view)> take_;
  size_t total_ = 0;
};

// What can be read of the streams, as viewers read it. False: some of it cannot be unpacked here.
template <typename Take, typename EndStream>
bool Read(std::vector<QPDFObjectHandle> &streams, Take take, EndStream end_stream) {
  Parts parts(take);
  for (QPDFObjectHandle &stream : streams) {
    bool unpacked = false;
    stream.pipeStreamData(&parts, &unpacked, 0, qpdf_dl_generalized, true);
    if (!unpacked) return false;
    end_stream();
  }
  return true;
}

std::string SoundPart(std::vector<QPDFObjectHandle> &streams, const ContentScanner &scanner) {
  std::string content;
  Read(
      streams, [&](std::string_view part) { content += part; }, [&] { content += '\n'; });
  content.resize(scanner.sound_size());
  return content;
}

std::string Saves(size_t count) {
  std::string saves;
  for (; count > 0; --count) saves += "q ";
  return saves + '\n';
}

}  // namespace

PageContent::PageContent(QPDF &pdf, QPDFPageObjectHelper &page)
    : pdf_(pdf), page_(page.getObjectHandle()) {
  QPDFObjectHandle contents = page_.getKey("/Contents");
  if (contents.isStream()) {
    streams_.push_back(contents);
  } else if (contents.isArray()) {
    for (int at = 0; at < contents.getArrayNItems(); ++at) {
      QPDFObjectHandle item = contents.getArrayItem(at);
      if (item.isStream()) streams_.push_back(item);
    }
  }
}

QPDFObjectHandle PageContent::Stream(const std::string &instructions) {
  return QPDFObjectHandle::newStream(&pdf_, instructions);
}

void PageContent::Replace(const std::vector<QPDFObjectHandle> &streams) {
  page_.replaceKey("/Contents", QPDFObjectHandle::newArray(streams));
}

void PageContent::PutBefore(const std::string &instructions) {
  std::vector<QPDFObjectHandle> streams = {Stream(instructions)};
  streams.insert(streams.end(), streams_.begin(), streams_.end());
  Replace(streams);
}

bool PageContent::PutAfter(const std::string &instructions, const QPDFObjectHandle &save) {
  ContentScanner scanner;
  std::vector<QPDFObjectHandle> streams;
  try {
    const auto take = [&](std::string_view part) { scanner.Take(part); };
    if (!Read(streams_, take, [&] { scanner.EndStream(); })) return false;
    streams.push_back(
        scanner.excess_restores() == 0 ? save : Stream(Saves(scanner.excess_restores() + 1)));
    if (scanner.IsSound()) {
      streams.insert(streams.end(), streams_.begin(), streams_.end());
    } else {
      streams.push_back(Stream(SoundPart(streams_, scanner)));
    }
  } catch (const std::exception &) {
    return false;
  }
  streams.push_back(Stream('\n' + scanner.Closing() + "Q\n" + instructions));
  Replace(streams);
  return true;
}

}  // namespace numbering
