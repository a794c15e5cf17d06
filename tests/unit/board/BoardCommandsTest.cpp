#include "board/BoardBench.h"

// What the commands of the board want to find before they begin.
namespace lantos {
namespace {

using test::BoardBench;

struct Refusal {
  const char* button;
  const char* title;
  const char* text;
  ui::Icon icon;
};

constexpr Refusal kRefusals[] = {
    {"cmdEstimateNotes", "Estimate Notes", "Must first select an estimate.", ui::Icon::None},
    {"cmdEstimateSublets", "Estimate Sublets", "Must first select an estimate.", ui::Icon::None},
    {"cmdEstimateWaste", "Estimate Waste", "Must first select an estimate.", ui::Icon::None},
    {"cmdEstimateChecklist", "Estimate Checklist", "Must first select an estimate.", ui::Icon::None},
    {"cmdPrintEstimate", "Print Estimate", "Must first select an estimate to print.", ui::Icon::Information},
    {"cmdPrintWorksheet", "Print Estimate", "Must first select an estimate to print.", ui::Icon::Information},
    {"cmdConvert", "Convert to WO", "No estimate is selected.", ui::Icon::Information},
    {"cmdReschedule", "Reschedule", "No estimate is selected.", ui::Icon::Information},
    {"cmdChangeStatus", "Change Status", "No estimate is selected.", ui::Icon::Information},
    {"cmdCustomerEdit", "Customer Edit", "No estimate is selected.", ui::Icon::Information},
    {"cmdVehicleEdit", "Vehicle Edit", "No estimate is selected.", ui::Icon::Information},
    {"cmdLaborAdd", "Add Labor", "No estimate is selected.", ui::Icon::Information},
    {"cmdLaborAddCanned", "Add Canned Labor", "No estimate is selected.", ui::Icon::Information},
    {"cmdLaborFollowup", "Followups", "No estimate is selected.", ui::Icon::Information},
    {"cmdPartAdd", "Add Part", "No estimate is selected.", ui::Icon::Information},
    {"cmdPartAddNonStock", "Add Non-Stocked Part", "No estimate is selected.", ui::Icon::Information},
    {"cmdLaborChange", "Change Labor", "Must select a labor item in order to change it.", ui::Icon::None},
    {"cmdLaborRemove", "Remove Labor", "Must select a labor item in order to remove it.", ui::Icon::None},
};

TEST(BoardCommands, WithoutAnEstimateEachSaysInItsWordsWhatIsMissing) {
  BoardBench bench;
  frmMain& board = bench.Start();
  for (const Refusal& refusal : kRefusals) {
    bench.desktop.boxes.clear();
    bench.desktop.WillAnswer(ui::Answer::Ok);
    board.Find(refusal.button)->OnClick();
    ASSERT_EQ(bench.desktop.boxes.size(), 1U) << refusal.button;
    EXPECT_EQ(bench.desktop.boxes[0].title, refusal.title);
    EXPECT_EQ(bench.desktop.boxes[0].text, refusal.text);
    EXPECT_EQ(bench.desktop.boxes[0].icon, refusal.icon) << refusal.button;
  }
}

TEST(BoardCommands, EveryButtonOfTheBoardStandsInTheTable) {
  BoardBench bench;
  for (const ui::Control* control : bench.Start().Controls()) {
    if (dynamic_cast<const ui::Button*>(control) != nullptr) EXPECT_TRUE(control->OnClick) << control->FullName();
  }
}

TEST(BoardCommands, AMenuEntryIsItsButtonsClickAndGreyWithIt) {
  BoardBench bench;
  frmMain& board = bench.Start();
  EXPECT_EQ(board.FindMenu("mnuCommand")->Items().size(), 15U);
  for (const char* name : {"mnuFind", "mnuTechHours", "mnuWOHistory"}) EXPECT_TRUE(board.FindMenu(name)->Enabled());
  bench.desktop.WillAnswer(ui::Answer::Ok);
  board.FindMenu("mnuReschedule")->DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].title, "Reschedule");
}

}  // namespace
}  // namespace lantos
