#include "portal/Tokens.h"

#include <gmock/gmock.h>

#include <set>

namespace {

using namespace std::chrono_literals;

const Caller kEditor = {":1.2", ":1.7", "org.example.Editor"};

class TokensTest : public testing::Test {
 protected:
  uint32_t Give(const std::string &queue, const Caller &caller = kEditor) {
    Expected<PrivateFolder> folder = PrivateFolder::Make();
    folders_.push_back(folder->path());
    return tokens_.Give(caller, {queue, std::move(*folder)}, now_);
  }
  // "-": no job.
  std::string Take(uint32_t token, const Caller &caller = kEditor) {
    const auto job = tokens_.Take(token, caller, now_);
    return job ? job->queue : "-";
  }

  Tokens tokens_;
  Tokens::Clock::time_point now_ = Tokens::Clock::now();
  std::vector<std::filesystem::path> folders_;
};

}  // namespace

TEST_F(TokensTest, AnswerForTheirJobOnce) {
  const uint32_t office = Give("Office"), laser = Give("Laser");
  EXPECT_EQ("Laser", Take(laser));
  EXPECT_EQ("Office", Take(office));
  EXPECT_EQ("-", Take(office));
  EXPECT_EQ(0U, tokens_.size());
}

TEST_F(TokensTest, AreNothingToOthers) {
  const uint32_t token = Give("Office");
  EXPECT_EQ("-", Take(token, {":1.3", ":1.7", "org.example.Editor"}));
  EXPECT_EQ("-", Take(token, {":1.2", ":1.8", "org.example.Editor"}));
  EXPECT_EQ("-", Take(token, {":1.2", ":1.7", "org.example.Other"}));
  EXPECT_EQ("Office", Take(token));
}

TEST_F(TokensTest, CannotBeGuessed) {
  std::set<uint32_t> tokens;
  uint32_t all = 0;
  for (size_t count = 0; count < Tokens::kMost; ++count) {
    const uint32_t token = Give("Office");
    tokens.insert(token);
    all |= token;
  }
  EXPECT_EQ(Tokens::kMost, tokens.size());
  EXPECT_FALSE(tokens.contains(0));
  EXPECT_EQ(UINT32_MAX, all) << "a part of the bits is never used";
}

TEST_F(TokensTest, EndAfterAnHour) {
  const uint32_t token = Give("Office");
  EXPECT_EQ(now_ + Tokens::kLifetime, tokens_.NextEnd());
  now_ += Tokens::kLifetime - 1ms;
  tokens_.DropOld(now_);
  EXPECT_EQ(1U, tokens_.size());
  now_ += 1ms;
  EXPECT_EQ("-", Take(token));
  EXPECT_EQ(std::nullopt, tokens_.NextEnd());
}

TEST_F(TokensTest, EndWithTheApplicationAndWithThePortal) {
  const uint32_t kept = Give("Office", {":1.2", ":1.8", ""});
  Give("Office");
  tokens_.Forget(":1.7");
  EXPECT_EQ(1U, tokens_.size());
  EXPECT_FALSE(std::filesystem::exists(folders_.back()));
  tokens_.Forget(":1.2");
  EXPECT_EQ(0U, tokens_.size());
  EXPECT_EQ("-", Take(kept, {":1.2", ":1.8", ""}));
}

TEST_F(TokensTest, AreFewAndTheOldestGivesWay) {
  const uint32_t first = Give("First");
  now_ += 1s;
  const uint32_t second = Give("Second");
  now_ += 1s;
  for (size_t count = 2; count <= Tokens::kMost; ++count) Give("More");
  EXPECT_EQ(Tokens::kMost, tokens_.size());
  EXPECT_EQ("-", Take(first));
  EXPECT_EQ("Second", Take(second));
}
