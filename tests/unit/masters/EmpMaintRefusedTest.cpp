#include "EmployeeShop.h"

namespace lantos::test {
namespace {

// What was refused on the screen of the employees, and is typed anew.
using EmpMaintRefused = EmployeeShop;

TEST_F(EmpMaintRefused, ADateIsMarkedSoThatTheNextOneTakesItsPlace) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    for (const char* key : {"Tab", "F10"}) {
      Type(form.DateHired, "02/30/2001");
      Press(form, key);
      EXPECT_TRUE(form.DateHired.HasFocus()) << key;
      for (const char character : std::string("2/28/01")) form.DateHired.TypeCharacter(character);
      EXPECT_EQ(form.DateHired.Text(), "2/28/01") << key;
    }
    Press(form, "Esc");
  });
}

TEST_F(EmpMaintRefused, ANumberIsMarkedToo) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    for (const char* refused : {"two", "256"}) {
      Type(form.NumExemptions, refused);
      Press(form, "F10");
      EXPECT_TRUE(form.NumExemptions.HasFocus()) << refused;
      form.NumExemptions.TypeCharacter('3');
      EXPECT_EQ(form.NumExemptions.Text(), "3") << refused;
    }
    Press(form, "Esc");
  });
}

}  // namespace
}  // namespace lantos::test
