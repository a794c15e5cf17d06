#include <QHeaderView>
#include <QTableView>

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

}  // namespace
}  // namespace lantos
