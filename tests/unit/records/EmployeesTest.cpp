#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "Fixture.h"
#include "records/MakesModels.h"
#include "records/modEmployees.h"

namespace lantos::test {
namespace {

class EmployeesTest : public ShopTest {
 protected:
  modEmployees& employees = records.employees;
};

// Another copy, until it is killed.
[[noreturn]] void HoldForMoments(const std::filesystem::path& employees, const std::filesystem::path& makes) {
  using std::chrono::milliseconds;
  for (;;) {
    for (const auto& path : {employees, makes}) {
      try {
        const SharedFile held(path, Access::Read, Deny::All);
        std::this_thread::sleep_for(milliseconds(10));
      } catch (const FileError&) {  // one of the others has it
      }
    }
    std::this_thread::sleep_for(milliseconds(30));
  }
}

TEST_F(EmployeesTest, SavingDropsEachElementWhoseNumberIsMinusOneAndTheRestCloseUp) {
  Image file;
  file.Append(EmployeeImage(1, "A")).Append(EmployeeImage(2, "B")).Append(EmployeeImage(3, "C"));
  Put(kEmployeeFile, file);
  employees.LoadEmployees();
  employees.Employees()[1].Put(employee::EmpNumber, -1);
  employees.SaveEmployees();
  Image expected;
  expected.Append(EmployeeImage(1, "A")).Append(EmployeeImage(3, "C"));
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
  EXPECT_FALSE(employees.Loaded());
}

TEST_F(EmployeesTest, SavingDoesNothingWhenTheTableIsNotLoaded) {
  PutGolden();
  employees.SaveEmployees();
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
  employees.LoadEmployees();
  employees.SaveEmployees();
  employees.Employees().clear();
  employees.SaveEmployees();
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
}

TEST_F(EmployeesTest, AnUpdateWritesItsRecordAlone) {
  PutGolden();
  employees.LoadEmployees();
  employees.Employees()[0].Put(employee::Name, "Not written");
  EXPECT_EQ(employees.UpdateEmployee(7, [](EmployeeRecord& record) { record.Put(employee::Name, "Written"); }),
            modEmployees::Updated::Yes);
  std::string expected = GoldenBytes(kEmployeeFile);
  expected.replace(398 + 4, 32, std::string("Written") + std::string(25, '\0'));
  EXPECT_EQ(BytesOf(kEmployeeFile), expected);
  EXPECT_EQ(employees.Find(7)->Get(employee::Name), "Written");
  EXPECT_EQ(employees.Find(12)->Get(employee::Name), "Zoe Young");
}

TEST_F(EmployeesTest, AnUpdatePutsItsFieldIntoTheRecordAsItLiesOnDisk) {
  PutGolden();
  employees.LoadEmployees();
  Environment otherWorkstation(clock, settings);
  otherWorkstation.files.SetDataDir(environment.files.DataDir());
  modEmployees other(otherWorkstation);
  other.UpdateEmployee(12, [](EmployeeRecord& record) { record.Put(employee::Wage, 2000); });
  EXPECT_EQ(other.SetPayrollHead(12, 909), modEmployees::Updated::Yes);
  employees.UpdateEmployee(12, [](EmployeeRecord& record) { record.Put(employee::EmpAddr, "2 Mill Lane"); });
  Image expected(GoldenBytes(kEmployeeFile));
  expected.Text(51, "2 Mill Lane").Long(145, 2000).Long(195, 909);
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
  EXPECT_EQ(employees.Find(12)->Get(employee::PayrollHead), 909);
}

TEST_F(EmployeesTest, AnEmployeeWhosePlaceHasMovedIsFoundByNumber) {
  PutGolden();
  employees.LoadEmployees();
  const std::string golden = GoldenBytes(kEmployeeFile);
  Put(kEmployeeFile, golden.substr(199));
  EXPECT_EQ(employees.SetPayrollHead(7, kNoLink), modEmployees::Updated::Yes);
  std::string expected = golden.substr(199);
  expected.replace(199 + 195, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(BytesOf(kEmployeeFile), expected);
}

TEST_F(EmployeesTest, SomebodyWhoIsGoneIsNotUpdated) {
  PutGolden();
  const auto never = [](EmployeeRecord&) { FAIL(); };
  EXPECT_EQ(employees.UpdateEmployee(4, never), modEmployees::Updated::IsGone);
  Put(kEmployeeFile, EmployeeImage(-1, "Dropped"));
  EXPECT_EQ(employees.UpdateEmployee(-1, never), modEmployees::Updated::IsGone);
  EXPECT_EQ(employees.Find(-1), nullptr);
  EXPECT_EQ(employees.DeleteEmployee(-1), modEmployees::Deleted::IsGone);
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(EmployeeImage(-1, "Dropped")));
}

TEST_F(EmployeesTest, ANewEmployeeGoesToTheEndOfTheFileAsItIsThen) {
  PutGolden();
  employees.LoadEmployees();
  const std::string golden = GoldenBytes(kEmployeeFile);
  Put(kEmployeeFile, golden + std::string(EmployeeImage(13, "Another copy's")));
  EmployeeRecord added;
  added.Put(employee::EmpNumber, 14);
  added.Put(employee::Name, "New");
  EXPECT_EQ(employees.AddEmployee(added), modEmployees::Added::Yes);
  EXPECT_EQ(employees.AddEmployee(added), modEmployees::Added::NumberIsTaken);
  Image expected(golden);
  expected.Append(EmployeeImage(13, "Another copy's")).Append(Image(199).Long(0, 14).Text(4, "New"));
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
  EXPECT_EQ(employees.Employees().size(), 5U);
}

TEST_F(EmployeesTest, ANewEmployeeTakesThePlaceOfARecordThatIsCutShort) {
  Put(kEmployeeFile, std::string(EmployeeImage(1, "A")) + std::string(20, 'x'));
  EmployeeRecord added;
  added.Put(employee::EmpNumber, 2);
  EXPECT_EQ(employees.AddEmployee(added), modEmployees::Added::Yes);
  Image expected(EmployeeImage(1, "A"));
  expected.Append(Image(199).Long(0, 2));
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
}

TEST_F(EmployeesTest, DeletingClosesUpWhatOthersHaveStoredMeanwhile) {
  PutGolden();
  employees.LoadEmployees();
  Image file(GoldenBytes(kEmployeeFile));
  file.Long(145, 2000).Append(EmployeeImage(-1, "To be dropped")).Append(EmployeeImage(13, "Another copy's"));
  Put(kEmployeeFile, file);
  EXPECT_EQ(employees.DeleteEmployee(3), modEmployees::Deleted::Yes);
  Image expected(std::string(file).substr(0, 199) + std::string(file).substr(398, 199));
  expected.Append(EmployeeImage(13, "Another copy's"));
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
  EXPECT_TRUE(employees.Loaded());
  EXPECT_EQ(employees.Find(3), nullptr);
  EXPECT_EQ(employees.DeleteEmployee(3), modEmployees::Deleted::IsGone);
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(expected));
}

TEST_F(EmployeesTest, AnEmployeeWithPayRecordsStays) {
  PutGolden();
  EXPECT_EQ(employees.DeleteEmployee(12), modEmployees::Deleted::HasPayRecords);
  EXPECT_EQ(employees.DeleteEmployee(7), modEmployees::Deleted::HasPayRecords);  // the first record of the file
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
}

// A payroll that is run while the person still thinks about it.
TEST_F(EmployeesTest, PayRecordsThatCameMeanwhileKeepTheirEmployee) {
  PutGolden();
  employees.LoadEmployees();
  Image file(GoldenBytes(kEmployeeFile));
  file.Long(199 + 195, 1212);
  Put(kEmployeeFile, file);
  EXPECT_EQ(employees.DeleteEmployee(3), modEmployees::Deleted::HasPayRecords);
  EXPECT_EQ(BytesOf(kEmployeeFile), std::string(file));
}

TEST_F(EmployeesTest, TheListIsSortedByNumberAndItsNamesAreTrimmed) {
  PutGolden();
  const std::vector<EmployeeName> names = employees.LoadEmployeeList();
  ASSERT_EQ(names.size(), 3U);
  EXPECT_EQ(names[0].Name, "Al");
  EXPECT_EQ(names[1].Name, "Bert Wood");
  EXPECT_EQ(names[2].Number, 12);
}

TEST_F(EmployeesTest, ADateTerminatedOfMinusOneOrZeroIsAnActiveEmployee) {
  PutGolden();
  const std::vector<EmployeeName> names = employees.LoadEmployeeList();
  EXPECT_FALSE(names[0].IsActive());
  EXPECT_TRUE(names[1].IsActive());
  EXPECT_TRUE(EmployeeName().IsActive());
}

TEST_F(EmployeesTest, TheListReadsToTheEndOfTheFileAndTheTableRoundsToNearest) {
  const std::string golden = GoldenBytes(kEmployeeFile);
  Put(kEmployeeFile, golden.substr(0, 199 + 10));
  EXPECT_EQ(employees.LoadEmployeeList().size(), 2U);
  employees.LoadEmployees();
  EXPECT_EQ(employees.Employees().size(), 1U);
  Put(kEmployeeFile, golden.substr(0, 199 + 100));
  employees.LoadEmployees();
  EXPECT_EQ(employees.Employees().size(), 2U);
}

TEST_F(EmployeesTest, ALockedFileIsAnErrorThatNobodyTraps) {
  PutGolden();
  employees.LoadEmployees();
  const SharedFile other = HeldByAnother(kEmployeeFile);
  EXPECT_THROW(employees.LoadEmployeeList(), FileError);
  EXPECT_THROW(employees.LoadEmployees(), FileError);
  EXPECT_THROW(employees.SetPayrollHead(12, 0), FileError);
  EXPECT_THROW(employees.AddEmployee(EmployeeRecord()), FileError);
  EXPECT_THROW(employees.DeleteEmployee(3), FileError);
  EXPECT_THROW(employees.SaveEmployees(), FileError);
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
}

TEST_F(EmployeesTest, AFailedSaveKeepsTheTableLoaded) {
  PutGolden();
  employees.LoadEmployees();
  {
    const SharedFile other = HeldByAnother(kEmployeeFile);
    EXPECT_THROW(employees.SaveEmployees(), FileError);
  }
  EXPECT_TRUE(employees.Loaded());
  EXPECT_EQ(employees.Employees().size(), 3U);
}

// Copies that start at once each have the lists alone for a moment.
TEST_F(EmployeesTest, CopiesThatHaveTheListsForAMomentAreWaitedFor) {
  PutGolden();
  std::vector<pid_t> others;
  for (int i = 0; i < 3; ++i) {
    others.push_back(fork());
    ASSERT_GE(others.back(), 0);
    if (others.back() == 0) HoldForMoments(PathOf(kEmployeeFile), PathOf(kMakeModelFile));
  }
  SystemClock running;
  Environment other(running, settings);
  other.files.SetDataDir(environment.files.DataDir());
  Records lists(other, desktop);
  for (int i = 0; i < 6; ++i) {
    EXPECT_NO_THROW(lists.employees.LoadEmployees());
    EXPECT_NO_THROW(lists.makes.LoadMakes());
    EXPECT_EQ(lists.employees.LoadEmployeeList().size(), 3U);
  }
  for (const pid_t child : others) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
}

TEST_F(EmployeesTest, AFileThatStaysHeldIsAnErrorAfterTwoSeconds) {
  PutGolden();
  const LocalTime before = clock.Now();
  {
    const SharedFile other = HeldByAnother(kEmployeeFile);
    EXPECT_THROW(employees.LoadEmployees(), FileError);
    EXPECT_EQ(clock.Now().MillisecondsSince(before), 1900);
  }
  const SharedFile other = HeldByAnother(kMakeModelFile);
  EXPECT_THROW(records.makes.LoadMakes(), FileError);
  EXPECT_THROW(records.makes.AddMake("Saab"), FileError);
  EXPECT_EQ(clock.Now().MillisecondsSince(before), 3 * 1900);
  EXPECT_TRUE(desktop.boxes.empty());
}

}  // namespace
}  // namespace lantos::test
