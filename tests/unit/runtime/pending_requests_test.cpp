// Parked requests: numbers, groups that share an answer, the message to the host, and their end.

#include "runtime/pending_requests.h"

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "handler/posted_message.h"
#include "runtime/main_window.h"
#include "unit/dialogs/owner_window.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using testing::HandleMessages;
using ::testing::IsEmpty;
using testing::OwnerWindow;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

// What became of the requests of a test, each under its name.
struct Fates {
  std::vector<std::string> asked;
  std::vector<std::pair<std::string, int>> answers;
  std::vector<std::string> freed;
  HWND main_window = nullptr;
  std::optional<int> choice = 3;
  // Called while a request is asked about.
  std::function<void()> during_question;
};

class NamedRequest final : public ParkedRequest {
 public:
  NamedRequest(std::string name, Fates& fates) : name_(std::move(name)), fates_(fates) {}
  ~NamedRequest() override { fates_.freed.push_back(name_); }

  std::optional<int> Ask(HWND main_window) noexcept override {
    fates_.asked.push_back(name_);
    fates_.main_window = main_window;
    if (fates_.during_question) {
      fates_.during_question();
    }
    return fates_.choice;
  }
  void Answer(int choice) noexcept override { fates_.answers.emplace_back(name_, choice); }

 private:
  const std::string name_;
  Fates& fates_;
};

class PendingRequestsTest : public ::testing::Test {
 protected:
  HostThreadDispatcher::Identifier Park(const std::string& key, const std::string& name) {
    return requests_->ParkRequest(key, std::make_unique<NamedRequest>(name, fates_));
  }

  // Before the dispatcher, whose requests write to it.
  Fates fates_;
  const CefRefPtr<HostThreadDispatcher> requests_ = new PendingRequests();
};

TEST_F(PendingRequestsTest, NumbersFromOneOn) {
  EXPECT_EQ(Park("a:1", "first"), 1u);
  EXPECT_EQ(Park("b:1", "second"), 2u);
  requests_->ProcessRequest(1);
  EXPECT_EQ(Park("a:1", "third"), 3u);
}

TEST_F(PendingRequestsTest, LetsARequestWithAKnownKeyJoin) {
  EXPECT_EQ(Park("a:1", "first"), 1u);
  EXPECT_EQ(Park("a:1", "second"), 0u);
  EXPECT_EQ(Park("a:2", "other port"), 2u);
}

TEST_F(PendingRequestsTest, SharesItsTablesAmongAllItsObjects) {
  EXPECT_FALSE(requests_->HasPendingWork());
  EXPECT_EQ(Park("a:1", "first"), 1u);
  const CefRefPtr<HostThreadDispatcher> other = new PendingRequests();
  EXPECT_TRUE(other->HasPendingWork());
  EXPECT_EQ(other->ParkRequest("a:1", std::make_unique<NamedRequest>("second", fates_)), 0u);
  other->ProcessRequest(1);
  EXPECT_FALSE(requests_->HasPendingWork());
  EXPECT_THAT(fates_.answers, ElementsAre(Pair("first", 3), Pair("second", 3)));
}

TEST_F(PendingRequestsTest, AsksOnceForAllThatJoined) {
  Park("a:1", "first");
  Park("b:1", "elsewhere");
  Park("a:1", "second");
  Park("a:1", "third");
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.asked, ElementsAre("first"));
  EXPECT_THAT(fates_.answers, ElementsAre(Pair("first", 3), Pair("second", 3), Pair("third", 3)));
  EXPECT_THAT(fates_.freed, ElementsAre("first", "second", "third"));
  EXPECT_TRUE(requests_->HasPendingWork());
}

TEST_F(PendingRequestsTest, PassesTheChoiceOfNoneOn) {
  fates_.choice = -1;
  Park("a:1", "first");
  Park("a:1", "second");
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.answers, ElementsAre(Pair("first", -1), Pair("second", -1)));
}

TEST_F(PendingRequestsTest, IgnoresIdentifiersThatItDoesNotKnow) {
  requests_->ProcessRequest(1);
  Park("a:1", "first");
  requests_->ProcessRequest(0);
  requests_->ProcessRequest(2);
  requests_->ProcessRequest(UINTPTR_MAX);
  EXPECT_THAT(fates_.asked, IsEmpty());
  requests_->ProcessRequest(1);
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.asked, ElementsAre("first"));
}

TEST_F(PendingRequestsTest, AsksAboutOneRequestOnceOnlyAtATime) {
  Park("a:1", "first");
  fates_.during_question = [&] {
    fates_.during_question = nullptr;
    requests_->ProcessRequest(1);
  };
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.asked, ElementsAre("first"));
  EXPECT_THAT(fates_.answers, ElementsAre(Pair("first", 3)));
}

TEST_F(PendingRequestsTest, AnswersThoseThatJoinDuringTheQuestion) {
  Park("a:1", "first");
  fates_.during_question = [&] {
    EXPECT_TRUE(requests_->HasPendingWork());
    // On another thread, as CEF's requests come: no lock is held during the question.
    std::jthread([&] {
      for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(Park("a:1", "late"), 0u);
      }
    }).join();
  };
  requests_->ProcessRequest(1);
  EXPECT_EQ(fates_.answers.size(), 101u);
  EXPECT_EQ(fates_.freed.size(), 101u);
  EXPECT_FALSE(requests_->HasPendingWork());
}

TEST_F(PendingRequestsTest, FinishesAnotherRequestDuringTheQuestion) {
  Park("a:1", "first");
  Park("b:1", "second");
  fates_.during_question = [&] {
    fates_.during_question = nullptr;
    requests_->ProcessRequest(2);
  };
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.answers, ElementsAre(Pair("second", 3), Pair("first", 3)));
}

TEST_F(PendingRequestsTest, DropsUnansweredWhatCouldNotBeAsked) {
  fates_.choice.reset();
  Park("a:1", "first");
  Park("a:1", "second");
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.answers, IsEmpty());
  EXPECT_THAT(fates_.freed, ElementsAre("first", "second"));
  EXPECT_FALSE(requests_->HasPendingWork());
  EXPECT_EQ(Park("a:1", "third"), 2u);
}

TEST_F(PendingRequestsTest, AsksOverTheMainWindow) {
  UseThisThreadAsTheHosts();
  Park("a:1", "first");
  requests_->ProcessRequest(1);
  EXPECT_EQ(fates_.main_window, nullptr);
  const OwnerWindow window;
  Park("a:1", "second");
  requests_->ProcessRequest(2);
  EXPECT_EQ(fates_.main_window, window.handle());
}

TEST_F(PendingRequestsTest, PostsIdentifierAndHandlerToTheMainWindow) {
  OwnerWindow window(WS_OVERLAPPEDWINDOW);
  SetPropW(window.handle(), kMainWindowProperty, reinterpret_cast<HANDLE>(1));
  std::vector<std::pair<WPARAM, LPARAM>> messages;
  window.on_message = [&](UINT message, WPARAM wparam, LPARAM lparam) {
    EXPECT_EQ(message, 33090u);
    messages.emplace_back(wparam, lparam);
  };
  // Nobody looks behind this address.
  const auto* const handler = reinterpret_cast<const kzCefClientHandler*>(0x123456789ABC);
  std::jthread([&] { requests_->PostToMainWindow(7, handler); }).join();
  EXPECT_THAT(messages, IsEmpty());
  HandleMessages();
  EXPECT_THAT(messages, ElementsAre(Pair(7, 0x123456789ABC)));
}

TEST_F(PendingRequestsTest, PostsNothingWithoutAMainWindow) {
  UseThisThreadAsTheHosts();
  const OwnerWindow hidden(WS_OVERLAPPEDWINDOW);
  requests_->PostToMainWindow(Park("a:1", "first"), nullptr);
  MSG message;
  EXPECT_FALSE(
      PeekMessageW(&message, nullptr, kHostThreadMessage, kHostThreadMessage, PM_NOREMOVE));
  EXPECT_TRUE(requests_->HasPendingWork());
  EXPECT_THAT(fates_.freed, IsEmpty());
}

TEST_F(PendingRequestsTest, GivesEveryRequestANumberOfItsOwn) {
  constexpr int kEach = 200;
  constexpr int kThreads = 4;
  std::vector<std::vector<HostThreadDispatcher::Identifier>> identifiers(kThreads);
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([&, thread] {
        for (int i = 0; i < kEach; ++i) {
          identifiers[thread].push_back(
              Park(std::to_string(thread) + ":" + std::to_string(i), "one"));
        }
      });
    }
  }
  std::map<HostThreadDispatcher::Identifier, int> uses;
  for (const auto& of_thread : identifiers) {
    EXPECT_TRUE(std::is_sorted(of_thread.begin(), of_thread.end()));
    for (const auto identifier : of_thread) {
      ++uses[identifier];
    }
  }
  EXPECT_EQ(uses.size(), static_cast<size_t>(kEach * kThreads));
  EXPECT_EQ(uses.begin()->first, 1u);
  EXPECT_EQ(uses.rbegin()->first, static_cast<size_t>(kEach * kThreads));
}

TEST_F(PendingRequestsTest, EndsEveryRequestWithoutAChoice) {
  Park("b:1", "first");
  Park("a:1", "second");
  Park("b:1", "third");
  EndPendingRequests();
  EXPECT_THAT(fates_.answers,
              UnorderedElementsAre(Pair("first", -1), Pair("second", -1), Pair("third", -1)));
  EXPECT_EQ(fates_.freed.size(), 3u);
  EXPECT_FALSE(requests_->HasPendingWork());
  requests_->ProcessRequest(1);
  EXPECT_THAT(fates_.asked, IsEmpty());
}

TEST_F(PendingRequestsTest, KeepsARequestThatIsEndedDuringItsQuestion) {
  Park("a:1", "first");
  fates_.during_question = [&] {
    EndPendingRequests();
    EXPECT_THAT(fates_.answers, ElementsAre(Pair("first", -1)));
    EXPECT_THAT(fates_.freed, IsEmpty());
  };
  requests_->ProcessRequest(1);
  EXPECT_EQ(fates_.answers.size(), 1u);
  EXPECT_THAT(fates_.freed, ElementsAre("first"));
}

TEST_F(PendingRequestsTest, ParksNothingAfterTheEnd) {
  EndPendingRequests();
  EXPECT_EQ(Park("a:1", "late"), 0u);
  EXPECT_THAT(fates_.freed, ElementsAre("late"));
  EXPECT_THAT(fates_.answers, IsEmpty());
  EXPECT_FALSE(requests_->HasPendingWork());
}

}  // namespace
}  // namespace kzcef
