#include "records/Fixture.h"
#include "workorders/WorkorderNumbers.h"
#include "workorders/WorkorderTags.h"

namespace lantos::test {
namespace {

class WorkorderNumbersTest : public ShopTest {
 protected:
  WorkorderNumbersTest() { environment.log.Open(); }
  template <class Tag>
  void PutTags(std::string_view file, std::initializer_list<std::int32_t> numbers) {
    std::string bytes;
    for (const std::int32_t number : numbers) {
      Tag tag;
      tag.Put(wotag::WorkorderNumber, number);
      bytes += std::string(reinterpret_cast<const char*>(tag.Bytes().data()), Tag::kLength);
    }
    Put(file, bytes);
  }
  bool IsTaken(std::int32_t number) { return WorkorderNumbers(environment).IsTaken(number); }
};

TEST_F(WorkorderNumbersTest, AShopWithoutWorkOrdersHasAllNumbersFree) {
  EXPECT_FALSE(IsTaken(1));
  EXPECT_FALSE(std::filesystem::exists(PathOf(kActiveTagFile))) << "looking makes no file";
}

TEST_F(WorkorderNumbersTest, ATextOfThatNumberTakesItInAnyCase) {
  Put("w0000012.TQA", "");
  EXPECT_TRUE(IsTaken(12));
  EXPECT_FALSE(IsTaken(13));
}

TEST_F(WorkorderNumbersTest, ANumberOfEitherTagFileIsTaken) {
  PutTags<ActiveWoTag>(kActiveTagFile, {10, 12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 9, 11});
  for (const std::int32_t number : {7, 9, 10, 11, 12}) EXPECT_TRUE(IsTaken(number)) << number;
  for (const std::int32_t number : {6, 8, 13}) EXPECT_FALSE(IsTaken(number)) << number;
}

TEST_F(WorkorderNumbersTest, ACounterAheadOfTheLastTagsLooksAtNoOthers) {
  PutTags<ActiveWoTag>(kActiveTagFile, {30, 12});
  EXPECT_FALSE(IsTaken(30)) << "which no counter comes to while it hands out numbers in their order";
  EXPECT_TRUE(IsTaken(12));
}

TEST_F(WorkorderNumbersTest, FilesThatCanNotBeReadKnowNoNumber) {
  PutTags<ActiveWoTag>(kActiveTagFile, {12});
  const SharedFile held = HeldByAnother(kActiveTagFile);
  EXPECT_FALSE(IsTaken(12));
  EXPECT_NE(Log().find("TQOPENWO.DAT"), std::string::npos);
}

}  // namespace
}  // namespace lantos::test
