#pragma once

#include "contents/ListedLine.h"
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
  // One that is to take the place of the note that has its number.
  struct Replaced {
    std::int32_t number;
    ListedLine note;
  };
  // Under a new number, or in place of another.
  void EditAndStore(const Note& note, NoteMode mode, Replaced* replaced = nullptr);
  std::int32_t Store(const Note& note, Replaced* replaced = nullptr);
  // Asks where the note that is to be replaced is another by then; nothing when that one is kept.
  std::optional<std::int32_t> StoreInPlace(const Note& note, Replaced& replaced);
  std::optional<LineValues> ValuesStored(std::int32_t number);

  Workbench& bench_;
  NumberedList<Note> notes_;
};

// The notes of the estimate on show; there must be one.
void EstimateNotes(Workbench& bench);

}  // namespace lantos
