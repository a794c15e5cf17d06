#include <QHeaderView>
#include <QTableWidget>

#include "ui/qt/FormWindow.h"
#include "ui/qt/RowsPeer.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

constexpr std::string_view kDescending = " Desc";
constexpr int kRowPadding = 6;     // pixels above and below the text together
constexpr int kLeastSection = 28;  // pixels: a column of one letter, its sort mark beside it

class GridPeer : public RowsPeer {
 public:
  GridPeer(FormWindow& window, Grid& control, QTableWidget& table)
      : RowsPeer(window, control, table), grid_(control), table_(table) {
    table_.setSelectionBehavior(QAbstractItemView::SelectRows);
    table_.setSelectionMode(QAbstractItemView::SingleSelection);
    table_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_.setTabKeyNavigation(false);
    table_.verticalHeader()->hide();
    QHeaderView& heading = *table_.horizontalHeader();
    heading.setSectionsClickable(true);
    heading.setHighlightSections(false);
    heading.setMinimumSectionSize(kLeastSection);
    QObject::connect(&heading, &QHeaderView::geometriesChanged, &table_, [this] {
      if (!widthsArePersons_) FitColumns();
    });
    QObject::connect(&heading, &QHeaderView::sectionResized, &table_, [this] {
      if (!fitting_) widthsArePersons_ = true;
    });
    QObject::connect(&heading, &QHeaderView::sectionClicked, &table_, [this](int column) {
      if (!IsPersonsDoing()) return;
      grid_.DoHeadClick(column);
      // The heading has turned its mark by itself; what holds is the control's.
      if (Window().IsAttached()) Refresh(Aspect::Rows);
    });
  }

  void Read(ControlState& state) const override {
    RowsPeer::Read(state);
    state.cells->resize(static_cast<std::size_t>(table_.rowCount()));
    for (int row = 0; row < table_.rowCount(); ++row) {
      GridRow& shown = (*state.cells)[static_cast<std::size_t>(row)];
      shown.cells.clear();
      for (int column = 0; column < table_.columnCount(); ++column) {
        const QTableWidgetItem* item = table_.item(row, column);
        shown.cells.push_back(item == nullptr ? std::string() : FromQt(item->text()));
      }
    }
  }

 private:
  int CurrentRow() const override { return grid_.Row(); }
  void Pick(int row) override { grid_.DoSelect(row); }

  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Look)) {
      table_.verticalHeader()->setDefaultSectionSize(QFontMetrics(FontToCome()).height() + kRowPadding);
    }
    if (Has(aspects, Aspect::Rows)) {
      if (ShowHeading()) widthsArePersons_ = false;
      ShowRows();
      ShowSortMark();
      if (!widthsArePersons_) FitColumns();
    }
    if (Has(aspects, Aspect::Rows) || Has(aspects, Aspect::Selection)) ShowSelected(grid_.Row());
  }

  // True when the columns are others than before.
  bool ShowHeading() {
    QStringList captions;
    for (const GridColumn& column : grid_.Columns()) captions.append(ToQt(column.caption));
    if (captions == captions_) return false;
    captions_ = captions;
    table_.setColumnCount(static_cast<int>(captions.size()));
    table_.setHorizontalHeaderLabels(captions);
    for (int column = 0; column < table_.columnCount(); ++column) {
      table_.setColumnHidden(column, grid_.Columns()[static_cast<std::size_t>(column)].hidden);
    }
    return true;
  }

  void ShowRows() {
    table_.setRowCount(grid_.RowCount());
    for (int row = 0; row < table_.rowCount(); ++row) {
      const auto& cells = grid_.Rows()[static_cast<std::size_t>(row)].cells;
      for (int column = 0; column < table_.columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        const QString text = place < cells.size() ? ToQt(cells[place]) : QString();
        ShowCell(row, column, text, grid_.Columns()[place].rightAligned);
      }
    }
  }

  void ShowCell(int row, int column, const QString& text, bool rightAligned) {
    QTableWidgetItem* item = table_.item(row, column);
    if (item == nullptr) {
      item = new QTableWidgetItem;
      table_.setItem(row, column, item);
    }
    item->setText(text);
    item->setTextAlignment(Qt::AlignVCenter | (rightAligned ? Qt::AlignRight : Qt::AlignLeft));
  }

  // By their contents, and what is left over goes to all but the last alike.
  void FitColumns() {
    if (fitting_) return;
    fitting_ = true;
    table_.resizeColumnsToContents();
    QHeaderView& heading = *table_.horizontalHeader();
    const int growing = heading.count() - heading.hiddenSectionCount() - 1;
    const int spare = table_.viewport()->width() - heading.length();
    int grown = 0;
    for (int column = 0; column < heading.count() && grown < growing && spare > 0; ++column) {
      if (heading.isSectionHidden(column)) continue;
      ++grown;
      const int upToHere = spare * grown / growing;
      heading.resizeSection(column, heading.sectionSize(column) + upToHere - spare * (grown - 1) / growing);
    }
    fitting_ = false;
  }

  void ShowSortMark() {
    std::string name = grid_.SortedBy();
    const bool descending = name.ends_with(kDescending);
    if (descending) name.resize(name.size() - kDescending.size());
    int place = -1;
    for (std::size_t i = 0; i < grid_.Columns().size(); ++i) {
      if (grid_.Columns()[i].name == name) place = static_cast<int>(i);
    }
    table_.horizontalHeader()->setSortIndicatorShown(place >= 0);
    table_.horizontalHeader()->setSortIndicator(place, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }

  Grid& grid_;
  QTableWidget& table_;
  QStringList captions_;
  bool fitting_ = false;
  bool widthsArePersons_ = false;  // the person has drawn at a heading
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeGridPeer(FormWindow& window, Grid& control, QWidget& widget) {
  return std::make_unique<GridPeer>(window, control, dynamic_cast<QTableWidget&>(widget));
}

}  // namespace lantos::ui
