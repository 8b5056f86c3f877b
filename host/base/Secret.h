// A text that leaves nothing behind in memory.

#ifndef HOST_BASE_SECRET_H
#define HOST_BASE_SECRET_H

#include <string.h>

#include <memory>
#include <string>

// Overwrites the text, and empties it.
inline void Wipe(std::string &text) {
  text.resize(text.capacity());
  explicit_bzero(text.data(), text.size());
  text.clear();
}

// Copies share the one text, which is overwritten when the last of them goes.
class Secret {
 public:
  Secret() : Secret("") {}
  // Takes the text over: nothing stays of it where it was.
  explicit Secret(std::string &&text)
      : text_(new std::string(text), [](std::string *owned) {
          Wipe(*owned);
          delete owned;
        }) {
    Wipe(text);
  }

  const char *c_str() const { return text_->c_str(); }

 private:
  std::shared_ptr<std::string> text_;
};

#endif
