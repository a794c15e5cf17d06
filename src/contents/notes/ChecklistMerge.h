#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "records/CheckList.h"
#include "ui/Desktop.h"

namespace lantos {

// What the rows of an estimate say, beside each entry of the shop's list.
struct StoredChecklist {
  // Of an entry that the list doesn't have: its row, and that of the category it stands under, empty where there is
  // none.
  struct Stranger {
    std::string row;
    std::string category;
    std::string Name() const;
  };

  std::vector<std::string> rows;  // of each entry, as it lies there; empty where it isn't ticked
  std::vector<ChecklistItem> items;
  std::vector<Stranger> strangers;
};
StoredChecklist BesideEntries(const CheckListTable& table, const std::vector<std::string>& rows);

// The save of a checklist that others may have stored since it was loaded. Entry by entry: what only the person changed
// is stored, what only others changed stays as they stored it, and where both changed one entry the person is asked, in
// one box for all of them. An entry that is ticked keeps its category ticked. Entries that the list of this run doesn't
// have stay where others have stored them since; those that were loaded go.
class ChecklistMerge {
 public:
  ChecklistMerge(const StoredChecklist& loaded, std::vector<ChecklistItem> ours)
      : loaded_(loaded), ours_(std::move(ours)), merged_(ours_) {}

  // In the transaction, with what is stored by then: the rows that are to take its place. Ends the transaction where
  // the person has to be asked; whoever runs it lets that pass to Store.
  std::vector<std::string> Merged(const StoredChecklist& stored);
  // Runs the transaction; again for as long as the person has to be asked. OkCancelForm::BackToScreen when the person
  // goes back to the screen.
  void Store(ui::Desktop& desktop, const std::string& title, const std::function<void()>& transaction);

  // Behind Store, whether there is anything of others among the entries, and all of them as they are stored.
  bool HasTakenAny() const { return hasTakenAny_; }
  const std::vector<ChecklistItem>& Items() const { return merged_; }

 private:
  struct Undecided {};
  struct Question {
    std::string stored;  // as the person was shown it
    bool isAnswered = false;
    bool keepsOurs = false;
  };
  enum class Whose { Ours, Theirs, NotDecided };
  Whose WhoseIs(std::size_t entry, const StoredChecklist& stored);
  void TickCategories(const std::vector<bool>& taken, std::vector<std::string>& rows);
  std::vector<StoredChecklist::Stranger> NewStrangers(const StoredChecklist& stored) const;
  void TickCategoryOf(const StoredChecklist::Stranger& stranger, std::vector<std::string>& rows);
  bool Ask(ui::Desktop& desktop, const std::string& title);

  const StoredChecklist& loaded_;
  std::vector<ChecklistItem> ours_;
  std::vector<ChecklistItem> merged_;
  bool hasTakenAny_ = false;
  std::map<std::size_t, Question> questions_;  // by entry
};

}  // namespace lantos
