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

// The instructions as one, up to an operand that never ends, and without restores of what was not
// saved: these would undo what is saved before the page. So it looks as in viewers that pass over
// them.
std::string Mended(std::vector<QPDFObjectHandle> &streams, size_t sound_size) {
  std::string content;
  ContentScanner scanner([&](size_t at) { content[at] = ' '; });
  const auto take = [&](std::string_view part) {
    content += part;
    scanner.Take(part);
  };
  const auto end_stream = [&] {
    content += '\n';
    scanner.EndStream();
  };
  Read(streams, take, end_stream);
  content.resize(sound_size);
  return content;
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
    streams.push_back(save);
    if (scanner.IsSound() && scanner.excess_restores() == 0) {
      streams.insert(streams.end(), streams_.begin(), streams_.end());
    } else {
      streams.push_back(Stream(Mended(streams_, scanner.sound_size())));
    }
  } catch (const std::exception &) {
    return false;
  }
  streams.push_back(Stream('\n' + scanner.Closing() + "Q\n" + instructions));
  Replace(streams);
  return true;
}

}  // namespace numbering
