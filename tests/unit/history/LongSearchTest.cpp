#include "HistoryShop.h"

namespace lantos::test {
namespace {

// A search through files of many blocks, and a person who acts in the middle of it.
class LongSearch : public HistoryShop {
 protected:
  LongSearch() {
    Workorder other = Order(1, {.last = "Baker"});
    ActiveWoTag active;
    PutIntoTag(other, active);
    ArchivedWoTag tag;
    PutIntoTag(active, 0, tag);
    const std::string one(reinterpret_cast<const char*>(tag.Bytes().data()), tag.Bytes().size());
    std::string all;
    for (int i = 0; i < 2000; ++i) all += one;
    AddArchived(Order(7));
    const std::string name(kArchivedTagFile);
    directory.Put(name, directory.Content(name) + all);
  }
  void Act(const std::function<void(frmWOHist&)>& act, const std::function<void(frmWOHist&)>& then) {
    Browse([&](frmWOHist& form) {
      desktop.meanwhile = [&, asked = 0](ui::Form&, ui::Button&) mutable {
        if (++asked == 3) act(form);
      };
      Search(form, form.srchName, "adams");
      desktop.meanwhile = nullptr;
      then(form);
    });
  }
};

TEST_F(LongSearch, EscStopsItAndTheCriteriaStay) {
  Act(
      [](frmWOHist& form) {
        EXPECT_TRUE(form.lblSearching.Visible());
        EXPECT_TRUE(form.cmdCancelSearch.HasFocus());
        for (const ui::Control* control : std::initializer_list<const ui::Control*>{
                 &form.srchName, &form.cmdSearch, &form.cmdNext, &form.cmdName, &form.cmdPrintWO}) {
          EXPECT_FALSE(control->Enabled()) << control->Name();
        }
        Press(form, "F10");
        Press(form, "Esc");
        EXPECT_TRUE(form.Visible());
      },
      [](frmWOHist& form) {
        EXPECT_FALSE(form.lblSearching.Visible());
        EXPECT_FALSE(form.cmdCancelSearch.Visible());
        EXPECT_EQ(form.srchName.Text(), "adams");
        EXPECT_TRUE(form.srchName.HasFocus());
        EXPECT_EQ(form.cmdSearch.Caption(), "&Search");
      });
  EXPECT_TRUE(desktop.boxes.empty()) << "nobody says that there is no data";
}

TEST_F(LongSearch, OfMoreThanASecondTellsHowFarItIs) {
  std::vector<std::string> told;
  Browse([&](frmWOHist& form) {
    desktop.meanwhile = [&](ui::Form&, ui::Button&) {
      told.push_back(form.lblSearching.Caption());
      clock.MoveOn(600);
    };
    Search(form, form.srchName, "adams");
    told.emplace_back("through");
    Click(form.cmdSearch);  // anew
    Search(form, form.srchName, "adams");
  });
  ASSERT_GE(told.size(), 8U);
  EXPECT_EQ(told[0], "Searching...");
  EXPECT_EQ(told[1], "Searching...");
  EXPECT_EQ(told[2], "Searching... 38 %");
  EXPECT_EQ(told[3], "Searching... 51 %");
  const auto through = std::find(told.begin(), told.end(), "through");
  ASSERT_LT(through, told.end() - 1);
  EXPECT_EQ(*(through + 1), "Searching...");
}

TEST_F(LongSearch, SoDoesItsButton) {
  Act([](frmWOHist& form) { Click(form.cmdCancelSearch); },
      [](frmWOHist& form) { EXPECT_TRUE(form.srchName.Enabled()); });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LongSearch, AStoppedNextKeepsTheHitAndGoesOnFromThere) {
  AddArchived(Order(8));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    EXPECT_EQ(form.head.workorder_number.Caption(), "8");
    desktop.meanwhile = [&](ui::Form&, ui::Button&) { Press(form, "Esc"); };
    Click(form.cmdNext);
    EXPECT_EQ(form.done.Caption(), "Hit 1 of 1 so far");
    EXPECT_EQ(desktop.beeps, 0);
    EXPECT_TRUE(form.cmdNext.HasFocus());
    desktop.meanwhile = nullptr;
    Click(form.cmdNext);
    EXPECT_EQ(form.head.workorder_number.Caption(), "7");
  });
}

TEST_F(LongSearch, ClosingTheWindowEndsIt) {
  Act([](frmWOHist& form) { form.DoClose(); }, [](frmWOHist& form) { EXPECT_FALSE(form.Visible()); });
  EXPECT_NO_THROW(SharedFile(directory / std::string(kArchivedTagFile), Access::Read, Deny::All));
  EXPECT_TRUE(desktop.boxes.empty());
}

}  // namespace
}  // namespace lantos::test
