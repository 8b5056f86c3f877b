// A value, or why there is none.

#ifndef HOST_BASE_EXPECTED_H
#define HOST_BASE_EXPECTED_H

#include <string>
#include <utility>
#include <variant>

struct Failure {
  std::string message;         // for people: what, where, what to do; no full stop, no line end
  bool is_unanswered = false;  // the one who was asked could not be reached, or did not answer
};

template <typename Value>
class [[nodiscard]] Expected {
 public:
  Expected(Value value) : content_(std::move(value)) {}
  Expected(Failure failure) : content_(std::move(failure)) {}

  explicit operator bool() const { return std::holds_alternative<Value>(content_); }

  // Only with a value.
  Value &operator*() { return *std::get_if<Value>(&content_); }
  Value *operator->() { return std::get_if<Value>(&content_); }

  // Only without one.
  const Failure &failure() const { return *std::get_if<Failure>(&content_); }
  const std::string &message() const { return failure().message; }

 private:
  std::variant<Value, Failure> content_;
};

#endif
