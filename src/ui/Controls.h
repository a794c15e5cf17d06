#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "frame/Types.h"
#include "ui/Control.h"
#include "ui/Typing.h"

namespace lantos::ui {

// A caption with "&" before its mnemonic letter.
class Captioned : public Control {
 public:
  Captioned(Form& form, std::string name, std::string caption = "", int index = -1)
      : Control(form, std::move(name), index), caption_(std::move(caption)) {}
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

 private:
  std::string caption_;
};

class Label : public Captioned {
 public:
  using Captioned::Captioned;
  std::string_view Type() const override { return "Label"; }
};

class Frame : public Captioned {
 public:
  using Captioned::Captioned;
  std::string_view Type() const override { return "Frame"; }
  // Puts controls inside; they hide and disable with the frame.
  template <class... Inside>
  void Holds(Inside&... inside) {
    (inside.SetContainer(*this), ...);
  }
};

class Button : public Captioned {
 public:
  using Captioned::Captioned;
  std::string_view Type() const override { return "Button"; }
  bool TakesFocus() const override { return true; }
};

class CheckBox : public Captioned {
 public:
  using Captioned::Captioned;
  std::string_view Type() const override { return "CheckBox"; }
  bool TakesFocus() const override { return true; }
  bool Value() const { return value_; }
  void SetValue(bool value);  // a change fires the click
  void DoClick() override;    // toggles

 private:
  bool value_ = false;
};

// Options in one container (or on the bare form) exclude one another.
class OptionButton : public Captioned {
 public:
  using Captioned::Captioned;
  std::string_view Type() const override { return "OptionButton"; }
  bool TakesFocus() const override { return true; }
  bool Value() const { return value_; }
  void SetValue(bool value);  // a change to true fires the click and clears the others of the group
  void DoClick() override;

 private:
  bool value_ = false;
};

class TextBox : public Control, public Typing {
 public:
  using Control::Control;
  std::string_view Type() const override { return "TextBox"; }
  bool TakesFocus() const override { return true; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text);  // a change fires OnChange
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  std::size_t MaxLength() const { return maxLength_; }  // 0 is no limit
  void SetMaxLength(std::size_t length) { maxLength_ = length; }
  bool UpperCase() const { return upperCase_; }  // typed letters become capitals
  void SetUpperCase(bool upper) { upperCase_ = upper; }
  bool MultiLine() const { return multiLine_; }
  void SetMultiLine(bool multiLine) { multiLine_ = multiLine; }
  bool Password() const { return password_; }
  void SetPassword(bool password) { password_ = password; }

  std::function<void()> OnChange;
  // A character about to go in: may be changed; '\0' swallows it.
  std::function<void(char&)> OnKeyPress;

  // The person's typing: replaces the whole text, a character at a time, OnChange after each.
  void DoType(std::string_view text);
  // The same where the caret is, leaving the rest.
  void DoInsert(std::string_view text);
  // The text as it came out of the person's editing (a paste, a deletion): fires OnChange once when it differs.
  void DoEdit(std::string text);

 protected:
  FieldRules Rules() const override { return {maxLength_, locked_, multiLine_, password_, upperCase_}; }
  std::string Shown() const override;
  char Admit(char character) override;
  void PutTyped(std::string shown) override;

 private:
  std::string text_;
  std::size_t maxLength_ = 0;
  bool locked_ = false;
  bool upperCase_ = false;
  bool multiLine_ = false;
  bool password_ = false;
};

struct ListRow {
  std::string text;
  std::int32_t data = 0;
  bool checked = false;
  bool selected = false;
};

// What list box and combo box have in common: rows with item data and one current row.
class RowControl : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  int ListCount() const { return static_cast<int>(rows_.size()); }
  int ListIndex() const { return listIndex_; }
  void SetListIndex(int row);  // a row fires the click, also the one that was current; -1 selects nothing
  const std::vector<ListRow>& Rows() const { return rows_; }
  const std::string& List(int row) const { return rows_.at(static_cast<std::size_t>(row)).text; }
  void SetList(int row, std::string text);
  std::int32_t ItemData(int row) const { return rows_.at(static_cast<std::size_t>(row)).data; }
  int AddItem(std::string text, std::int32_t data = 0);  // at the end (or in order, when sorted); returns the row
  void InsertItem(int row, std::string text, std::int32_t data = 0);
  void RemoveItem(int row);  // a removed current row leaves none current
  void Clear();
  int FindText(std::string_view text) const;  // the first row that equals it, or -1
  int FindData(std::int32_t data) const;      // the first row with this item data, or -1

  virtual void DoSelect(int row);  // the person picks a row; fires the click

 protected:
  virtual void RowChosen() {}  // the current row changed, before the click fires
  virtual void RowLost() {}    // it went, without a click
  std::vector<ListRow> rows_;
  int listIndex_ = -1;
  int extendFrom_ = -1;           // where more than one row can be selected: what Shift goes on from
  std::size_t measuredRows_ = 0;  // leading rows whose width is known; 0 after any change but an addition
  int widest_ = 0;

 private:
  void ForgetWidths() { measuredRows_ = 0; }
};

class ListBox : public RowControl {
 public:
  using RowControl::RowControl;
  std::string_view Type() const override { return "ListBox"; }
  bool MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(bool multi) { multiSelect_ = multi; }
  bool CheckBoxes() const { return checkBoxes_; }
  void SetCheckBoxes(bool boxes) { checkBoxes_ = boxes; }
  void SetChecked(int row, bool checked);
  bool Checked(int row) const { return rows_.at(static_cast<std::size_t>(row)).checked; }
  bool Selected(int row) const;
  void SelectRow(int row);  // this row alone, in a multi-select list too; fires the click
  int HorizontalExtent() const { return horizontalExtent_; }  // pixels; 0 is the list's own width
  void SetHorizontalExtent(int pixels);
  // The greatest of measure(text) over all rows. Rows that were only added since the last call are measured alone, so
  // that a list can be measured after each added line.
  int Widest(const std::function<int(const std::string&)>& measure);

  std::function<void(int row)> OnItemCheck;

  void DoSelectRows(const std::vector<int>& rows);  // of a multi-select list
  void DoExtendTo(int row);                         // all from the row selected last up to this one
  void DoCheck(int row, bool checked);              // the row becomes current, too

 private:
  int horizontalExtent_ = 0;
  bool multiSelect_ = false;
  bool checkBoxes_ = false;
};

// A drop-down: of rows alone, or editable with a text of its own.
class ComboBox : public RowControl, public Typing {
 public:
  using RowControl::RowControl;
  std::string_view Type() const override { return "ComboBox"; }
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { editable_ = editable; }
  std::size_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::size_t length) { maxLength_ = length; }
  const std::string& Text() const { return text_; }  // of the current row, or what was typed
  void SetText(std::string text);                    // fires OnChange; the row of that text becomes current, no click

  std::function<void()> OnChange;
  void DoType(std::string_view text);
  void DoInsert(std::string_view text);
  void DoEdit(std::string text);

  // The row that is marked in the open list, -1: no row is; none while the list is closed.
  const std::optional<int>& DroppedRow() const { return droppedRow_; }
  void Drop(std::optional<int> row);

 protected:
  void RowChosen() override;
  void RowLost() override {
    if (!editable_) RowChosen();  // a text of its own stays
  }
  FieldRules Rules() const override { return {maxLength_, !editable_}; }
  std::string Shown() const override { return text_; }
  void PutTyped(std::string shown) override;

 private:
  std::string text_;
  std::size_t maxLength_ = 0;
  bool editable_ = false;
  std::optional<int> droppedRow_;
};

struct GridColumn {
  std::string name;     // as the program and the driver know it
  std::string caption;  // in the heading
  bool rightAligned = false;
  bool hidden = false;  // its cells are there for the program; nobody sees the column
};
struct GridRow {
  std::vector<std::string> cells;  // in the order of the columns
  std::int32_t data = 0;
};

// Rows and columns of text with a heading; one current row. Serves as grid and as list view. The rows are held, or
// made when somebody looks at them.
class Grid : public Control {
 public:
  using Control::Control;
  std::string_view Type() const override { return "Grid"; }
  bool TakesFocus() const override { return true; }
  const std::vector<GridColumn>& Columns() const { return columns_; }
  void SetColumns(std::vector<GridColumn> columns);
  const std::vector<GridRow>& Rows() const { return rows_; }  // those that are held
  void SetRows(std::vector<GridRow> rows);                    // the current row becomes none
  // As many rows as there are in a long list; each is made afresh at every look. The current row becomes none.
  using MakeRow = std::function<GridRow(int row)>;
  void SetRows(int count, MakeRow makeRow);
  int RowCount() const { return makeRow_ ? madeRows_ : static_cast<int>(rows_.size()); }
  GridRow RowAt(int row) const;
  int Row() const { return row_; }
  void SetRow(int row);                                      // fires OnRowChange
  const std::string& SortedBy() const { return sortedBy_; }  // "VIN" or "VIN Desc": the mark in the heading
  void SetSortedBy(std::string sort);

  std::function<void()> OnRowChange;
  std::function<void(int column)> OnHeadClick;

  void DoSelect(int row);
  void DoHeadClick(int column);

 private:
  std::vector<GridColumn> columns_;
  std::vector<GridRow> rows_;
  MakeRow makeRow_;
  int madeRows_ = 0;
  std::string sortedBy_;
  int row_ = -1;
};

class ListView : public Grid {
 public:
  using Grid::Grid;
  std::string_view Type() const override { return "ListView"; }
};

class MonthView : public Control {
 public:
  using Control::Control;
  std::string_view Type() const override { return "MonthView"; }
  bool TakesFocus() const override { return true; }
  DaySerial Value() const { return value_; }
  void SetValue(DaySerial day);  // fires nothing

  std::function<void(DaySerial)> OnDateClick;
  std::function<void(DaySerial)> OnDateDoubleClick;
  std::function<void()> OnMarkMoved;  // by keys: the day is marked, and not clicked
  // Arrows move the mark by days and weeks, PgUp and PgDn by months, Home and End to the ends of the month. True for
  // these, and for all that a calendar might take for the beginning of a date.
  bool DoKey(const KeyPress& key);
  void DoPick(DaySerial day);
  void DoDoublePick(DaySerial day);  // the click comes first, as the hand does it

 private:
  DaySerial value_ = 0;
};

// A date field with a drop-down calendar. It always holds a date.
class DTPicker : public Control {
 public:
  using Control::Control;
  std::string_view Type() const override { return "DTPicker"; }
  bool TakesFocus() const override { return true; }
  DaySerial Value() const { return value_; }
  void SetValue(DaySerial day);  // a change fires OnChange
  // The part of the date that Up and Down change.
  enum class Part { Month, Day, Year };
  Part CurrentPart() const { return part_; }
  void SetCurrentPart(Part part);

  std::function<void()> OnChange;
  void DoPick(DaySerial day);
  // Left and Right go from part to part, Up and Down change the part by one, PgUp and PgDn the month. True for these.
  bool DoKey(const KeyPress& key);

 private:
  DaySerial value_ = 0;
  Part part_ = Part::Month;
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  std::string_view Type() const override { return "ProgressBar"; }
  int Value() const { return value_; }
  int Maximum() const { return maximum_; }
  void SetRange(int maximum);
  void SetValue(int value);

 private:
  int value_ = 0;
  int maximum_ = 100;
};

// Runs between the person's actions. While its own event runs it doesn't fall due again.
class Timer : public Control {
 public:
  using Control::Control;
  std::string_view Type() const override { return "Timer"; }
  int Interval() const { return interval_; }  // milliseconds; 0 never runs
  void SetInterval(int milliseconds);         // begins anew, also with what it was
  int Starts() const { return starts_; }      // how often it was set
  std::function<void()> OnTimer;
  void DoTick();

 private:
  int interval_ = 0;
  int starts_ = 0;
  bool ticking_ = false;
};

// Members of a control array: List1(0) to List1(6). In the program they count from 0, whatever the first is called.
template <class Kind, std::size_t Count, int First = 0>
class ControlArray {
 public:
  ControlArray(Form& form, const std::string& name) : ControlArray(form, name, std::make_index_sequence<Count>()) {}
  Kind& operator[](std::size_t index) { return members_.at(index); }
  const Kind& operator[](std::size_t index) const { return members_.at(index); }
  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }
  static constexpr std::size_t size() { return Count; }

 private:
  template <class K>
  static K Make(Form& form, const std::string& name, int index) {
    if constexpr (std::is_base_of_v<Captioned, K>) {
      return K(form, name, "", index);
    } else {
      return K(form, name, index);
    }
  }
  template <std::size_t... I>
  ControlArray(Form& form, const std::string& name, std::index_sequence<I...>)
      : members_{Make<Kind>(form, name, First + static_cast<int>(I))...} {}

  std::array<Kind, Count> members_;
};

}  // namespace lantos::ui
