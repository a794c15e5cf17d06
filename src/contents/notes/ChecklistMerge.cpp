#include "contents/notes/ChecklistMerge.h"

#include <algorithm>

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

// Behind the last row of its category; its category's row goes with it where it isn't there.
void Place(const StoredChecklist::Stranger& stranger, std::vector<std::string>& rows) {
  const auto isHeading = [](const std::string& row) { return TrimView(row).starts_with('['); };
  auto category = rows.begin();
  if (!stranger.category.empty()) {
    const std::string heading = ParseRow(Trim(stranger.category)).Name;
    category = std::ranges::find_if(rows, [&](const std::string& row) { return ParseRow(Trim(row)).Name == heading; });
    if (category == rows.end()) category = rows.insert(rows.end(), stranger.category);
    ++category;
  }
  if (!isHeading(stranger.row)) rows.insert(std::find_if(category, rows.end(), isHeading), stranger.row);
}

}  // namespace

std::string StoredChecklist::Stranger::Name() const { return ParseRow(Trim(row)).Name; }

StoredChecklist BesideEntries(const CheckListTable& table, const std::vector<std::string>& rows) {
  StoredChecklist stored;
  stored.rows.resize(table.items.size());
  std::string category;
  for (const std::string& row : rows) {
    const std::string name = ParseRow(Trim(row)).Name;
    if (name.starts_with('[')) category = row;
    const int index = table.Find(name);
    if (index < 0) {
      stored.strangers.push_back({row, category});
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
  const std::vector<StoredChecklist::Stranger> strangers = NewStrangers(stored);
  for (const StoredChecklist::Stranger& stranger : strangers) TickCategoryOf(stranger, rows);
  std::erase(rows, std::string());
  for (const StoredChecklist::Stranger& stranger : strangers) Place(stranger, rows);
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

// What was loaded without a place in the list was told then, and goes.
std::vector<StoredChecklist::Stranger> ChecklistMerge::NewStrangers(const StoredChecklist& stored) const {
  std::vector<StoredChecklist::Stranger> strangers = stored.strangers;
  std::erase_if(strangers, [this](const StoredChecklist::Stranger& stranger) {
    return std::ranges::find(loaded_.strangers, stranger.row, &StoredChecklist::Stranger::row) !=
           loaded_.strangers.end();
  });
  return strangers;
}

void ChecklistMerge::TickCategoryOf(const StoredChecklist::Stranger& stranger, std::vector<std::string>& rows) {
  const std::string heading = ParseRow(Trim(stranger.category)).Name;
  const auto category = std::ranges::find(merged_, heading, &ChecklistItem::Name);
  if (category == merged_.end() || category->Used) return;
  category->Used = true;
  hasTakenAny_ = true;
  rows[static_cast<std::size_t>(category - merged_.begin())] = RowOf(*category);
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
