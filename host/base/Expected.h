// A value, or why there is none: the one shape in which operations fail.
//
// tl::expected would do as much, but every place that fails would have to wrap its failure, and an
// exception would wait behind value(), which frames of Objective-C++ must never see.

#ifndef HOST_BASE_EXPECTED_H
#define HOST_BASE_EXPECTED_H

#include <optional>
#include <string>
#include <utility>
#include <variant>

struct Failure {
  std::string message;          // for people: what, where, what to do; no full stop, no line end
  bool is_unanswered = false;   // the one who was asked could not be reached, or did not answer
  bool wants_password = false;  // and got none that is right: who tries again, asks the user again

  // The same failure in words that say more of where it happened.
  Failure Reworded(std::string words) const {
    return {std::move(words), is_unanswered, wants_password};
  }
};

// A failure of somebody else's is passed on whole: `if (!value) return value.failure();`, or
// Reworded.
template <typename Value>
class [[nodiscard]] Expected {
 public:
  Expected(Value value) : content_(std::move(value)) {}
  Expected(Failure failure) : content_(std::move(failure)) {}

  explicit operator bool() const { return std::holds_alternative<Value>(content_); }

  // Only with a value.
  Value &operator*() { return *std::get_if<Value>(&content_); }
  const Value &operator*() const { return *std::get_if<Value>(&content_); }
  Value *operator->() { return std::get_if<Value>(&content_); }
  const Value *operator->() const { return std::get_if<Value>(&content_); }

  // Only without one.
  const Failure &failure() const { return *std::get_if<Failure>(&content_); }
  const std::string &message() const { return failure().message; }

 private:
  std::variant<Value, Failure> content_;
};

// Whether something was done; or why not.
template <>
class [[nodiscard]] Expected<void> {
 public:
  Expected() = default;
  Expected(Failure failure) : failure_(std::move(failure)) {}

  explicit operator bool() const { return !failure_; }

  // Only where it was not done.
  const Failure &failure() const { return *failure_; }
  const std::string &message() const { return failure_->message; }

 private:
  std::optional<Failure> failure_;
};

#endif
