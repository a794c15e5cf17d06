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

TEST_F(EmployeesTest, SavingOneWritesItsRecordAlone) {
  PutGolden();
  employees.LoadEmployees();
  employees.Employees()[0].Put(employee::Name, "Not written");
  employees.Employees()[2].Put(employee::Name, "Written");
  employees.SaveEmployee(2);
  const std::string after = BytesOf(kEmployeeFile);
  EXPECT_EQ(after.substr(0, 398), GoldenBytes(kEmployeeFile).substr(0, 398));
  EXPECT_EQ(after.substr(398 + 4, 7), "Written");
  EXPECT_THROW(employees.SaveEmployee(3), std::out_of_range);
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
  EXPECT_THROW(employees.SaveEmployee(0), FileError);
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
