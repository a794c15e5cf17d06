#include "board/DayCapacityDatabase.h"
#include "qt/EveryForm.h"

// Screens whose fields a person changes: none of them loses what was typed without a word.
namespace lantos {
namespace {

using ui::Answer;

struct Changed {
  std::string_view form;
  std::string_view field;
  std::string_view cancel;
  std::string_view unchanged;
  std::string_view changed;
  std::string_view question = "Discard changes?";
  ui::Buttons buttons = ui::Buttons::YesNo;
};

constexpr Changed kScreens[] = {
    {"frmLabor", "txtDesc", "CancelButton", "Close", "Cancel", "Discard changes?", ui::Buttons::YesNoCancel},
    {"frmRepairCode", "txtRepairCode", "CancelButton", "Close", "Cancel"},
    {"frmEstFollowup", "List1", "cmdCancel", "&Close", "&Cancel"},
    {"frmCanLabor", "txtCode", "cmdCancel", "&Close", "&Cancel"},
    {"frmWOPart", "Description", "cmdCancel", "Close", "Cancel"},
    {"frmWOKit", "SalePrice", "cmdCancel", "Close", "Cancel"},
    {"frmWOExtra", "Vendor", "cmdCancel", "Close", "Cancel", "Discard Changes?"},
    {"frmNotes", "txtDesc", "cmdCancel", "Close", "Cancel"},
    {"frmStdHours", "txtHours(2)", "cmdCancel", "&Close", "&Cancel"},
    {"frmSpecialDays", "txtComments", "cmdCancel", "&Close", "&Cancel"},
    {"frmDisclaimer", "txtDisclaimer", "cmdCancel", "Close", "Cancel"},
    {"frmCustEdit", "Firstname", "cmdCancel", "Close", "Cancel"},
    {"frmVehEdit", "Mileage", "cmdCancel", "Close", "Cancel"},
};

struct Screens : test::BoardShop {
  ui::Form& Open(std::string_view name) {
    const auto found = std::find_if(forms.begin(), forms.end(), [&](const auto& form) { return form->Name() == name; });
    ui::Form& form = **found;
    form.LoadForm();
    if (name == "frmEstFollowup") dynamic_cast<ui::ListBox&>(*form.Find("List1")).AddItem("one");
    form.Show();
    return form;
  }
  static void Touch(ui::Control& field) {
    if (auto* box = dynamic_cast<ui::TextBox*>(&field)) return box->DoType("7");
    if (auto* list = dynamic_cast<ui::ListBox*>(&field)) return list->DoCheck(0, true);
    field.DoClick();
  }

  MasterScreens masters{shop};
  frmInvList inventoryList{shop};
  Workorders workorders{environment, desktop, records};
  test::PaperBoard board{desktop};
  Contents contents{Workbench{shop, database, inventoryList, workorders.Current, board}, workorders};
  std::vector<std::unique_ptr<ui::Form>> forms =
      test::MakeEveryForm({shop, database, masters, inventoryList, workorders, contents});
};

TEST(ChangedScreens, AskBeforeTheyCloseWhicheverWayAndNoStays) {
  Screens screens;
  for (const Changed& each : kScreens) {
    SCOPED_TRACE(std::string(each.form));
    ui::Form& form = screens.Open(each.form);
    auto& cancel = dynamic_cast<ui::Button&>(*form.Find(each.cancel));
    Screens::Touch(*form.Find(each.field));
    const std::array<std::function<void()>, 3> ways = {[&] { test::Press(form, "Esc"); }, [&] { form.DoClose(); },
                                                       [&] { cancel.DoClick(); }};
    for (const auto& leave : ways) {
      screens.desktop.boxes.clear();
      screens.desktop.WillAnswer(Answer::No);
      leave();
      ASSERT_EQ(screens.desktop.boxes.size(), 1U);
      EXPECT_EQ(screens.desktop.boxes[0].text, each.question);
      EXPECT_EQ(screens.desktop.boxes[0].title, form.Caption());
      EXPECT_EQ(screens.desktop.boxes[0].buttons, each.buttons);
      EXPECT_TRUE(form.Visible());
    }
    screens.desktop.WillAnswer(Answer::Yes);
    form.DoClose();
    EXPECT_FALSE(form.Visible());
  }
}

TEST(ChangedScreens, AnUntouchedOneClosesWithoutAWordWhicheverWay) {
  Screens screens;
  for (const Changed& each : kScreens) {
    SCOPED_TRACE(std::string(each.form));
    ui::Form& form = screens.Open(each.form);
    test::Press(form, "Esc");
    EXPECT_FALSE(form.Visible());
    form.Show();
    dynamic_cast<ui::Button&>(*form.Find(each.cancel)).DoClick();
    EXPECT_FALSE(form.Visible());
    form.Show();
    form.DoClose();
    EXPECT_FALSE(form.Visible());
  }
}

TEST(ChangedScreens, TheCancelButtonReadsCloseUntilSomethingChanges) {
  Screens screens;
  for (const Changed& each : kScreens) {
    SCOPED_TRACE(std::string(each.form));
    ui::Form& form = screens.Open(each.form);
    const auto& cancel = dynamic_cast<ui::Button&>(*form.Find(each.cancel));
    EXPECT_EQ(cancel.Caption(), each.unchanged);
    Screens::Touch(*form.Find(each.field));
    EXPECT_EQ(cancel.Caption(), each.changed);
    EXPECT_EQ(cancel.ToolTip(), "Cancel <Esc>");
  }
}

}  // namespace
}  // namespace lantos
