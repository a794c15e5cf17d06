#include "PayrollBench.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "records/Payroll.h"

namespace lantos::test {
namespace {

class PayrollTest : public ShopTest {
 protected:
  PayrollTest() { PutChain(4); }

  void PutChain(int count) const {
    Put("TQPAYROL.DAT", PayFile(count));
    Put("TQEMPLOY.DAT", PaidEmployees(count == 0 ? -1 : (count - 1) * kPayLength));
  }
  std::vector<FileLink> Places() {
    std::vector<FileLink> places;
    for (const PayEntry& entry : payroll.Load(7).entries) places.push_back(entry.place);
    return places;
  }
  // Rows of the list, the newest being 0.
  void Remove(const std::vector<std::size_t>& rows) {
    const PayChain chain = payroll.Load(7);
    std::vector<PayEntry> marked;
    for (const std::size_t row : rows) marked.push_back(chain.entries.at(row));
    payroll.Remove(7, marked, [this](const PayEntry& entry) { removed.push_back(entry.place); });
  }
  std::string RecordAt(int index) const {
    return BytesOf("TQPAYROL.DAT").substr(static_cast<std::size_t>(index * kPayLength), kPayLength);
  }
  std::int32_t Head() const { return LongAt(BytesOf("TQEMPLOY.DAT"), 199 + 195); }

  Payroll& payroll = records.payroll;
  std::vector<FileLink> removed;
};

using Links = std::vector<FileLink>;

TEST_F(PayrollTest, AChainIsWalkedFromTheNewestToTheOldest) { EXPECT_EQ(Places(), (Links{909, 606, 303, 0})); }

TEST_F(PayrollTest, AHeadOfMinusOneIsNoRecordAtAll) {
  PutChain(0);
  EXPECT_TRUE(Places().empty());
  EXPECT_EQ(payroll.Load(7).damage, "");
  EXPECT_TRUE(payroll.Load(12345).entries.empty()) << "nobody of that number";
}

TEST_F(PayrollTest, ADeletedRecordEndsTheWalk) {
  Put("TQPAYROL.DAT",
      PayFile(1) + PayImage(731869, 0, -1).Bytes() + PayImage(731870, 303).Bytes() + PayImage(731871, 606).Bytes());
  EXPECT_EQ(Places(), (Links{909, 606}));
  EXPECT_EQ(payroll.Load(7).damage, "");
}

TEST_F(PayrollTest, ALoopEndsWithItsDamageTold) {
  Put("TQPAYROL.DAT", PayImage(731868, 606).Bytes() + PayImage(731869, 0).Bytes() + PayImage(731870, 303).Bytes() +
                          PayImage(731871, 606).Bytes());
  const PayChain chain = payroll.Load(7);
  EXPECT_EQ(chain.entries.size(), 4U);
  EXPECT_EQ(chain.damage, "one leads back to the record at 606, which stands before it.");
}

TEST_F(PayrollTest, APlaceOutsideOfTheFileEndsWithItsDamageTold) {
  for (const FileLink place : {-2, 4 * kPayLength - 302, 4 * kPayLength, 2147483647, -2147483647 - 1}) {
    Put("TQEMPLOY.DAT", PaidEmployees(place));
    const PayChain chain = payroll.Load(7);
    EXPECT_TRUE(chain.entries.empty());
    EXPECT_EQ(chain.damage, "one leads to " + std::to_string(place) + ", where the file has no record.");
  }
}

TEST_F(PayrollTest, AnothersRecordEndsWithItsDamageTold) {
  Put("TQPAYROL.DAT", PayImage(731868, -1, 12).Bytes() + PayImage(731869, 0).Bytes() + PayImage(731870, 303).Bytes() +
                          PayImage(731871, 606).Bytes());
  const PayChain chain = payroll.Load(7);
  EXPECT_EQ(chain.entries.size(), 3U);
  EXPECT_EQ(chain.damage, "one leads to a record of employee 000012.");
}

TEST_F(PayrollTest, TheNewestGoesByTheHeadAlone) {
  const std::string before = BytesOf("TQPAYROL.DAT");
  const std::string people = BytesOf("TQEMPLOY.DAT");
  Remove({0});
  EXPECT_EQ(Places(), (Links{606, 303, 0}));
  EXPECT_EQ(BytesOf("TQPAYROL.DAT"), Image().Append(Image(before.size()).Text(0, before).Long(909, -1)).Bytes());
  EXPECT_EQ(BytesOf("TQEMPLOY.DAT"), Image(people.size()).Text(0, people).Long(199 + 195, 606).Bytes());
}

TEST_F(PayrollTest, AMiddleOneGoesByTheLinkInFrontOfItAlone) {
  const std::string before = BytesOf("TQPAYROL.DAT");
  const std::string people = BytesOf("TQEMPLOY.DAT");
  Remove({1});
  EXPECT_EQ(Places(), (Links{909, 303, 0}));
  EXPECT_EQ(BytesOf("TQPAYROL.DAT"), Image(before.size()).Text(0, before).Long(606, -1).Long(909 + 299, 303).Bytes());
  EXPECT_EQ(BytesOf("TQEMPLOY.DAT"), people);
}

TEST_F(PayrollTest, TheOldestLeavesTheOneInFrontOfItTheLast) {
  Remove({3});
  EXPECT_EQ(Places(), (Links{909, 606, 303}));
  EXPECT_EQ(LongAt(RecordAt(1), 299), -1);
}

TEST_F(PayrollTest, NeighboursGoTogetherAndNobodyIsLeftBehindThem) {
  Remove({1, 2});
  EXPECT_EQ(Places(), (Links{909, 0}));
  EXPECT_EQ(LongAt(RecordAt(3), 299), 0);
  EXPECT_EQ(removed, (Links{606, 303})) << "from the newest on";
}

TEST_F(PayrollTest, NeighboursAtTheHeadGoTogether) {
  Remove({0, 1});
  EXPECT_EQ(Places(), (Links{303, 0}));
  EXPECT_EQ(Head(), 303);
}

TEST_F(PayrollTest, AllOfThemGoAndTheHeadIsNone) {
  Remove({0, 1, 2, 3});
  EXPECT_TRUE(Places().empty());
  EXPECT_EQ(Head(), -1);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(LongAt(RecordAt(i), 0), -1);
}

// Every choice of records, against a plain list.
TEST_F(PayrollTest, WhateverIsChosenTheOthersStayInTheirOrder) {
  for (unsigned choice = 0; choice < 64; ++choice) {
    PutChain(6);
    Links kept;
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < 6; ++row) {
      const bool goes = (choice >> row & 1) != 0;
      if (goes) rows.push_back(row);
      if (!goes) kept.push_back(static_cast<FileLink>(5 - row) * kPayLength);
    }
    Remove(rows);
    EXPECT_EQ(Places(), kept) << choice;
  }
}

TEST_F(PayrollTest, ARecordThatWasAddedMeanwhileStays) {
  const PayChain chain = payroll.Load(7);
  Put("TQPAYROL.DAT", PayFile(5));
  Put("TQEMPLOY.DAT", PaidEmployees(4 * kPayLength));
  payroll.Remove(7, {chain.entries[0]}, [](const PayEntry&) {});
  EXPECT_EQ(Places(), (Links{1212, 606, 303, 0}));
}

TEST_F(PayrollTest, ARecordThatIsAnotherMeanwhileIsLeftAlone) {
  const PayChain chain = payroll.Load(7);
  std::string changed = BytesOf("TQPAYROL.DAT");
  changed[606 + 12] = 'x';  // its gross
  Put("TQPAYROL.DAT", changed);
  payroll.Remove(7, {chain.entries[1], chain.entries[2]},
                 [this](const PayEntry& entry) { removed.push_back(entry.place); });
  EXPECT_EQ(removed, Links{303});
  EXPECT_EQ(Places(), (Links{909, 606, 0}));
}

TEST_F(PayrollTest, AHeldFileIsAskedAboutUntilItIsFree) {
  const PayChain chain = payroll.Load(7);
  auto held = std::make_optional(HeldByAnother("TQPAYROL.DAT", Access::Read, Deny::None));
  desktop.WillAnswer(ui::Answer::Ok);
  desktop.WillAnswer([&](const ui::Box&) {
    held.reset();
    return ui::Answer::Ok;
  });
  payroll.Remove(7, {chain.entries[0]}, [](const PayEntry&) {});
  ASSERT_EQ(desktop.boxes.size(), 2U);
  ExpectBox(desktop.boxes[0], "Employee Payroll History",
            "Error 70: Permission denied\rPayroll file locked by another user.\rClick OK to try again.",
            ui::Buttons::Ok, ui::Icon::None);
  EXPECT_EQ(Places(), (Links{606, 303, 0}));
}

TEST_F(PayrollTest, TheHoldIsLogged) {
  environment.log.Open();
  Remove({0});
  EXPECT_THAT(Log(), testing::HasSubstr("frmEmpPRHist/Save: Opened TQPAYROL.DAT (update,fp=2)\n"));
}

TEST_F(PayrollTest, NobodyElseIsInTheFileWhileItChanges) {
  const PayChain chain = payroll.Load(7);
  payroll.Remove(7, {chain.entries[0]}, [this](const PayEntry&) {
    EXPECT_THROW(HeldByAnother("TQPAYROL.DAT", Access::Read, Deny::None), FileError);
  });
}

TEST_F(PayrollTest, AHeldEmployeeFileLeavesTheChainAsItWas) {
  const PayChain chain = payroll.Load(7);
  const std::string before = BytesOf("TQPAYROL.DAT");
  const SharedFile reader = HeldByAnother("TQEMPLOY.DAT", Access::Read, Deny::Write);
  EXPECT_THROW(payroll.Remove(7, {chain.entries[0]}, [](const PayEntry&) {}), FileError);
  EXPECT_EQ(BytesOf("TQPAYROL.DAT"), before);
}

TEST_F(PayrollTest, LoadingWritesNothing) {
  const auto before = Everything();
  payroll.Load(7);
  payroll.Load(3);
  EXPECT_EQ(Everything(), before);
}

// The records that aren't marked are all there, whenever the process ends; those that are may be.
TEST_F(PayrollTest, AKillAtAnyMomentLeavesTheChainWhole) {
  constexpr int kRecords = 200;
  for (int round = 0; round < 40; ++round) {
    PutChain(kRecords);
    const pid_t child = ::fork();
    if (child == 0) {
      std::vector<PayEntry> marked;
      const PayChain chain = payroll.Load(7);
      for (std::size_t i = 0; i < chain.entries.size(); ++i) {
        if (i % 5 < 3) marked.push_back(chain.entries[i]);
      }
      payroll.Remove(7, marked, [](const PayEntry&) {});
      ::_exit(0);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(300 + round * 150));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const PayChain left = payroll.Load(7);
    ASSERT_EQ(left.damage, "");
    std::size_t next = 0;
    for (const PayEntry& entry : left.entries) {
      const auto row = static_cast<std::size_t>(kRecords - 1 - entry.place / kPayLength);
      for (; next < row; ++next) ASSERT_LT(next % 5, 3U) << "row " << next << " is lost";
      ASSERT_EQ(row, next++);
    }
    for (; next < kRecords; ++next) ASSERT_LT(next % 5, 3U) << "row " << next << " is lost";
  }
}

}  // namespace
}  // namespace lantos::test
