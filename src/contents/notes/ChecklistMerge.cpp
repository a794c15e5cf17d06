#include "contents/notes/ChecklistMerge.h"

#include "frame/Text.h"
#include "records/RecordMerge.h"
#include "screens/OkCancelForm.h"

namespace lantos {

namespace {

std::string OrBlank(const std::string& value) { return value.empty() ? " " : value; }

// "name,service,miles"; no row where it isn't ticked.
std::string RowOf(const ChecklistItem& item) {
  if (!item.Used) return {};
  return item.Name + "," + OrBlank(item.Service) + "," + OrBlank(item.DueBackMiles);
}

// Quotes nothing: a comma in the service text splits it on the way back.
ChecklistItem ParseRow(std::string_view data) {
  ChecklistItem item;
  if (data.starts_with('[')) {
    const std::size_t end = data.find(']');
    item.Name = std::string(data.substr(0, end == std::string_view::npos ? end : end + 1));
    return item;
  }
  if (data.ends_with(',')) data.remove_suffix(1);
  const auto take = [&data] {
    const std::size_t comma = data.find(',');
    const std::string part(data.substr(0, comma));
    data.remove_prefix(comma == std::string_view::npos ? data.size() : comma + 1);
    return part;
  };
  item.Name = take();
  item.Service = Trim(take());
  item.DueBackMiles = Trim(take());
  return item;
}

// Values of an entry that isn't ticked are nowhere stored.
bool IsSame(const ChecklistItem& a, const ChecklistItem& b) {
  if (!a.Used || !b.Used) return a.Used == b.Used;
  return a.Service == b.Service && a.DueBackMiles == b.DueBackMiles;
}

std::string Shown(const ChecklistItem& item) {
  if (!item.Used) return "not ticked";
  std::string text = "ticked";
  if (!item.Service.empty()) text += ", " + item.Service;
  if (!item.DueBackMiles.empty()) text += ", " + item.DueBackMiles + " miles";
  return text;
}

// A row that is stored, beside the entry that it is of.
ChecklistItem ItemOf(const std::string& row, const std::string& name) {
  ChecklistItem item;
  item.Name = name;
  item.Used = !row.empty();
  if (!item.Used || item.IsCategory()) return item;
  const ChecklistItem value = ParseRow(Trim(row));
  item.Service = value.Service;
  item.DueBackMiles = value.DueBackMiles;
  return item;
}

}  // namespace

StoredChecklist BesideEntries(const CheckListTable& table, const std::vector<std::string>& rows) {
  StoredChecklist stored;
  stored.rows.resize(table.items.size());
  for (const std::string& row : rows) {
    const std::string name = ParseRow(Trim(row)).Name;
    const int index = table.Find(name);
    if (index < 0) {
      stored.strangers.push_back(name);
    } else {
      stored.rows[static_cast<std::size_t>(index)] = row;
    }
  }
  for (std::size_t i = 0; i < table.items.size(); ++i) {
    stored.items.push_back(ItemOf(stored.rows[i], table.items[i].Name));
  }
  return stored;
}

std::vector<std::string> ChecklistMerge::Merged(const StoredChecklist& stored) {
  std::erase_if(questions_, [](const auto& each) { return !each.second.isAnswered; });
  merged_ = ours_;
  std::vector<std::string> rows;
  std::vector<bool> taken(ours_.size(), false);
  bool isDecided = true;
  hasTakenAny_ = false;
  for (std::size_t i = 0; i < ours_.size(); ++i) {
    const Whose whose = WhoseIs(i, stored);
    taken[i] = whose == Whose::Theirs;
    hasTakenAny_ = hasTakenAny_ || taken[i];
    isDecided = isDecided && whose != Whose::NotDecided;
    if (taken[i]) merged_[i] = stored.items[i];
    rows.push_back(taken[i] ? stored.rows[i] : RowOf(ours_[i]));
  }
  if (!isDecided) throw Undecided{};
  TickCategories(taken, rows);
  std::erase(rows, std::string());
  return rows;
}

ChecklistMerge::Whose ChecklistMerge::WhoseIs(std::size_t entry, const StoredChecklist& stored) {
  const std::string& theirs = stored.rows[entry];
  if (theirs == loaded_.rows[entry] || theirs == RowOf(ours_[entry])) return Whose::Ours;
  if (IsSame(ours_[entry], loaded_.items[entry])) return Whose::Theirs;
  Question& question = questions_[entry];
  if (question.stored != theirs) question = {.stored = theirs};
  if (!question.isAnswered) return Whose::NotDecided;
  return question.keepsOurs ? Whose::Ours : Whose::Theirs;
}

// Where one has ticked an entry and the other has unticked its category: the screen would untick it at the next look.
void ChecklistMerge::TickCategories(const std::vector<bool>& taken, std::vector<std::string>& rows) {
  std::size_t category = merged_.size();
  bool isMerged = false;
  for (std::size_t i = 0; i < merged_.size(); ++i) {
    if (merged_[i].IsCategory()) {
      category = i;
      isMerged = false;
    }
    isMerged = isMerged || taken[i];
    if (category == merged_.size() || merged_[category].Used || !merged_[i].Used || !isMerged) continue;
    merged_[category].Used = true;
    rows[category] = RowOf(merged_[category]);
  }
}

void ChecklistMerge::Store(ui::Desktop& desktop, const std::string& title, const std::function<void()>& transaction) {
  for (;;) {
    try {
      return transaction();
    } catch (const Undecided&) {
      if (!Ask(desktop, title)) throw OkCancelForm::BackToScreen{};
    }
  }
}

bool ChecklistMerge::Ask(ui::Desktop& desktop, const std::string& title) {
  std::vector<ChangedByBoth> changed;
  for (const auto& [entry, question] : questions_) {
    const std::string& name = ours_[entry].Name;
    if (!question.isAnswered) changed.push_back({name, Shown(ItemOf(question.stored, name)), Shown(ours_[entry])});
  }
  const ui::Answer answer = AskWhoseIsKept(desktop, title, changed);
  if (answer == ui::Answer::Cancel) return false;
  for (auto& [entry, question] : questions_) {
    if (!question.isAnswered) question.keepsOurs = answer == ui::Answer::Yes;
    question.isAnswered = true;
  }
  return true;
}

}  // namespace lantos
