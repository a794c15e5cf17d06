#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>
#include <algorithm>

#include "ui/qt/FormWindow.h"
#include "ui/qt/RowsPeer.h"
#include "ui/qt/Text.h"
#include "ui/qt/ToolTip.h"

namespace lantos::ui {

namespace {

constexpr std::string_view kDescending = " Desc";
constexpr int kRowPadding = 6;     // pixels above and below the text together
constexpr int kLeastWidest = 160;  // pixels that the widest column keeps
constexpr int kLeastSection = 28;  // pixels: a column of one letter, its sort mark beside it

// The rows of a grid, made when the view asks for them.
class GridModel : public QAbstractTableModel {
 public:
  // view is the one that shows it.
  GridModel(const Grid& grid, const QTableView& view) : grid_(grid), view_(view) {}

  // The grid is no more; the view is for a while yet.
  void Close() {
    beginResetModel();
    rows_ = columns_ = 0;
    endResetModel();
  }
  void Reload() {
    beginResetModel();
    rows_ = grid_.RowCount();
    columns_ = static_cast<int>(grid_.Columns().size());
    lookedAt_ = -1;
    endResetModel();
  }
  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || index.row() >= rows_ || index.row() >= grid_.RowCount()) return {};
    if (role == Qt::TextAlignmentRole) {
      const bool right = grid_.Columns()[static_cast<std::size_t>(index.column())].rightAligned;
      return static_cast<int>(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role == Qt::ToolTipRole) return IsCut(index) ? AsToolTip(Cell(index.row(), index.column())) : QVariant();
    return role == Qt::DisplayRole ? QVariant(Cell(index.row(), index.column())) : QVariant();
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columns_) return {};
    return ToQt(grid_.Columns()[static_cast<std::size_t>(section)].caption);
  }

 private:
  QString Cell(int row, int column) const {
    if (row != lookedAt_) {
      row_ = grid_.RowAt(row);
      lookedAt_ = row;
    }
    const auto place = static_cast<std::size_t>(column);
    return place < row_.cells.size() ? ToQt(row_.cells[place]) : QString();
  }

  bool IsCut(const QModelIndex& index) const {
    const int margin = 2 * (view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1);
    const int wanted = view_.fontMetrics().horizontalAdvance(Cell(index.row(), index.column())) + margin;
    return wanted > view_.visualRect(index).width();
  }

  const Grid& grid_;
  const QTableView& view_;
  int rows_ = 0;
  int columns_ = 0;
  mutable GridRow row_;  // the one looked at last
  mutable int lookedAt_ = -1;
};

// The model goes in before the base class listens to its selection.
QTableView& WithModel(QTableView& table, QAbstractItemModel& model) {
  table.setModel(&model);
  return table;
}

struct HasModel {
  HasModel(const Grid& grid, const QTableView& view) : model_(grid, view) {}
  GridModel model_;
};

class GridPeer : private HasModel, public RowsPeer {
 public:
  GridPeer(FormWindow& window, Grid& control, QTableView& table)
      : HasModel(control, table), RowsPeer(window, control, WithModel(table, model_)), grid_(control), table_(table) {
    table_.setSelectionBehavior(QAbstractItemView::SelectRows);
    table_.setSelectionMode(QAbstractItemView::SingleSelection);
    table_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_.setTabKeyNavigation(false);
    table_.setWordWrap(false);  // a row is one line, and is cut where the column ends and not at a word before it
    table_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // one that comes and goes moves the columns
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
    state.cells->resize(static_cast<std::size_t>(model_.rowCount()));
    for (int row = 0; row < model_.rowCount(); ++row) {
      GridRow& shown = (*state.cells)[static_cast<std::size_t>(row)];
      shown.cells.clear();
      for (int column = 0; column < model_.columnCount(); ++column) {
        shown.cells.push_back(FromQt(model_.index(row, column).data().toString()));
      }
    }
  }

  void ControlGone() override { model_.Close(); }

 private:
  int CurrentRow() const override { return grid_.Row(); }
  void Pick(int row) override { grid_.DoSelect(row); }
  int LeadingColumn() const override {
    int column = 0;
    while (column + 1 < model_.columnCount() && table_.isColumnHidden(column)) ++column;
    return column;
  }

  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Look)) {
      table_.verticalHeader()->setDefaultSectionSize(QFontMetrics(FontToCome()).height() + kRowPadding);
    }
    if (Has(aspects, Aspect::Rows)) {
      ShowRows();
    } else if (Has(aspects, Aspect::Selection)) {
      ShowSelected(grid_.Row());
    }
    if (Has(aspects, Aspect::Rows) || Has(aspects, Aspect::Selection)) current_ = IdentityOf(grid_.Row());
  }

  // Where the current row is the one that was, and the order too, the rows change under the person's eyes: it stays at
  // its height, and where they have scrolled away from it, they stay away.
  void ShowRows() {
    const int top = table_.verticalScrollBar()->value();
    const int before = SelectedRow();
    const bool inOrderOfBefore = grid_.SortedBy() == sortedBy_;
    model_.Reload();
    if (HideColumns()) {
      widthsArePersons_ = false;
      widest_.clear();
    }
    ShowSortMark();
    if (!widthsArePersons_) FitColumns();
    ShowSelected(grid_.Row());
    const bool isTheSame = grid_.Row() < 0 || before < 0 ? grid_.Row() == before : IdentityOf(grid_.Row()) == current_;
    if (!isTheSame || !inOrderOfBefore) return;
    table_.verticalScrollBar()->setValue(top + grid_.Row() - before);
  }

  // What the program knows the row by, or how it begins where that says nothing.
  std::string IdentityOf(int row) const {
    if (row < 0) return {};
    const GridRow shown = grid_.RowAt(row);
    if (shown.data != 0 || shown.cells.size() < 2) return std::to_string(shown.data);
    return shown.cells[0] + '\0' + shown.cells[1];
  }

  // True when the columns are others than before.
  bool HideColumns() {
    QStringList captions;
    for (const GridColumn& column : grid_.Columns()) captions.append(ToQt(column.caption));
    if (captions == captions_) return false;
    captions_ = captions;
    for (int column = 0; column < model_.columnCount(); ++column) {
      table_.setColumnHidden(column, grid_.Columns()[static_cast<std::size_t>(column)].hidden);
    }
    return true;
  }

  // By their contents, and what is left over goes to all but the last alike. A column that has been wider stays so:
  // other rows don't make the columns jump.
  void FitColumns() {
    if (fitting_) return;
    fitting_ = true;
    QHeaderView& heading = *table_.horizontalHeader();
    ResizeToContents(heading);
    widest_.resize(static_cast<std::size_t>(heading.count()));
    for (int column = 0; column < heading.count(); ++column) {
      if (heading.isSectionHidden(column)) continue;
      int& widest = widest_[static_cast<std::size_t>(column)];
      widest = std::max(widest, heading.sectionSize(column));
      heading.resizeSection(column, widest);
    }
    const int growing = heading.count() - heading.hiddenSectionCount() - 1;
    const int spare = table_.viewport()->width() - heading.length();
    if (spare < 0) Shrink(heading, -spare);
    int grown = 0;
    for (int column = 0; column < heading.count() && grown < growing && spare > 0; ++column) {
      if (heading.isSectionHidden(column)) continue;
      ++grown;
      const int upToHere = spare * grown / growing;
      heading.resizeSection(column, heading.sectionSize(column) + upToHere - spare * (grown - 1) / growing);
    }
    fitting_ = false;
  }

  // Room for the sort mark has the column that bears it alone: the window system would give it to all of them, and the
  // last ones would be pushed out of sight.
  void ResizeToContents(QHeaderView& heading) {
    const bool marked = heading.isSortIndicatorShown();
    heading.setSortIndicatorShown(false);
    table_.resizeColumnsToContents();
    heading.setSortIndicatorShown(marked);
    const int sorted = heading.sortIndicatorSection();
    if (!marked || sorted < 0 || sorted >= heading.count() || heading.isSectionHidden(sorted)) return;
    heading.resizeSection(sorted, std::max(heading.sectionSize(sorted), heading.sectionSizeHint(sorted)));
  }

  // What is too much for the view comes off the widest column, whose texts are cut with dots.
  static void Shrink(QHeaderView& heading, int tooMuch) {
    int widest = 0;
    for (int column = 0; column < heading.count(); ++column) {
      if (heading.sectionSize(column) > heading.sectionSize(widest)) widest = column;
    }
    const int size = heading.sectionSize(widest);
    heading.resizeSection(widest, std::min(size, std::max(size - tooMuch, kLeastWidest)));
  }

  void ShowSortMark() {
    sortedBy_ = grid_.SortedBy();
    std::string name = sortedBy_;
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
  QTableView& table_;
  QStringList captions_;
  std::string current_;  // what was shown as the current row
  std::string sortedBy_;
  std::vector<int> widest_;  // pixels that the contents of each column have wanted
  bool fitting_ = false;
  bool widthsArePersons_ = false;  // the person has drawn at a heading
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeGridPeer(FormWindow& window, Grid& control, QWidget& widget) {
  return std::make_unique<GridPeer>(window, control, dynamic_cast<QTableView&>(widget));
}

}  // namespace lantos::ui
