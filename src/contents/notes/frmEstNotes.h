#pragma once

#include <map>

#include "contents/Workbench.h"
#include "contents/notes/NoteText.h"
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

  void Add(const Note& note, bool canned);
  void AddCanned();
  void Change();
  void Remove();
  // Under that number, in place of the note that has it.
  void Store(std::int32_t number, const Note& note);
  void ShowNotes(std::int32_t selected);
  std::int32_t SelectedNote() const;  // 0 when no row is selected

  Workbench& bench_;
  std::map<std::int32_t, Note> notes_;  // behind the rows, by number
  std::int32_t lastNoteNumber_ = 0;     // the highest there has been; a removed one isn't given again
};

// The notes of the estimate on show.
void EstimateNotes(Workbench& bench);

}  // namespace lantos
