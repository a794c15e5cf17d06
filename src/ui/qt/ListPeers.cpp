#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <optional>
#include <utility>

#include "ui/qt/FormWindow.h"
#include "ui/qt/Keys.h"
#include "ui/qt/RowsPeer.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

// The room that the program leaves behind the longest text. A row has margins of its own.
constexpr QLatin1String kRoomBehindText("  ");

// All rows are as wide as the program asked for, so that the longest can be scrolled to. A row is one line of text, and
// is painted as such: the style would lay it out as a page of text, twice.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  int extent = 0;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (extent <= 0) return size;
    size.setWidth(extent - option.fontMetrics.horizontalAdvance(kRoomBehindText) + 2 * MarginOf(option));
    return size;
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    if (row.features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) {
      return QStyledItemDelegate::paint(painter, option, index);
    }
    const QString text = std::exchange(row.text, QString());
    row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    const bool selected = row.state.testFlag(QStyle::State_Selected);
    painter->setFont(row.font);
    painter->setPen(row.palette.color(GroupOf(row), selected ? QPalette::HighlightedText : QPalette::Text));
    const int above = (row.rect.height() - row.fontMetrics.height()) / 2 + row.fontMetrics.ascent();
    painter->drawText(row.rect.left() + MarginOf(row), row.rect.top() + above, text);
  }

 private:
  static int MarginOf(const QStyleOptionViewItem& row) {
    return row.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &row) + 1;
  }
  static QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& row) {
    if (!row.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
    return row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  }
};

class ListPeer : public RowsPeer {
 public:
  ListPeer(FormWindow& window, ListBox& control, QListWidget& list)
      : RowsPeer(window, control, list), box_(control), list_(list), delegate_(new RowDelegate(&list)) {
    list_.setItemDelegate(delegate_);
    list_.setUniformItemSizes(true);
    list_.setTextElideMode(Qt::ElideNone);
    list_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    QObject::connect(&list_, &QListWidget::itemChanged, &list_, [this](QListWidgetItem* item) {
      if (!IsPersonsDoing() || !box_.CheckBoxes()) return;
      const int row = list_.row(item);
      const bool checked = item->checkState() == Qt::Checked;
      if (box_.Checked(row) != checked) box_.DoCheck(row, checked);
    });
  }

  int TopRow() const override { return std::max(0, list_.indexAt(QPoint(0, 0)).row()); }

  void KeepTopRow(int row) override {
    keptTop_ = row;
    Refresh(Aspect::Selection);
  }

  void Read(ControlState& state) const override {
    RowsPeer::Read(state);
    state.rows->resize(static_cast<std::size_t>(list_.count()));
    for (int row = 0; row < list_.count(); ++row) {
      const QListWidgetItem& item = *list_.item(row);
      ListRow& shown = (*state.rows)[static_cast<std::size_t>(row)];
      shown.text = ShownText(item.text());
      shown.selected = item.isSelected();
      if (box_.CheckBoxes()) shown.checked = item.checkState() == Qt::Checked;
    }
  }

 private:
  int CurrentRow() const override { return box_.ListIndex(); }
  bool CanPickNone() const override { return box_.MultiSelect(); }

  void Pick(int row) override {
    if (box_.MultiSelect()) {
      box_.DoSelectRows(SelectedRows());
    } else {
      box_.DoSelect(row);
    }
  }

  void Apply(unsigned aspects) override {
    list_.setSelectionMode(box_.MultiSelect() ? QAbstractItemView::ExtendedSelection
                                              : QAbstractItemView::SingleSelection);
    if (delegate_->extent != box_.HorizontalExtent()) {
      delegate_->extent = box_.HorizontalExtent();
      list_.doItemsLayout();
    }
    if (Has(aspects, Aspect::Rows)) ShowRows();
    if (!Has(aspects, Aspect::Rows) && !Has(aspects, Aspect::Selection)) return;
    const int sideways = list_.horizontalScrollBar()->value();
    ShowSelection();
    if (keptTop_) ScrollBackTo(*std::exchange(keptTop_, std::nullopt), sideways);
  }

  void ScrollBackTo(int row, int sideways) {
    if (const QListWidgetItem* top = list_.item(row)) list_.scrollToItem(top, QAbstractItemView::PositionAtTop);
    list_.horizontalScrollBar()->setValue(sideways);
  }

  void ShowRows() {
    const auto& rows = box_.Rows();
    while (list_.count() > box_.ListCount()) delete list_.takeItem(list_.count() - 1);
    QStringList added;
    for (std::size_t row = static_cast<std::size_t>(list_.count()); row < rows.size(); ++row) {
      added.append(ToQt(rows[row].text));
    }
    const int kept = list_.count();
    list_.addItems(added);
    for (int row = 0; row < list_.count(); ++row) {
      QListWidgetItem& item = *list_.item(row);
      const ListRow& wanted = rows[static_cast<std::size_t>(row)];
      if (row < kept) item.setText(ToQt(wanted.text));
      if (box_.CheckBoxes()) item.setCheckState(wanted.checked ? Qt::Checked : Qt::Unchecked);
    }
  }

  void ShowSelection() {
    if (!box_.MultiSelect()) return ShowSelected(box_.ListIndex());
    for (int row = 0; row < list_.count(); ++row) list_.item(row)->setSelected(box_.Selected(row));
    list_.setCurrentRow(box_.ListIndex(), QItemSelectionModel::NoUpdate);
    if (QListWidgetItem* current = list_.item(box_.ListIndex())) list_.scrollToItem(current);
  }

  ListBox& box_;
  QListWidget& list_;
  RowDelegate* delegate_;
  std::optional<int> keptTop_;
};

class ComboPeer : public WidgetPeer {
 public:
  ComboPeer(FormWindow& window, ComboBox& control, QComboBox& combo)
      : WidgetPeer(window, control, combo), box_(control), combo_(combo) {
    combo_.setEditable(box_.Editable());
    combo_.setInsertPolicy(QComboBox::NoInsert);
    if (box_.Editable()) combo_.setCompleter(nullptr);
    QObject::connect(&combo_, &QComboBox::activated, &combo_, [this](int row) {
      if (IsPersonsDoing()) box_.DoSelect(row);
      if (Window().IsAttached()) Refresh(Aspect::Selection);
    });
    combo_.view()->installEventFilter(&dropped_);
    // Each row is as high as the first: thousands of them aren't measured before the list drops.
    if (auto* list = qobject_cast<QListView*>(combo_.view())) list->setUniformItemSizes(true);
    if (!box_.Editable()) return;
    QObject::connect(combo_.lineEdit(), &QLineEdit::textEdited, &combo_, [this](const QString& text) {
      if (IsPersonsDoing()) box_.DoEdit(FromQt(text));
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.text = ShownText(combo_.currentText());
    state.selected = SelectedRow();
    state.rows->resize(static_cast<std::size_t>(combo_.count()));
    for (int row = 0; row < combo_.count(); ++row) {
      (*state.rows)[static_cast<std::size_t>(row)].text = ShownText(combo_.itemText(row));
      (*state.rows)[static_cast<std::size_t>(row)].selected = row == *state.selected;
    }
    if (box_.Editable()) state.caret = combo_.lineEdit()->cursorPosition();
  }

 private:
  // The open list, which is a window of its own.
  class DroppedList : public QObject {
   public:
    explicit DroppedList(ComboPeer& peer) : peer_(peer) {}
    bool eventFilter(QObject*, QEvent* event) override { return peer_.HandleDropped(*event); }

   private:
    ComboPeer& peer_;
  };

  bool HandleDropped(QEvent& event) {
    if (!IsPersonsDoing()) return false;
    if (event.type() == QEvent::Show) box_.Drop(box_.ListIndex());
    if (event.type() == QEvent::Hide) box_.Drop(std::nullopt);
    if (event.type() != QEvent::KeyPress || !box_.DroppedRow()) return false;
    const KeyPress key = ReadKey(static_cast<QKeyEvent&>(event));
    if (key.key.empty()) return false;
    Window().GetForm().PressControlKey(key);
    if (Window().IsAttached()) Window().Flush();
    return true;
  }

  void ShowDropped() {
    if (!box_.DroppedRow()) return combo_.hidePopup();
    if (!combo_.view()->isVisible()) combo_.showPopup();
    const QModelIndex row = combo_.model()->index(*box_.DroppedRow(), combo_.modelColumn());
    combo_.view()->selectionModel()->clear();
    if (row.isValid()) combo_.view()->setCurrentIndex(row);
  }

  // Where the text is typed, it says which row is the current one.
  int SelectedRow() const {
    return box_.Editable() ? combo_.findText(combo_.currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive)
                           : combo_.currentIndex();
  }

  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Rows)) ShowRows();
    if (box_.Editable()) {
      ApplyText(Has(aspects, Aspect::Selection));
    } else if (combo_.currentIndex() != box_.ListIndex()) {
      combo_.setCurrentIndex(box_.ListIndex());
    }
    if (Has(aspects, Aspect::Dropped)) ShowDropped();
  }

  // A row of none would empty the field, and the caret would be lost with what is being typed.
  void ApplyText(bool rowChosen) {
    QLineEdit& edit = *combo_.lineEdit();
    const QString text = ToQt(box_.Text());
    const int place = edit.cursorPosition();
    const bool changes = edit.text() != text;
    if (!limited_ || changes) Limit(edit, text.size());
    if (box_.ListIndex() >= 0 && combo_.currentIndex() != box_.ListIndex()) combo_.setCurrentIndex(box_.ListIndex());
    if (edit.text() != text) combo_.setEditText(text);
    if (rowChosen && box_.ListIndex() >= 0 && combo_.hasFocus()) {
      edit.selectAll();
    } else if (changes) {
      edit.setCursorPosition(combo_.hasFocus() ? place : 0);
    }
  }

  // The limit is for typing: what the program itself sets may be longer.
  void Limit(QLineEdit& edit, qsizetype length) {
    limited_ = true;
    if (box_.MaxLength() == 0) return;
    const int wanted = std::max(static_cast<int>(box_.MaxLength()), static_cast<int>(length));
    if (edit.maxLength() != wanted) edit.setMaxLength(wanted);
  }

  void ShowRows() {
    QStringList texts;
    for (const ListRow& row : box_.Rows()) texts.append(ToQt(row.text));
    const QString text = combo_.currentText();
    combo_.clear();
    combo_.addItems(texts);
    if (box_.Editable()) combo_.setEditText(text);
  }

  ComboBox& box_;
  QComboBox& combo_;
  bool limited_ = false;
  DroppedList dropped_{*this};
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeListPeer(FormWindow& window, ListBox& control, QWidget& widget) {
  return std::make_unique<ListPeer>(window, control, dynamic_cast<QListWidget&>(widget));
}

std::unique_ptr<WidgetPeer> MakeComboPeer(FormWindow& window, ComboBox& control, QWidget& widget) {
  return std::make_unique<ComboPeer>(window, control, dynamic_cast<QComboBox&>(widget));
}

}  // namespace lantos::ui
