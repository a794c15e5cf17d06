#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "records/Record.h"
#include "screens/NumberFields.h"
#include "screens/UnsavedChanges.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// A screen that edits one record: Save, Reset, Cancel with their keys, the question before changes are dropped, and
// text boxes bound to fields of the record. A box whose text wasn't changed leaves the record's bytes alone.
class EditForm : public ui::Form {
 public:
  // Whether the screen was left with a record to be kept.
  bool Saved() const { return saved_; }

 protected:
  EditForm(Shop& shop, std::string name, std::string caption)
      : Form(shop.desktop, std::move(name), std::move(caption)), shop_(shop) {}

  virtual void Save() = 0;
  virtual void ShowFields() = 0;  // from the record
  virtual void OtherKey(ui::KeyPress&) {}

  // Wires the buttons and their tool tips.
  void SetEditButtons(ui::Button& save, ui::Button& reset, ui::Button& cancel);
  void SetEditButtons(ui::Button& save, ui::Button& cancel);
  // The box holds one character less than the field is wide.
  void Bind(ui::TextBox& box, TextField field);
  void Bind(ui::ComboBox& box, TextField field);
  // A date that is refused when the box is left; empty is no date.
  void BindDate(ui::TextBox& box);
  void RefuseDatesWith(std::string words) { badDate_ = std::move(words); }
  void Watch(ui::TextBox& box);
  // A box that only shows.
  static void ShowOnly(ui::TextBox& box);

  template <std::size_t Length>
  void ShowTexts(const Record<Length>& record) {
    for (BoundText& bound : texts_) {
      bound.shown = record.Get(bound.field);
      bound.write(bound.shown);
    }
  }
  template <std::size_t Length>
  void StoreTexts(Record<Length>& record) const {
    for (const BoundText& bound : texts_) {
      const std::string text = Trim(bound.read());
      if (text != bound.shown) record.Put(bound.field, text);
    }
  }
  void ShowDate(ui::TextBox& box, FileDate date);
  // False when the date isn't valid, which has been told.
  bool CheckDate(ui::TextBox& box);
  // The date in the box, or the one in the record as it stands when the box still shows it.
  FileDate DateIn(const ui::TextBox& box, FileDate inRecord) const;

  bool Changed() const { return changes_.Any(); }
  void MarkChanged() { changes_.Mark(); }
  void MarkUnchanged() { changes_.Forget(); }
  // True when there is nothing to lose, or the person lets it go.
  bool MayDropChanges() const { return changes_.MayBeDropped(); }
  void MarkSaved(bool saved) { saved_ = saved; }
  void Reset();
  // Behind a Reset to another record: the field that the person is in is entered anew. From a button they go to the
  // field given, or stay.
  void EnterAnew(ui::Control* fromButton = nullptr);
  void Cancel();
  // Whether the screen may go on to another record: asks before changes are lost by it.
  bool MayGoOn() const;
  // Runs a button's procedure for its key, if it can be pressed at all.
  static void Press(ui::Button& button);

  void OnKeyDown(ui::KeyPress& key) override;
  void OnQueryClose(bool& refuse) override;

  // While it lives, texts put into controls aren't changes of the person.
  class Quiet : UnsavedChanges::Quiet {
   public:
    explicit Quiet(EditForm& form) : UnsavedChanges::Quiet(form.changes_) {}
  };

  Shop& shop_;
  NumberFields numbers_{*this};

 private:
  struct BoundText {
    TextField field;
    std::function<std::string()> read;
    std::function<void(const std::string&)> write;
    std::string shown;
  };
  std::optional<FileDate> ParseDateText(const std::string& text) const;

  std::vector<BoundText> texts_;
  ui::Button* save_ = nullptr;
  ui::Button* reset_ = nullptr;
  ui::Button* cancel_ = nullptr;
  UnsavedChanges changes_{*this};
  std::string badDate_ = "Invalid date!";
  bool saved_ = false;
};

// "mm/dd/yyyy"; empty for no date, and for one that no calendar has.
std::string TextOfFileDate(FileDate date);

}  // namespace lantos
