// New departments and manufacturers.
#include <gmock/gmock.h>

#include "MasterShop.h"
#include "masters/inventory/NewNames.h"
#include "masters/inventory/frmDept.h"
#include "records/inventory/NameList.h"

namespace lantos::test {
namespace {

using ::testing::ElementsAre;

class NewNames : public MasterShop {
 protected:
  NewNames() {
    directory.Put("TQDEPART.DAT", Column("TIRES") + Column("OIL") + "\r\n");
    records.departments.Load();
  }
  static std::string Column(std::string name) {
    name.resize(20, ' ');
    return name;
  }
  int AddDepartmentBy(const std::function<void(frmDept&)>& use) {
    desktop.WillUse([use](ui::Form& form) { use(As<frmDept>(form)); });
    return AddDepartment(shop);
  }
};

TEST_F(NewNames, ADepartmentGoesToTheEndOfItsListAndFile) {
  const int index = AddDepartmentBy([](frmDept& form) {
    EXPECT_EQ(form.Caption(), "Add Department");
    EXPECT_EQ(form.lblDeptName.Caption(), "Department");
    EXPECT_TRUE(form.DeptName.HasFocus());
    Type(form.DeptName, "  BELTS ");
    Press(form, "Enter");
  });
  EXPECT_EQ(index, 2);
  EXPECT_THAT(records.departments.Names(), ElementsAre("TIRES", "OIL", "BELTS"));
  EXPECT_EQ(directory.Content("TQDEPART.DAT"), Column("TIRES") + Column("OIL") + Column("BELTS") + "\r\n");
}

TEST_F(NewNames, AManufacturerGoesToItsOwn) {
  desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Add Manufacturer");
    EXPECT_EQ(As<frmDept>(form).lblDeptName.Caption(), "Manufacturer");
    Type(As<frmDept>(form).DeptName, "WAGNER");
    Press(form, "F10");
  });
  EXPECT_EQ(AddManufacturer(shop), 0);
  EXPECT_EQ(directory.Content("TQMANUFA.DAT"), Column("WAGNER") + "\r\n");
  EXPECT_THAT(records.departments.Names(), ElementsAre("TIRES", "OIL"));
}

TEST_F(NewNames, ANameLongerThanTwentyCharactersIsCutByTheColumn) {
  const int index = AddDepartmentBy([](frmDept& form) {
    Type(form.DeptName, "A NAME OF TWENTY-THREE!");
    EXPECT_EQ(form.DeptName.Text(), "A NAME OF TWENTY-THR") << "as it is typed";
    Click(form.cmdSave);
  });
  EXPECT_EQ(index, 2);
  EXPECT_EQ(directory.Content("TQDEPART.DAT"), Column("TIRES") + Column("OIL") + "A NAME OF TWENTY-THR\r\n");
}

TEST_F(NewNames, ACancelGivesNoPlaceAndWritesNothing) {
  const std::string before = directory.Content("TQDEPART.DAT");
  EXPECT_EQ(AddDepartmentBy([](frmDept& form) { Press(form, "Esc"); }), -1);
  desktop.WillAnswer({Answer::No, Answer::Yes});
  const int index = AddDepartmentBy([this](frmDept& form) {
    Type(form.DeptName, "BELTS");
    Click(form.cmdCancel);
    EXPECT_EQ(desktop.boxes.back().text, "Discard changes?");
    EXPECT_TRUE(form.Visible());
    form.DoClose();
  });
  EXPECT_EQ(index, -1);
  EXPECT_EQ(directory.Content("TQDEPART.DAT"), before);
}

TEST_F(NewNames, ABlankNameIsRefused) {
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  const int index = AddDepartmentBy([this](frmDept& form) {
    Type(form.DeptName, "   ");
    Press(form, "F10");
    EXPECT_EQ(desktop.boxes.back().text, "Department is required.");
    EXPECT_TRUE(form.Visible() && form.DeptName.HasFocus());
    Press(form, "Esc");
  });
  EXPECT_EQ(index, -1);
}

TEST_F(NewNames, ANameThatIsListedGoesToTheEndLikeAnyOther) {
  const int index = AddDepartmentBy([](frmDept& form) {
    Type(form.DeptName, "TIRES");
    Press(form, "F10");
  });
  EXPECT_EQ(index, 2);
  EXPECT_EQ(directory.Content("TQDEPART.DAT"), Column("TIRES") + Column("OIL") + Column("TIRES") + "\r\n");
}

TEST_F(NewNames, AHeldFileLeavesTheNameOnTheScreen) {
  desktop.failuresExpected = true;
  const int index = AddDepartmentBy([this](frmDept& form) {
    Type(form.DeptName, "BELTS");
    {
      const SharedFile held(directory / "TQDEPART.DAT", Access::ReadWrite, Deny::All);
      Press(form, "F10");
    }
    EXPECT_EQ(desktop.failures.size(), 1U);
    EXPECT_TRUE(form.Visible());
    EXPECT_THAT(records.departments.Names(), ElementsAre("TIRES", "OIL"));
    Press(form, "F10");
  });
  EXPECT_EQ(index, 2);
  EXPECT_EQ(directory.Content("TQDEPART.DAT"), Column("TIRES") + Column("OIL") + Column("BELTS") + "\r\n");
}

}  // namespace
}  // namespace lantos::test
