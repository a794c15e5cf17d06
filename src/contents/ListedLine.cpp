#include "contents/ListedLine.h"

#include "records/RecordMerge.h"
#include "screens/OkCancelForm.h"

namespace lantos {

namespace {

struct IsAnother {};  // line that is stored

std::vector<ChangedByBoth> Different(const LineValues& stored, const LineValues& ours) {
  std::vector<ChangedByBoth> different;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    if (stored[i] != ours[i]) different.push_back({ours[i].name, stored[i].text, ours[i].text});
  }
  return different;
}

}  // namespace

void ListedLine::Expect(std::optional<LineValues> stored) {
  if (stored == expected_) return;
  found_ = std::move(stored);
  throw IsAnother{};
}

bool ListedLine::Store(ui::Desktop& desktop, const std::string& title, const LineValues& ours, const Writing& writing) {
  const std::optional<LineValues> listed = expected_;
  for (;;) {
    try {
      writing.transaction();
      return true;
    } catch (const IsAnother&) {
      expected_ = listed;
    }
    const ui::Answer answer = Ask(desktop, title, ours);
    if (answer != ui::Answer::Yes) writing.reload();
    if (answer == ui::Answer::Cancel) throw OkCancelForm::BackToScreen{};
    if (answer == ui::Answer::No) return false;
    expected_ = found_;
  }
}

// What others have stored alike needn't be stored again.
ui::Answer ListedLine::Ask(ui::Desktop& desktop, const std::string& title, const LineValues& ours) const {
  if (found_ == ours) return ui::Answer::No;
  if (found_) return AskWhoseIsKept(desktop, title, Different(*found_, ours));
  return desktop.Ask(
      "Somebody else has removed this meanwhile.\r\rDo you want to store yours all the same?\rNo leaves it removed, "
      "CANCEL goes back.",
      title, ui::Buttons::YesNoCancel, ui::Icon::Question);
}

bool RemoveAsListed(ui::Desktop& desktop, const std::string& title, const std::string& what,
                    const ListedLine::Writing& writing) {
  try {
    writing.transaction();
    return true;
  } catch (const IsAnother&) {
  }
  const std::string told =
      what +
      " not removed: somebody else has removed or changed it meanwhile, or has stored another line in its place.";
  try {
    writing.reload();
  } catch (...) {
    desktop.Tell(told, title, ui::Icon::Exclamation);
    throw;
  }
  desktop.Tell(told + "\r\rThe list shows what is stored.", title, ui::Icon::Exclamation);
  return false;
}

}  // namespace lantos
