#include "ui/qt/Binding.h"

#include <QDir>
#include <QLineEdit>
#include <set>

#include "qt/EveryForm.h"
#include "ui/qt/FormFile.h"

namespace lantos {
namespace {

using ui::BindingProblems;

TEST(Binding, EveryControlOfEveryFormHasItsWidgetAndEveryWidgetItsControl) {
  const test::PaperShop every;
  for (const auto& form : every.forms) {
    for (const std::string& problem : BindingProblems(*form)) ADD_FAILURE() << form->Name() << ": " << problem;
  }
}

TEST(Binding, EveryDesignedFormIsAFormOfTheProgram) {
  const test::PaperShop every;
  std::set<QString> names;
  for (const auto& form : every.forms) names.insert(QString::fromStdString(form->Name()) + ".ui");
  ui::LoadFormFile("frmMain");
  for (const QString& file : QDir(":/forms").entryList()) EXPECT_TRUE(names.contains(file)) << file.toStdString();
}

TEST(Binding, AFormThatWasNeverDesignedIsRefused) { EXPECT_THROW(ui::LoadFormFile("frmNowhere"), std::logic_error); }

// Controls and widgets that don't match frmEnterPwd's.
class Misfit : public ui::Form {
 public:
  explicit Misfit(ui::Desktop& desktop) : Form(desktop, "frmEnterPwd", "Misfit") { box.Holds(cmdOK); }
  ui::Button cmdOK{*this, "cmdOK"};
  ui::TextBox Pwd{*this, "Pwd"};
  ui::CheckBox cmdCancel{*this, "cmdCancel"};
  ui::Frame box{*this, "box"};
};

TEST(Binding, WhatDoesNotMatchIsTold) {
  test::TestDesktop desktop;
  const Misfit form(desktop);
  EXPECT_EQ(
      BindingProblems(form),
      (std::vector<std::string>{"cmdCancel can't be shown by a QPushButton", "box has no widget",
                                "cmdOK lies in no frame, its container is box", "The widget lblPassword has no control",
                                "The widget cmdCancel has no control", "Pwd is out of turn in the tab order"}));
}

}  // namespace
}  // namespace lantos
