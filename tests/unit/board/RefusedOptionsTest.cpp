#include "board/BoardBench.h"
#include "support/FaultyCalls.h"

// Options that can't be saved: nobody goes on in the belief that they are.
namespace lantos {
namespace {

using test::Fault;
using ui::Answer;

struct RefusedOptions : test::BoardBench {
  RefusedOptions() {
    directory.Put("Lantos.ini", kBefore);
    Start();
    calls.FailOn("Lantos.ini", Fault::DiskFull);
  }
  void WillChange(const std::string& box) {
    desktop.WillUse([box](ui::Form& form) {
      dynamic_cast<ui::Control&>(*form.Find(box)).DoClick();
      form.PressKey(ui::ParseKey("F10"));
    });
  }
  void WillBeTold(const std::string& options, Answer answer) {
    desktop.WillAnswer([this, options, answer](const ui::Box& box) {
      EXPECT_EQ(box.title, "Lantos.ini");
      EXPECT_EQ(box.text,
                "Lantos.ini can not be written: the disk is full.\rClick Retry to try again, or Cancel to leave " +
                    options + " as before.");
      EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
      if (answer == Answer::Retry) calls.Mend();
      return answer;
    });
  }
  std::string Profile() const { return directory.Content("Lantos.ini"); }

  static constexpr const char* kBefore = "[Print Options]\r\nPreviewEstimate=False\r\n";
  test::FaultyCalls calls{directory.Path()};
};

TEST(RefusedOptions, OfThePrintIsTriedAgain) {
  RefusedOptions shop;
  shop.WillChange("optDisclosure");
  shop.WillBeTold("the print options", Answer::Retry);
  shop.board.FindMenu("mnuPrintOptions")->DoClick();
  EXPECT_NE(shop.Profile().find("PrintDisclosure=True\r\n"), std::string::npos);
  EXPECT_TRUE(shop.environment.printOptions.PrintDisclosure);
}

TEST(RefusedOptions, OfThePrintThatAreGivenUpAreAsBefore) {
  RefusedOptions shop;
  shop.WillChange("optDisclosure");
  shop.WillBeTold("the print options", Answer::Cancel);
  shop.board.FindMenu("mnuPrintOptions")->DoClick();
  EXPECT_EQ(shop.Profile(), RefusedOptions::kBefore);
  EXPECT_FALSE(shop.environment.printOptions.PrintDisclosure);
  EXPECT_FALSE(shop.environment.printOptions.PreviewEstimate);
}

TEST(RefusedOptions, OfTheStatusThatAreGivenUpAreAsBefore) {
  RefusedOptions shop;
  shop.WillChange("Option1(0)");
  shop.WillBeTold("the status options", Answer::Cancel);
  shop.board.FindMenu("mnuStatusOptions")->DoClick();
  EXPECT_EQ(shop.Profile(), RefusedOptions::kBefore);
  EXPECT_EQ(shop.environment.statusOptions.letters[0], 'A');
}

TEST(RefusedOptions, OfTheStatusAreSavedAllAtOnce) {
  RefusedOptions shop;
  shop.WillChange("Option1(0)");
  shop.WillBeTold("the status options", Answer::Retry);
  shop.board.FindMenu("mnuStatusOptions")->DoClick();
  EXPECT_EQ(shop.Profile(), std::string(RefusedOptions::kBefore) +
                                "[Status Options]\r\nScheduledToArrived=Y\r\nScheduledToInProgress=A\r\n"
                                "ArrivedToInProgress=A\r\nScheduledToComplete=A\r\nArrivedToComplete=A\r\n"
                                "InProgressToComplete=A\r\nContinuedAutoSchedule=A\r\nRescheduledAllow=A\r\n");
}

}  // namespace
}  // namespace lantos
