#pragma once

#include "contents/NumberedList.h"
#include "contents/notes/NoteText.h"
#include "records/EditedLines.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The shop's notes that are used again and again. The list is written as a whole when it was changed.
class frmCanNoteList : public SizedForm {
 public:
  explicit frmCanNoteList(Shop& shop);

  ui::ListBox CanList{*this, "CanList"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdPrint{*this, "cmdPrint", "&Print"};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};

  bool Picked() const { return picked_; }
  Note CurrentNote;  // the one picked

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;
  void Cancel() override;

  void Add();
  void Edit();
  void Delete();
  void Print();
  void List(std::int32_t place, const Note& note);
  void Keep(std::int32_t place, const Note& note);
  std::optional<std::int32_t> SelectedNote();  // nothing when there is none, which has been told
  void ListAll(const std::vector<std::string>& lines);
  // False when what another workstation has stored is kept, which is shown then.
  bool SaveIfChanged();

  Shop& shop_;
  EditedLines file_;
  NumberedList<Note> notes_;  // by their place in the file as it was loaded, from 0
  bool changed_ = false;
  bool picked_ = false;
};

}  // namespace lantos
