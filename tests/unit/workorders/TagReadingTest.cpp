// The two tag files, read.
#include "WorkordersBench.h"

namespace lantos::test {
namespace {

using ui::Answer;

template <class Tag>
struct Reading;
template <>
struct Reading<ActiveWoTag> {
  static constexpr std::string_view kName = kActiveTagFile;
  static constexpr const char* kRoutine = "ReadActiveWO";
  static FileHandle Open(Workorders& workorders) { return workorders.OpenActiveWOForReading(); }
  static bool Read(Workorders& workorders, FileHandle file, std::int64_t at, ActiveWoTag& tag) {
    return workorders.ReadActiveWO(file, at, tag);
  }
};
template <>
struct Reading<ArchivedWoTag> {
  static constexpr std::string_view kName = kArchivedTagFile;
  static constexpr const char* kRoutine = "ReadArchWO";
  static FileHandle Open(Workorders& workorders) { return workorders.OpenArchWOForReading(""); }
  static bool Read(Workorders& workorders, FileHandle file, std::int64_t at, ArchivedWoTag& tag) {
    return workorders.ReadArchWO(file, at, tag);
  }
};

template <class Tag>
class TagReading : public WorkordersTest {};
using Tags = testing::Types<ActiveWoTag, ArchivedWoTag>;
TYPED_TEST_SUITE(TagReading, Tags);

TYPED_TEST(TagReading, EachPosition) {
  using Of = Reading<TypeParam>;
  constexpr auto kLength = static_cast<std::int64_t>(TypeParam::kLength);
  this->Put(Of::kName, Image(2 * TypeParam::kLength).Long(0, 1).Long(TypeParam::kLength, 2));
  FileHandle file = Of::Open(this->workorders);
  TypeParam tag;
  tag.Put(wotag::WorkorderNumber, 77);
  EXPECT_TRUE(Of::Read(this->workorders, file, -1, tag));
  EXPECT_TRUE(Of::Read(this->workorders, file, -kLength, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 77) << "nothing is read";
  EXPECT_FALSE(Of::Read(this->workorders, file, 0, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 1);
  EXPECT_FALSE(Of::Read(this->workorders, file, kLength, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 2);
  EXPECT_TRUE(this->desktop.boxes.empty());
  EXPECT_TRUE(Of::Read(this->workorders, file, kLength + 1, tag)) << "a byte is missing";
  EXPECT_TRUE(Of::Read(this->workorders, file, 2 * kLength, tag));
  EXPECT_EQ(tag, TypeParam());
  EXPECT_TRUE(this->desktop.boxes.empty());
  this->environment.openFiles.CloseFile(file);
}

TYPED_TEST(TagReading, APositionWithinTheFirstTagIsToldAndStillRead) {
  using Of = Reading<TypeParam>;
  this->Put(Of::kName, Image(2 * TypeParam::kLength).Long(4, 4711));
  FileHandle file = Of::Open(this->workorders);
  for (std::int64_t at = 1; at < static_cast<std::int64_t>(TypeParam::kLength); ++at) {
    this->desktop.WillAnswer(Answer::Ok);
    TypeParam tag;
    EXPECT_FALSE(Of::Read(this->workorders, file, at, tag));
    EXPECT_EQ(this->desktop.boxes.back().text,
              "Invalid offset supplied to " + std::string(Of::kRoutine) + " = " + std::to_string(at));
    EXPECT_EQ(tag.Get(wotag::WorkorderNumber) == 4711, at == 4);
  }
  EXPECT_EQ(this->desktop.boxes.size(), TypeParam::kLength - 1);
  this->environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, AFileOfActiveTagsOfLengthZeroEndsAtTheFirstStep) {
  Put(kActiveTagFile, "");
  FileHandle file = workorders.OpenActiveWOForReading();
  ActiveWoTag tag;
  EXPECT_TRUE(workorders.ReadActiveWO(file, -302, tag));
  EXPECT_EQ(environment.openFiles[file].Length(), 0u);
  EXPECT_TRUE(desktop.boxes.empty());
  environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, AFileOfArchivedTagsOfLengthZeroEndsAtTheFirstStep) {
  Put(kArchivedTagFile, "");
  FileHandle file = workorders.OpenArchWOForReading("");
  ArchivedWoTag tag;
  EXPECT_TRUE(workorders.ReadArchWO(file, -290, tag));
  EXPECT_EQ(environment.openFiles[file].Length(), 0u);
  EXPECT_TRUE(desktop.boxes.empty());
  environment.openFiles.CloseFile(file);
}

TYPED_TEST(TagReading, ReadersShareTheFile) {
  using Of = Reading<TypeParam>;
  const SharedFile other = this->HeldByAnother(Of::kName, Access::ReadWrite, Deny::None);
  FileHandle file = Of::Open(this->workorders);
  EXPECT_NO_THROW(SharedFile(this->PathOf(Of::kName), Access::Write, Deny::None));
  this->environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, TheArchivedTagFileIsOpenedThroughItsBookkeeping) {
  FileHandle file = workorders.OpenArchWOForReading("");
  FileHandle again = workorders.OpenArchWOForReading("History");
  environment.openFiles.CloseFile(again);
  EXPECT_THAT(Log(),
              testing::HasSubstr("Archived WO Tag File Pointer = 2 requested by Workorders.OpenArchWOForReading\n"
                                 "History: TQINCTAG already open\n"
                                 "Archived Wo Tag File pointer = 2 Closed.\n"
                                 "Archived WO Tag File Pointer = 2 requested by History\n"
                                 "Archived Wo Tag File pointer = 2 Closed.\n"));
  EXPECT_EQ(file, 2);
}

}  // namespace
}  // namespace lantos::test
