#include "host/dialog/OpenQuestion.h"

#include <gtest/gtest.h>

#include <future>

#include "tests/support/ExpectedValue.h"
#include "tests/support/Patience.h"

namespace {

// Somebody who asks.
class Asker {
 public:
  Asker(OpenQuestion &open, const std::string &user)
      : answer_(std::async(std::launch::async, [this, &open, user] {
          return open.Ask({.reason = "it wants one", .mistake = "", .user = user}, is_withdrawn_);
        })) {}
  ~Asker() { Withdraw(); }

  void Withdraw() { is_withdrawn_ = true; }
  // Waits for it.
  Expected<Login> Answer() { return answer_.get(); }

 private:
  std::atomic<bool> is_withdrawn_ = false;
  std::future<Expected<Login>> answer_;
};

// The number of this user's question, once it is there.
int NumberOf(const OpenQuestion &open, const std::string &user) {
  EXPECT_TRUE(Becomes([&] { return open.Get() && open.Get()->question.user == user; }));
  return open.Get()->number;
}

}  // namespace

TEST(OpenQuestion, IsAnswered) {
  OpenQuestion open;
  Asker asker(open, "ann");
  open.Answer(NumberOf(open, "ann"), Login{"ann", Secret("right")});
  const Expected<Login> login = asker.Answer();
  ASSERT_TRUE(login) << login.message();
  EXPECT_EQ(login->user, "ann");
  EXPECT_FALSE(open.Get());
}

TEST(OpenQuestion, GetsNoAnswerToOneThatWasWithdrawn) {
  OpenQuestion open;
  Asker first(open, "ann");
  const int of_first = NumberOf(open, "ann");
  first.Withdraw();
  EXPECT_FALSE(first.Answer());
  Asker second(open, "ben");
  const int of_second = NumberOf(open, "ben");
  EXPECT_FALSE(open.IsOpen(of_first));
  open.Answer(of_first, Login{"ann", Secret("hers")});
  open.Answer(of_first, std::nullopt);
  EXPECT_TRUE(open.IsOpen(of_second));
  open.Answer(of_second, Login{"ben", Secret("his")});
  const Expected<Login> login = second.Answer();
  ASSERT_TRUE(login) << login.message();
  EXPECT_EQ(login->user, "ben");
}

TEST(OpenQuestion, IsNotAskedOnceNobodyIsThere) {
  OpenQuestion open;
  Asker waiting(open, "ann");
  NumberOf(open, "ann");
  open.Close();
  EXPECT_FALSE(waiting.Answer());
  EXPECT_FALSE(Asker(open, "ben").Answer());
}
