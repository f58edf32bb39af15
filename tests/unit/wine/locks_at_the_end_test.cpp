// A lock that a thread held when the process ended it.
#include "locks_at_the_end.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace kz::wine {
namespace {

constexpr DWORD kStatus = 7;
constexpr DWORD kSoonMilliseconds = 20'000;
constexpr DWORD kLongEnoughMilliseconds = 2'000;

// Of a process that takes a lock whose holder it has just ended; the process goes with it.
class Ending {
 public:
  explicit Ending(const std::string& whose) {
    std::string command = "rundll32 " KZ_LOCK_AT_THE_END ",End " + whose;
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process_)) {
      CloseHandle(process_.hThread);
    }
  }
  Ending(const Ending&) = delete;
  Ending& operator=(const Ending&) = delete;
  ~Ending() {
    TerminateProcess(process_.hProcess, 0);
    CloseHandle(process_.hProcess);
  }

  bool Comes(DWORD within) const {
    return WaitForSingleObject(process_.hProcess, within) == WAIT_OBJECT_0;
  }
  DWORD Status() const {
    DWORD status = 0;
    GetExitCodeProcess(process_.hProcess, &status);
    return status;
  }

 private:
  PROCESS_INFORMATION process_{};
};

TEST(LockAtTheEnd, EndsTheProcessWithTheStatusThatItHas) {
  const Ending ending("supplied");
  ASSERT_TRUE(ending.Comes(kSoonMilliseconds));
  EXPECT_EQ(ending.Status(), kStatus);
}

TEST(Gap, WaitForALockStillOutlivesItsProcess) {
  const Ending ending("own");
  EXPECT_FALSE(ending.Comes(kLongEnoughMilliseconds)) << "wine/locks_at_the_end.cpp can go";
}

TEST(LockAtTheEnd, IsAnOrdinaryLockBefore) {
  SRWLOCK lock = SRWLOCK_INIT;
  SuppliedAcquireSRWLockExclusive(&lock);
  EXPECT_FALSE(TryAcquireSRWLockShared(&lock));
  bool is_shared = false;
  std::thread waiting([&] {
    SuppliedAcquireSRWLockShared(&lock);
    is_shared = true;
    ReleaseSRWLockShared(&lock);
  });
  ReleaseSRWLockExclusive(&lock);
  waiting.join();
  EXPECT_TRUE(is_shared);
}

}  // namespace
}  // namespace kz::wine
