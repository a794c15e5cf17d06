#pragma once

#include <functional>
#include <string>
#include <vector>

#include "board/Board.h"
#include "board/DayRollover.h"
#include "contents/conversion/HalfDone.h"

namespace lantos {

class Booking;
class Papers;
class StatusByHand;

// What a command wants to find before it begins.
enum class Needs {
  Nothing,          // or its screen says itself what is missing
  CurrentEstimate,  // chosen last, though the lists may have been filled anew since and the detail view be empty
  EstimateOnShow,   // in the detail view, which a load of the week empties
};
enum class DayCheck { Checked, Unchecked };

// A button of the board: what it is called, what it wants, what it does.
struct BoardCommand {
  struct MenuEntry {
    const char* name = nullptr;  // null: not on the menu
    const char* caption = nullptr;
  };
  // The box for a command whose need isn't met.
  struct Missing {
    const char* title = "";
    const char* text = "No estimate is selected.";
    ui::Icon icon = ui::Icon::Information;
  };

  ui::Button* button;
  MenuEntry menu;
  const char* toolTip;  // null: none
  DayCheck dayCheck;
  Needs needs;
  Missing missing;
  std::function<void()> run;  // null: not built yet
};

// All commands of the board, in the order of the menu, behind their buttons.
class BoardCommands {
 public:
  BoardCommands(const BoardParts& parts, Board& board, Booking& booking, Papers& papers, StatusByHand& status,
                const DayRollover& rollover);
  BoardCommands(const BoardCommands&) = delete;  // the buttons hold places in the table
  const std::vector<BoardCommand>& All() const { return commands_; }
  // Conversions that ended in the middle, by the names of their journals: the person finishes or undoes them.
  void SettleHalfDone(const std::vector<std::string>& journals);
  std::function<void()> beforeEach;  // set by whoever has something to bring up to date first

 private:
  std::vector<BoardCommand> OfTheViews();
  std::vector<BoardCommand> OfTheMenu();
  std::vector<BoardCommand> OfTheDetail();
  void Add(std::vector<BoardCommand> commands);
  void Run(const BoardCommand& command);
  bool Has(Needs needs) const;
  void BrowseHistory();
  void EditNotes();
  void Convert();
  HalfDone Unfinished();
  Finishing FinishConversion(const BegunConversion& begun, ConversionJournal& journal);

  BoardParts parts_;
  Board& board_;
  Booking& booking_;
  Papers& papers_;
  StatusByHand& status_;
  const DayRollover& rollover_;
  std::vector<BoardCommand> commands_;
};

}  // namespace lantos
