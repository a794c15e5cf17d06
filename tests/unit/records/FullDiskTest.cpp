// Files that are written as a whole, on a disk that has no room for more of them.
#include <sys/resource.h>

#include <csignal>
#include <functional>

#include "Fixture.h"
#include "frame/ScratchDirectory.h"
#include "records/CannedLabor.h"
#include "records/EditedLines.h"
#include "records/Statements.h"
#include "records/TextLines.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/NameList.h"

namespace lantos::test {
namespace {

class FullDisk : public ShopTest {
 protected:
  // The number of the error; the file can grow by five bytes.
  int Grow(std::string_view name, const std::function<void()>& write) {
    const rlim_t most = BytesOf(name).size() + 5;
    return InChild([&] {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit = {most, most};
      if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 97;
      try {
        write();
      } catch (const FileError& error) {
        return static_cast<int>(error.Number());
      }
      return 0;
    });
  }
  void ExpectAsBefore(std::string_view name, const std::function<void()>& write) {
    const std::string before = BytesOf(name);
    EXPECT_EQ(Grow(name, write), 61) << name;
    EXPECT_EQ(BytesOf(name), before) << name;
  }
};

CannedLabor Job(const std::string& text) {
  CannedLabor entry;
  entry.Desc[0] = text;
  return entry;
}

TEST_F(FullDisk, CannedLaborIsAsBefore) {
  EditedLines file(environment, kCannedLaborFile);
  const auto store = [&](const std::vector<CannedLabor>& jobs) { file.Store(desktop, "", LinesOf(jobs)); };
  store({Job("LOF  OIL AND FILTER")});
  ExpectAsBefore(kCannedLaborFile, [&] { store({Job("AXLE REAR"), Job("LOF  OIL AND FILTER")}); });
}

TEST_F(FullDisk, CannedNotesAreAsBefore) {
  EditedLines file(environment, kCannedNoteFile);
  const auto store = [&](const std::vector<CannedNote>& notes) { file.Store(desktop, "", LinesOf(notes)); };
  store({{"Keys are in the box"}});
  ExpectAsBefore(kCannedNoteFile, [&] { store({{"Call first"}, {"Keys are in the box"}}); });
}

TEST_F(FullDisk, TheDisclaimerIsAsBefore) {
  WriteStatement(environment, kEstimateDisclaimer, "Good for 30 days.");
  ExpectAsBefore(kEstimateDisclaimer,
                 [&] { WriteStatement(environment, kEstimateDisclaimer, "Not good for more than 30 days."); });
}

TEST_F(FullDisk, TheKitsOfStandardJobsAreAsBefore) {
  LaborKits(environment).Save("LOF", "KIT-A");
  LaborKits(environment).Save("AXLE", "KIT-X");
  ExpectAsBefore(kLaborKitFile, [&] { LaborKits(environment).Save("TUNE", "KIT-T"); });
}

TEST_F(FullDisk, TheNamesOfDepartmentsAreAsBefore) {
  Put(kDepartmentFile, "TIRES");
  records.departments.Load();
  ExpectAsBefore(kDepartmentFile, [&] { records.departments.Add("OIL"); });
}

TEST_F(FullDisk, RoomForATextThatNeverCameIsNoneOfIt) {
  using Lines = std::vector<std::string>;
  const std::string room(40, '\0');
  Put(kCannedNoteFile, "Call first\r\n" + room);
  EXPECT_EQ(ReadTextLines(environment, kCannedNoteFile), Lines{"Call first"});
  Put(kCannedNoteFile, "Call first" + room);
  EXPECT_EQ(ReadTextLines(environment, kCannedNoteFile), Lines{"Call first"});
  Put(kCannedNoteFile, "Call\r\n\r\n");
  EXPECT_EQ(ReadTextLines(environment, kCannedNoteFile), (Lines{"Call", ""}));
}

TEST_F(FullDisk, AFileIsReplacedByAShorterOrALongerText) {
  for (const std::string text : {"longer than it was", "short", ""}) {
    WriteStatement(environment, kEstimateDisclaimer, text);
    EXPECT_EQ(BytesOf(kEstimateDisclaimer), text);
  }
}

}  // namespace
}  // namespace lantos::test
