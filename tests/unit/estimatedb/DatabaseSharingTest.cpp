#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "EitherDatabase.h"
#include "estimatedb/EngineChoice.h"

namespace lantos::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using namespace std::chrono_literals;

class TwoWorkstations : public EitherDatabase {
 protected:
  // A process of its own; what it returns is its exit code, 99 stands for an exception.
  template <class Work>
  static pid_t Start(Work work) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    int code = 99;
    try {
      code = work();
    } catch (...) {
    }
    ::_exit(code);
  }
  static int End(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  // A change that is on its way keeps other writers waiting.
  static void TakeTheTurn(Engine& engine) { engine.Run("update StandardHours set FudgeFactor = 10", {}); }
};

ON_EITHER_DATABASE(TwoWorkstations);

TEST_P(TwoWorkstations, EachSeesWhatTheOtherHasWritten) {
  const std::unique_ptr<Engine> first = Workstation();
  const std::unique_ptr<Engine> second = Workstation();
  first->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1}});
  second->Run("update Estimates set Comments = 'second' where EstimateNumber = 1", {});
  first->Run("update Estimates set Status = 3 where EstimateNumber = 1", {});
  EXPECT_EQ(PlainValue("select Comments, Status from Estimates"), "second|3") << "different columns both survive";
}

TEST_P(TwoWorkstations, OfTwoWritesToOneColumnTheLaterStays) {
  const std::unique_ptr<Engine> first = Workstation();
  const std::unique_ptr<Engine> second = Workstation();
  first->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1}});
  first->Run("update Estimates set Comments = 'first' where EstimateNumber = 1", {});
  second->Run("update Estimates set Comments = 'second' where EstimateNumber = 1", {});
  EXPECT_EQ(PlainValue("select Comments from Estimates"), "second");
}

TEST_P(TwoWorkstations, ALockHeldLongerThanTheTimeoutIsSaidPlainly) {
  const std::unique_ptr<Engine> holder = Workstation();
  const std::unique_ptr<Engine> waiting = Workstation(20ms);
  holder->Together([&] {
    TakeTheTurn(*holder);
    const std::string error = ErrorOf([&] {
      waiting->Run("update Estimates set Status = ? where EstimateNumber = ?", {std::int64_t{3}, std::int64_t{7}});
    });
    EXPECT_THAT(error, AllOf(HasSubstr("Another copy of the program has the database"), HasSubstr("Lantos.mdb"),
                             HasSubstr("0.02 seconds"), HasSubstr("update Estimates"), HasSubstr("3, 7")));
  });
  waiting->Run("update Estimates set Status = 3", {});
}

TEST_P(TwoWorkstations, TheWaitIsTheOneThatTheConnectionsWereMadeWith) {
  const std::unique_ptr<Engine> holder = Workstation();
  database.busyTimeout = 30ms;
  Connect(database, environment);
  holder->Together([&] {
    TakeTheTurn(*holder);
    try {
      db.SetStatus(3, 7);
      ADD_FAILURE() << "the lock is held";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Kind(), DatabaseErrorKind::Locked);
      EXPECT_THAT(error.what(), HasSubstr("0.03 seconds"));
    }
  });
}

TEST_P(TwoWorkstations, ALockThatIsLetGoInTimeIsWaitedFor) {
  const std::unique_ptr<Engine> holder = Workstation();
  const std::unique_ptr<Engine> waiting = Workstation();
  std::thread other;
  holder->Together([&] {
    TakeTheTurn(*holder);
    other = std::thread([&] { waiting->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1}}); });
    std::this_thread::sleep_for(30ms);
  });
  other.join();
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), "1");
}

TEST_P(TwoWorkstations, TwoProcessesWritingAtOnceLoseNothing) {
  constexpr int kRows = 50;
  std::vector<pid_t> children;
  for (int worker = 0; worker < 2; ++worker) {
    children.push_back(Start([&, worker] {
      const std::unique_ptr<Engine> engine = Workstation();
      for (int i = 0; i < kRows; ++i) {
        engine->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1 + worker * kRows + i}});
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(End(child), 0);
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), std::to_string(2 * kRows));
}

TEST_P(TwoWorkstations, WhatTwoReadAndThenWriteTogetherIsNeverReadTwice) {
  constexpr int kLines = 20;
  std::vector<pid_t> children;
  for (int worker = 0; worker < 2; ++worker) {
    children.push_back(Start([&] {
      const std::unique_ptr<Engine> engine = Workstation();
      for (int i = 0; i < kLines; ++i) {
        engine->Together([&] {
          const std::int64_t last = engine->Run("select max(LaborNumber) as Last from Labors", {}).Long("Last");
          engine->Insert("Labors", {"EstimateNumber", "LaborNumber"}, {std::int64_t{5}, last + 1});
        });
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(End(child), 0);
  EXPECT_EQ(PlainValue("select max(LaborNumber) from Labors"), std::to_string(2 * kLines));
}

TEST_P(TwoWorkstations, LookingAtTheFileAgainInOneProcessKeepsTheLocksOfTheFirst) {
  const std::unique_ptr<Engine> holder = Workstation();
  holder->Together([&] {
    TakeTheTurn(*holder);
    const std::unique_ptr<Engine> second = Workstation(1ms);
    second->Run("select 1", {});
    EXPECT_EQ(End(Start([&] {
                const std::unique_ptr<Engine> other = Workstation(20ms);
                return ErrorOf([&] { other->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1}}); }).empty() ? 1
                                                                                                                   : 0;
              })),
              0)
        << "the other process must be kept out still";
  });
}

TEST_P(TwoWorkstations, AWorkstationKilledInTheMiddleLeavesADatabaseThatOpens) {
  for (int round = 0; round < 5; ++round) {
    const pid_t child = Start([&] {
      const std::unique_ptr<Engine> engine = Workstation();
      for (std::int64_t i = round * 1'000'000;; i += 2) {
        engine->Together([&] {
          engine->Insert("Estimates", {"EstimateNumber"}, {i});
          engine->Insert("Estimates", {"EstimateNumber"}, {i + 1});
        });
      }
      return 0;
    });
    std::this_thread::sleep_for(20ms + std::chrono::milliseconds(7 * round));
    ::kill(child, SIGKILL);
    EXPECT_EQ(End(child), -SIGKILL);
    const std::unique_ptr<Engine> engine = Workstation();
    if (!IsOnAServer()) {
      EXPECT_EQ(engine->Run("PRAGMA integrity_check", {}).Text("integrity_check"), "ok");
    }
    EXPECT_EQ(engine->Run("select count(*) % 2 as Odd from Estimates", {}).Long("Odd"), 0) << "pairs, or nothing";
    engine->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{-2 * round - 2}});
    engine->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{-2 * round - 3}});
  }
}

}  // namespace
}  // namespace lantos::test
