#pragma once

#include "contents/NumberedList.h"
#include "contents/Workbench.h"
#include "contents/notes/NoteText.h"
#include "contents/notes/frmNotes.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// The notes of the estimate on show. Every change is in the database at once.
class frmEstNotes : public SizedForm {
 public:
  explicit frmEstNotes(Workbench& bench);

  ui::ListBox listNotes{*this, "listNotes"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdCanned{*this, "cmdCanned", "Ca&nned"};
  ui::Button cmdChange{*this, "cmdChange", "&Change"};
  ui::Button cmdRemove{*this, "cmdRemove", "&Remove"};
  ui::Button cmdClose{*this, "cmdClose", "C&lose"};

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Hide(); }

  void LoadNotes();
  void AddCanned();
  void Change();
  void Remove();
  // Under the number, in place of the note that has it, or under a new one.
  void EditAndStore(const Note& note, NoteMode mode, std::optional<std::int32_t> number);
  std::int32_t Store(std::optional<std::int32_t> number, const Note& note);

  Workbench& bench_;
  NumberedList<Note> notes_;
};

// The notes of the estimate on show; there must be one.
void EstimateNotes(Workbench& bench);

}  // namespace lantos
