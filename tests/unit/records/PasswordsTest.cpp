#include "Fixture.h"
#include "records/Passwords.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {
namespace {

class PasswordsTest : public ShopTest {
 protected:
  void PutPassword(std::size_t index, std::string_view text) {
    Put(kPasswordFile, Image(252).Text(21 * index, text));
    records.passwords.LoadPasswords();
  }
};

TEST_F(PasswordsTest, APasswordWithTrailingBlanksInTheFileReadsTrimmed) {
  PutPassword(5, "secret   ");
  EXPECT_EQ(records.passwords.Password(Section::Vendor), "secret");
}

TEST_F(PasswordsTest, CaseIsKept) {
  PutPassword(8, "SeCret");
  EXPECT_EQ(records.passwords.Password(Section::System), "SeCret");
}

TEST_F(PasswordsTest, AnAbsentFileIsMadeEmptyByTheOpeningAndAllSectionsAreOpen) {
  records.passwords.LoadPasswords();
  EXPECT_TRUE(std::filesystem::exists(PathOf(kPasswordFile)));
  EXPECT_EQ(BytesOf(kPasswordFile), "");
  for (std::size_t i = 0; i < kPasswordCount; ++i) {
    EXPECT_EQ(records.passwords.Password(static_cast<Section>(i)), "");
  }
}

TEST_F(PasswordsTest, LaterChangesAreNotSeen) {
  PutPassword(0, "old");
  Put(kPasswordFile, Image(252).Text(0, "new"));
  EXPECT_EQ(records.passwords.Password(Section::Workorders), "old");
}

TEST_F(PasswordsTest, EachSectionHasItsLabel) {
  EXPECT_EQ(LabelOf(Section::Workorders), "Workorders");
  EXPECT_EQ(LabelOf(Section::Inventory), "Inventory Maintenance");
  EXPECT_EQ(LabelOf(Section::Customer), "Customer");
  EXPECT_EQ(LabelOf(Section::Employee), "Employee");
  EXPECT_EQ(LabelOf(Section::Vendor), "Vendor");
  EXPECT_EQ(LabelOf(Section::System), "System");
  EXPECT_EQ(LabelOf(Section::EditMenu), "Edit Menu");
}

}  // namespace
}  // namespace lantos::test
