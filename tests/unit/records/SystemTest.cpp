#include "Fixture.h"
#include "records/Contention.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

using ui::Answer;

class System : public ShopTest {
 protected:
  System() {
    PutGolden();
    environment.log.Open();
  }
};

TEST_F(System, AFileThatHolds1005GivesTheNextCustomer1005AndLeaves1006) {
  EXPECT_EQ(records.system.TakeNumber(sysrec::last_customer_number), 1005);
  EXPECT_EQ(LongAt(BytesOf(kSystemFile), 12), 1006);
  EXPECT_EQ(records.system.TakeNumber(sysrec::last_customer_number), 1006);
}

TEST_F(System, TakingANumberKeepsWhatAnotherWorkstationHasSetMeanwhile) {
  records.system.ReadSystem();
  std::string bytes = BytesOf(kSystemFile);
  bytes[40] = 99;  // shop_rate
  Put(kSystemFile, bytes);
  records.system.TakeNumber(sysrec::last_estimate_number);
  EXPECT_EQ(BytesOf(kSystemFile)[40], 99);
  EXPECT_EQ(records.system.SysRec.Get(sysrec::shop_rate) & 0xFF, 99);
}

TEST_F(System, AnUpdateHoldsTheFileAndKeepsWhatAnotherWorkstationHasStored) {
  records.system.ReadSystem();
  std::string bytes = BytesOf(kSystemFile);
  bytes[40] = 99;  // shop_rate
  Put(kSystemFile, bytes);
  records.system.Update([this](SystemRecord& record) {
    EXPECT_THROW(SharedFile(PathOf(kSystemFile), Access::Read, Deny::None), FileError);
    record.Put(sysrec::company_state, "NV");
  });
  bytes.replace(sysrec::company_state.offset, 3, std::string("NV\0", 3));
  EXPECT_EQ(BytesOf(kSystemFile), bytes);
  EXPECT_EQ(records.system.SysRec.Get(sysrec::company_state), "NV");
  EXPECT_NO_THROW(SharedFile(PathOf(kSystemFile), Access::ReadWrite, Deny::All));
}

TEST_F(System, AnUpdateThatFailsLeavesFileAndRecordAndLetsGo) {
  const std::string before = BytesOf(kSystemFile);
  EXPECT_THROW(records.system.Update([](SystemRecord& record) {
    record.Put(sysrec::shop_rate, 1);
    throw std::overflow_error("no");
  }),
               std::overflow_error);
  EXPECT_EQ(BytesOf(kSystemFile), before);
  EXPECT_NE(records.system.SysRec.Get(sysrec::shop_rate), 1);
  EXPECT_NO_THROW(SharedFile(PathOf(kSystemFile), Access::ReadWrite, Deny::All));
}

TEST_F(System, TheFileIsHeldFromReadingToWriting) {
  const FileHandle handle = records.system.ReadSystem(modSystem::Then::StayOpen);
  EXPECT_THROW(SharedFile(PathOf(kSystemFile), Access::Read, Deny::None), FileError);
  records.system.WriteSystem(handle);
  EXPECT_NO_THROW(SharedFile(PathOf(kSystemFile), Access::Read, Deny::None));
  EXPECT_EQ(Log(), "CloseFile: Closed file with pointer = 2\n");
}

TEST_F(System, WithoutKeepOpenTheResultIsZeroAndTheFileIsClosed) {
  EXPECT_EQ(records.system.ReadSystem(), 0);
  EXPECT_NO_THROW(SharedFile(PathOf(kSystemFile), Access::ReadWrite, Deny::All));
}

TEST_F(System, AFileHeldByAnotherIsTried100TimesWithoutAWordAndThenAsks) {
  int tries = 0;
  Contention contention(contention::kSystem, desktop, environment);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  const LocalTime before = clock.Now();
  EXPECT_FALSE(contention.Run([&] {
    EXPECT_EQ(desktop.boxes.size(), static_cast<std::size_t>(tries / 100));
    ++tries;
    throw FileError(FileErrorNumber::PermissionDenied, "test");
  }));
  EXPECT_EQ(tries, 200);
  EXPECT_EQ(clock.Now(), before);
  ExpectBox(desktop.boxes.at(0), "Error 70: Permission denied", "System file locked by another user.",
            ui::Buttons::RetryCancel, ui::Icon::Critical);
}

TEST_F(System, CancelAtTheLockedSystemFileEndsTheProgram) {
  const SharedFile other = HeldByAnother(kSystemFile);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  try {
    records.system.ReadSystem();
    FAIL() << "the program goes on";
  } catch (const ProcessEnded& end) {
    EXPECT_EQ(end.code, 0);
  }
  EXPECT_EQ(desktop.boxes.size(), 2U);
}

TEST_F(System, CancelWhileWritingEndsTheProgramToo) {
  records.system.ReadSystem();
  const SharedFile other = HeldByAnother(kSystemFile, Access::Read, Deny::None);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_THROW(records.system.WriteSystem(), ProcessEnded);
}

TEST_F(System, RetryGoesOnWhenTheOtherHasLetGo) {
  SharedFile other = HeldByAnother(kSystemFile);
  desktop.WillAnswer([&](const ui::Box&) {
    other.Close();
    return Answer::Retry;
  });
  EXPECT_EQ(records.system.TakeNumber(sysrec::last_customer_number), 1005);
}

TEST_F(System, AnAbsentOrShortFileReadsAsZeros) {
  std::filesystem::remove(PathOf(kSystemFile));
  records.system.SysRec.Put(sysrec::shop_rate, 1);
  records.system.ReadSystem();
  EXPECT_EQ(records.system.SysRec, SystemRecord());
  EXPECT_EQ(BytesOf(kSystemFile), "");
  Put(kSystemFile, GoldenBytes(kSystemFile).substr(0, 50));
  records.system.ReadSystem();
  EXPECT_EQ(records.system.SysRec.Get(sysrec::company_name), "M\xFCller");
  EXPECT_EQ(records.system.SysRec.Get(sysrec::hand_msg1), "");
}

TEST_F(System, ACounterAtItsEndGivesNothingAndSaysSo) {
  for (const auto& [counter, name] : {std::pair{sysrec::last_workorder_number, "the work orders"},
                                      {sysrec::last_estimate_number, "the estimates"},
                                      {sysrec::last_customer_number, "the customers"},
                                      {sysrec::last_employee_number, "the employees"}}) {
    std::string bytes = GoldenBytes(kSystemFile);
    bytes.replace(counter.offset, 4, "\xFE\xFF\xFF\x7F");
    Put(kSystemFile, bytes);
    EXPECT_EQ(records.system.TakeNumber(counter), 2147483646);
    const std::string atItsEnd = BytesOf(kSystemFile);
    EXPECT_EQ(LongAt(atItsEnd, counter.offset), 2147483647);
    try {
      records.system.TakeNumber(counter);
      ADD_FAILURE() << "a number was given";
    } catch (const std::overflow_error& error) {
      EXPECT_THAT(error.what(), testing::AllOf(testing::HasSubstr(name), testing::HasSubstr("2147483647")));
    }
    EXPECT_EQ(BytesOf(kSystemFile), atItsEnd);
    EXPECT_NO_THROW(HeldByAnother(kSystemFile)) << "the file was let go";
  }
}

}  // namespace
}  // namespace lantos::test
