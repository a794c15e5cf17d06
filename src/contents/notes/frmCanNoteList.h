#pragma once

#include <vector>

#include "contents/notes/NoteText.h"
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
  void ShowNotes(int selected);
  int SelectedNote();  // -1 when there is none, which has been told
  void SaveIfChanged();

  Shop& shop_;
  std::vector<Note> notes_;
  bool changed_ = false;
  bool picked_ = false;
};

}  // namespace lantos
