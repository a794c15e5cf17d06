#include <gtest/gtest.h>

#include "TestDesktop.h"
#include "ui/Form.h"

// Lists and drop-downs under the keyboard, where rows come and go meanwhile.
namespace lantos::ui {
namespace {

class Lists : public Form {
 public:
  explicit Lists(Desktop& desktop) : Form(desktop, "frmLists", "Lists") {
    list.SetMultiSelect(true);
    for (const char* row : {"a", "b", "c", "d", "e", "f"}) {
      list.AddItem(row);
      combo.AddItem(row);
    }
    cancel.OnClick = [this] { ++cancelled; };
    SetCancelButton(cancel);
  }
  void OnKeyDown(KeyPress& key) override { told.push_back(key.key); }
  void Press(std::string_view key) { PressKey(ParseKey(key)); }
  // The letters of the selected rows.
  std::string Selected() const {
    std::string letters;
    for (const ListRow& row : list.Rows()) letters += row.selected ? row.text : "";
    return letters;
  }

  ListBox list{*this, "list"};
  ComboBox combo{*this, "combo"};
  Button cancel{*this, "cancel", "Cancel"};
  std::vector<std::string> told;
  int cancelled = 0;
};

struct Rows : testing::Test {
  Rows() { form.Show(); }
  test::TestDesktop desktop;
  Lists form{desktop};
};

TEST_F(Rows, ShiftGoesOnFromTheRowThatTheProgramSelected) {
  form.list.DoSelectRows({5});
  form.list.SelectRow(2);
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "cd");
  form.Press("Shift+Up");
  form.Press("Shift+Up");
  EXPECT_EQ(form.Selected(), "bc");
}

TEST_F(Rows, ShiftInAListFilledAnewGoesOnFromItsCurrentRow) {
  form.list.DoSelectRows({4});
  form.list.Clear();
  for (const char* row : {"u", "v", "w", "x", "y", "z"}) form.list.AddItem(row);
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "u") << "nothing was selected yet";
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "uv");
}

TEST_F(Rows, ShiftStaysWithItsRowWhereRowsComeAndGoAboveIt) {
  form.list.DoSelectRows({3});
  form.list.RemoveItem(0);
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "de");
  form.list.InsertItem(0, "n");
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "def");
}

TEST_F(Rows, ShiftAfterTheRemovalOfItsRowBeginsAtTheCurrentOne) {
  form.list.DoSelectRows({1});
  form.Press("Shift+Down");
  form.Press("Shift+Down");
  form.list.RemoveItem(1);
  form.Press("Shift+Down");
  EXPECT_EQ(form.Selected(), "de");
}

}  // namespace
}  // namespace lantos::ui
