#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "masters/employees/frmEmpPRHist.h"
#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

namespace lantos {
namespace {

std::vector<int> WidthsOf(const QTableView& table) {
  std::vector<int> widths;
  for (int column = 0; column < table.model()->columnCount(); ++column) widths.push_back(table.columnWidth(column));
  return widths;
}

// A list of parts as searches make it: long texts, then short ones, then none.
TEST(GridColumns, OtherRowsDontMakeThemJump) {
  test::WindowShop shop;
  const auto row = [](int number) {
    const std::string text(static_cast<std::size_t>(number % 30), 'W');
    return ui::GridRow{{text, text, text, "7", "1.00", "2.00", "3.00", "4.00", "5.00", "", "", ""}, number};
  };
  for (const auto& form : shop.forms) {
    auto* list = dynamic_cast<frmInvList*>(form.get());
    if (list == nullptr) continue;
    list->Show();
    list->DataGrid1.SetRows(200, row);
    shop.windows.Settle();
    const auto& table = dynamic_cast<QTableView&>(shop.windows.WindowOf(*list)->PeerOf(list->DataGrid1)->Widget());
    const std::vector<int> widths = WidthsOf(table);
    for (const int count : {3, 0, 200}) {
      list->DataGrid1.SetRows(count, row);
      shop.windows.Settle();
      EXPECT_EQ(WidthsOf(table), widths) << count << " rows";
    }
    list->Hide();
  }
}

TEST(GridColumns, AListThatIsSortedKeepsTheWidthsOfItsNumbers) {
  test::WindowShop shop;
  for (const auto& form : shop.forms) {
    auto* list = dynamic_cast<frmInvList*>(form.get());
    if (list == nullptr) continue;
    list->Show();
    list->DataGrid1.SetRows(200, [](int number) {
      const std::string text(20, 'W');
      return ui::GridRow{{text, text, text, "7", "1.00", "2.00", "3.00", "4.00", "5.00", "", "", ""}, number};
    });
    shop.windows.Settle();
    const auto& table = dynamic_cast<QTableView&>(shop.windows.WindowOf(*list)->PeerOf(list->DataGrid1)->Widget());
    const std::vector<int> widths = WidthsOf(table);
    for (const char* order : {"Part", "Description Desc"}) {
      list->DataGrid1.SetSortedBy(order);
      shop.windows.Settle();
      EXPECT_TRUE(table.horizontalHeader()->isSortIndicatorShown());
      for (std::size_t column = 3; column <= 8; ++column) EXPECT_EQ(WidthsOf(table)[column], widths[column]) << column;
    }
    list->Hide();
  }
}

TEST(GridColumns, WhereTheyAreTooManyNoneIsWiderThanItsTexts) {
  test::WindowShop shop;
  for (const auto& form : shop.forms) {
    auto* history = dynamic_cast<frmEmpPRHist*>(form.get());
    if (history == nullptr) continue;
    history->Show();
    const std::vector<std::string> cells(history->ListView1.Columns().size(), "12345678.90");
    history->ListView1.SetRows({{cells, 0}});
    shop.windows.Settle();
    const auto& table =
        dynamic_cast<QTableView&>(shop.windows.WindowOf(*history)->PeerOf(history->ListView1)->Widget());
    EXPECT_GT(table.horizontalHeader()->length(), table.viewport()->width()) << "there is too much for the view";
    for (int column = 1; column < table.model()->columnCount(); ++column) {
      EXPECT_LT(table.columnWidth(column), 160) << column;
    }
    history->Hide();
  }
}

// Rows of a long list, known by their numbers.
class ScrolledList {
 public:
  explicit ScrolledList(test::WindowShop& shop) : shop_(shop) {
    for (const auto& form : shop.forms) {
      if (auto* list = dynamic_cast<frmInvList*>(form.get())) list_ = list;
    }
    list_->DataGrid1.OnRowChange = nullptr;  // the rows aren't those of its parts
    list_->Show();
    Show(0, 500);
  }
  ~ScrolledList() { list_->Hide(); }
  // As many rows, the first of that number.
  void Show(int first, int count, int current = -1) {
    list_->DataGrid1.SetRows(count, [first](int row) {
      const std::string text = std::to_string(first + row);
      return ui::GridRow{{text, text, text}, first + row};
    });
    list_->DataGrid1.SetRow(current);
    shop_.windows.Settle();
  }
  QScrollBar& Bar() { return *Table().verticalScrollBar(); }
  bool IsInSight(int row) {
    return Table().viewport()->rect().intersects(Table().visualRect(Table().model()->index(row, 1)));
  }
  QTableView& Table() {
    return dynamic_cast<QTableView&>(shop_.windows.WindowOf(*list_)->PeerOf(list_->DataGrid1)->Widget());
  }

 private:
  test::WindowShop& shop_;
  frmInvList* list_ = nullptr;
};

// The beginnings of two parts' descriptions may be the same words.
TEST(GridRows, ACellIsCutWhereItsColumnEndsAndIsWholeInItsToolTip) {
  test::WindowShop shop;
  ScrolledList list(shop);
  QTableView& table = list.Table();
  EXPECT_FALSE(table.wordWrap());
  const QModelIndex cell = table.model()->index(123, 1);
  EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid()) << "it can be read";
  list.Show(1000000, 500);
  table.setColumnWidth(1, 30);
  EXPECT_EQ(table.model()->index(123, 1).data(Qt::ToolTipRole).toString(), "1000123");
}

TEST(GridRows, RowsThatChangeUnderThePersonsEyesStayWhereTheyAre) {
  test::WindowShop shop;
  ScrolledList list(shop);
  for (const int current : {-1, 0, 7, 250}) {
    list.Show(0, 500, current);
    list.Bar().setValue(120);
    list.Show(0, 500, current);
    EXPECT_EQ(list.Bar().value(), 120) << "the current row is " << current;
  }
}

TEST(GridRows, TheCurrentRowKeepsItsHeightWhenOthersComeOrGoBeforeIt) {
  test::WindowShop shop;
  ScrolledList list(shop);
  list.Show(100, 500, 250);
  list.Bar().setValue(245);
  list.Show(97, 503, 253);
  EXPECT_EQ(list.Bar().value(), 248);
  EXPECT_TRUE(list.IsInSight(253));
}

TEST(GridRows, AnotherCurrentRowComesIntoSight) {
  test::WindowShop shop;
  ScrolledList list(shop);
  list.Show(0, 500, 250);
  list.Bar().setValue(0);
  list.Show(0, 500, 400);
  EXPECT_TRUE(list.IsInSight(400));
  list.Show(2000, 30, 29);
  EXPECT_TRUE(list.IsInSight(29));
}

}  // namespace
}  // namespace lantos
