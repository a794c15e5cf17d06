#include "board/frmStatusOptions.h"

namespace lantos {

namespace {

// By option index.
constexpr std::string_view kLetters = "YNAE";
constexpr std::array<const char*, 4> kLetterCaptions = {"Yes", "No", "Ask", "Error"};

constexpr std::array<const char*, kStatusOptionCount> kEvents = {
    "Estimate printed while Scheduled: set to Arrived?",
    "Worksheet printed while Scheduled: set to In Progress?",
    "Worksheet printed while Arrived: set to In Progress?",
    "Converted to work order while Scheduled: set to Completed?",
    "Converted to work order while Arrived: set to Completed?",
    "Converted to work order while In Progress: set to Completed?",
    "Status set to Continued by hand: schedule for next day?",
    "Status set to Rescheduled by hand: allow it?",
};
constexpr std::array<const char*, 4> kLetterToolTips = {"Do it without asking", "Don't do it", "Ask each time",
                                                        "Refuse to print or to convert"};

}  // namespace

template <class Visit>
void frmStatusOptions::ForEachGroup(Visit visit) {
  std::size_t place = 0;
  const auto next = [&](auto& group) { visit(place++, group); };
  next(Option1);
  next(Option2);
  next(Option3);
  next(Option4);
  next(Option5);
  next(Option6);
  next(Option7);
  next(Option8);
}

frmStatusOptions::frmStatusOptions(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmStatusOptions", "Status Options"), shop_(shop) {
  SetDesignedSize(12000, 5700);
  ForEachGroup([this](std::size_t place, auto& group) {
    frameOption[place].SetCaption(kEvents[place]);
    for (std::size_t i = 0; i < group.size(); ++i) {
      group[i].SetCaption(kLetterCaptions[i]);
      group[i].SetToolTip(kLetterToolTips[i]);
      group[i].SetContainer(frameOption[place]);
    }
  });
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdSave, cmdCancel);
}

void frmStatusOptions::OnLoad() {
  SizedForm::OnLoad();
  ForEachGroup([this](std::size_t place, auto& group) {
    const std::size_t option = kLetters.find(shop_.environment.statusOptions.letters[place]);
    if (option >= group.size()) return;  // a letter that the event doesn't know selects nothing
    group[option].SetValue(true);
    if (place == 0) group[option].SetFocus();
  });
}

void frmStatusOptions::Accept() {
  ForEachGroup([this](std::size_t place, auto& group) {
    for (std::size_t i = 0; i < group.size(); ++i) {
      if (group[i].Value()) shop_.environment.statusOptions.letters[place] = kLetters[i];
    }
  });
  ok = true;
  Hide();
}

void frmStatusOptions::Cancel() {
  ok = false;
  Hide();
}

}  // namespace lantos
