#include <QScrollBar>
#include <QTableView>

#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

namespace lantos {
namespace {

ui::GridRow Row(int number) { return {{"KEY", "PART " + std::to_string(number), "TEXT"}, number}; }

// The inventory list with 200 rows, the tenth selected and scrolled to.
class GridScroll : public testing::Test {
 protected:
  GridScroll() {
    for (const auto& form : shop.forms) {
      if (auto* found = dynamic_cast<frmInvList*>(form.get())) list = found;
    }
    list->DataGrid1.OnRowChange = nullptr;  // the rows aren't those of its parts
    list->Show();
    list->DataGrid1.SetRows(200, Row);
    list->DataGrid1.SetRow(10);
    shop.windows.Settle();
    table = &dynamic_cast<QTableView&>(shop.windows.WindowOf(*list)->PeerOf(list->DataGrid1)->Widget());
  }
  ~GridScroll() override { list->Hide(); }

  void ScrollTo(int row) const { table->verticalScrollBar()->setValue(row); }
  int Top() const { return table->rowAt(0); }
  // That many came ahead of the first.
  void Show(int rows, int selected, int came = 0) {
    list->DataGrid1.SetRows(rows, [came](int row) { return Row(row - came); });
    list->DataGrid1.SetRow(selected);
    shop.windows.Settle();
  }

  test::WindowShop shop;
  frmInvList* list = nullptr;
  QTableView* table = nullptr;
};

TEST_F(GridScroll, StaysWhereThePersonScrolledToWhenCellsAreLookedAtAnew) {
  ScrollTo(100);
  list->DataGrid1.SetSortedBy(list->DataGrid1.SortedBy());
  shop.windows.Settle();
  EXPECT_EQ(Top(), 100);
  EXPECT_EQ(list->DataGrid1.Row(), 10);
  EXPECT_EQ(table->currentIndex().row(), 10);
}

TEST_F(GridScroll, StaysWithTheRowsWhenSomeCome) {
  ScrollTo(100);
  Show(202, 12, 2);
  EXPECT_EQ(Top(), 102);
  Show(203, 12, 2);
  EXPECT_EQ(Top(), 102);
}

TEST_F(GridScroll, TheSelectedRowKeepsItsPlaceOnTheScreen) {
  ScrollTo(8);
  Show(201, 11, 1);
  EXPECT_EQ(Top(), 9);
}

TEST_F(GridScroll, OtherRowsAndAnotherOrderGoToTheSelectedOne) {
  ScrollTo(100);
  Show(200, 30);
  EXPECT_LE(Top(), 30);
  ScrollTo(100);
  list->DataGrid1.SetSortedBy("Part");
  shop.windows.Settle();
  EXPECT_LE(Top(), 30);
}

}  // namespace
}  // namespace lantos
