#include "contents/notes/ChecklistMerge.h"

#include <gmock/gmock.h>

#include "contents/ContentsBench.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmWOChklst.h"

// The checklist's screen is up when another workstation stores the same checklist.
namespace lantos {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ui::Answer;
using Texts = std::vector<std::string>;

constexpr int kEngine = 0;  // rows of the categories
constexpr int kBrakes = 1;

struct MergeBench : test::ContentsBench {
  explicit MergeBench(const Texts& before) {
    directory.Put("CHECKLST.TXT", "[Engine]\r\nOil\r\nBelts\r\n[Brakes]\r\nPads\r\nDiscs\r\n");
    records.checkList.LoadChecklistFile();
    OthersStore(before);
  }
  void OthersStore(const Texts& rows) {
    database.lantosData.DeleteChecklist(1001);
    for (const std::string& row : rows) database.lantosData.AddChecklistRow(1001, row);
  }
  Texts Stored() {
    Texts rows;
    Recordset& stored = database.lantosData.ChecklistForEstimate(1001);
    for (; !stored.Eof(); stored.MoveNext()) rows.push_back(stored.Text("ChecklistData"));
    stored.Close();
    return rows;
  }
  static void Tick(frmWOChklst& form, int category, int item) {
    form.List1.DoCheck(category, true);
    form.List1.DoSelect(category);
    form.List2.DoCheck(item, true);
  }
  void Use(const std::function<void(frmWOChklst&)>& person) {
    desktop.WillUse([person](ui::Form& form) { person(dynamic_cast<frmWOChklst&>(form)); });
    EstimateChecklist(bench);
  }
};

TEST(ChecklistMerge, WhatOnlyOthersChangedStaysAsTheyStoredItLetterForLetter) {
  MergeBench bench({"[Engine], , ", "Oil,Leaks,3000"});
  bench.Use([&](frmWOChklst& form) {
    MergeBench::Tick(form, kBrakes, 0);
    bench.OthersStore({"[Engine],,", "Oil,Leaks, badly,5000", "Belts, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(),
              ElementsAre("[Engine],,", "Oil,Leaks, badly,5000", "Belts, , ", "[Brakes], , ", "Pads, , "));
  EXPECT_EQ(bench.records.checkList.items.at(1).DueBackMiles, "badly") << "as a load of that row has it";
  EXPECT_TRUE(bench.records.checkList.items.at(2).Used);
}

TEST(ChecklistMerge, WhatOthersUntickedStaysUntickedAndAWorkOrderHasNoneOfIt) {
  MergeBench bench({"[Engine], , ", "Oil, , "});
  bench.Use([&](frmWOChklst& form) {
    bench.OthersStore({});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), IsEmpty());
  EXPECT_FALSE(bench.records.checkList.items.at(1).Used);
  EXPECT_FALSE(bench.records.checkList.ChecklistLoaded);
}

TEST(ChecklistMerge, WhatBothChangedAlikeIsntAskedAbout) {
  MergeBench bench({});
  bench.Use([&](frmWOChklst& form) {
    MergeBench::Tick(form, kEngine, 0);
    bench.OthersStore({"[Engine], , ", "Oil, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil, , "));
}

TEST(ChecklistMerge, AllThatBothChangedStandsInOneBoxAndTheStoredCanBeKept) {
  MergeBench bench({"[Engine], , ", "Oil, , ", "Belts, , "});
  bench.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_THAT(box.text, HasSubstr("Oil: \"ticked, Leaks, 3000 miles\" is stored, \"not ticked\" is yours\r"
                                    "Belts: \"not ticked\" is stored, \"ticked, Worn\" is yours"));
    return Answer::No;
  });
  bench.Use([&](frmWOChklst& form) {
    form.List2.DoCheck(0, false);
    form.List2.DoSelect(1);
    test::Type(form.Service, "Worn");
    bench.OthersStore({"[Engine], , ", "Oil,Leaks,3000"});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil,Leaks,3000"));
}

TEST(ChecklistMerge, AnAnswerHoldsForWhatWasAskedAndForNothingThatCameBehindIt) {
  MergeBench bench({});
  bench.desktop.WillAnswer([&](const ui::Box&) {
    bench.OthersStore({"[Engine], , ", "Oil,Dirty, "});
    return Answer::Yes;
  });
  bench.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_THAT(box.text, HasSubstr("\"ticked, Dirty\" is stored"));
    return Answer::Yes;
  });
  bench.Use([&](frmWOChklst& form) {
    MergeBench::Tick(form, kEngine, 0);
    bench.OthersStore({"[Engine], , ", "Oil,Leaks, "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil, , "));
}

TEST(ChecklistMerge, WhoGoesBackToTheScreenFindsItAsItWasAndIsToldWhatIsntStored) {
  MergeBench bench({});
  bench.desktop.WillAnswer({Answer::Cancel, Answer::Ok});
  bench.Use([&](frmWOChklst& form) {
    MergeBench::Tick(form, kEngine, 0);
    bench.OthersStore({"[Engine], , ", "Oil,Leaks, "});
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.List2.Checked(0));
    EXPECT_EQ(form.Service.Text(), "");
    test::Press(form, "Esc");
  });
  EXPECT_EQ(bench.desktop.boxes.back().text, "The checklist was not stored.");
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil,Leaks, "));
}

TEST(ChecklistMerge, ATickKeepsTheCategoryThatTheOtherHasUnticked) {
  MergeBench bench({"[Engine], , ", "Oil, , "});
  bench.Use([&](frmWOChklst& form) {
    form.List1.DoCheck(kEngine, false);
    bench.OthersStore({"[Engine], , ", "Oil, , ", "Belts, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Belts, , "));
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
}

TEST(ChecklistMerge, AnEntryThatThisListDoesntHaveStaysWhenAnotherHasStoredItMeanwhile) {
  MergeBench bench({"[Engine], , "});
  bench.Use([&](frmWOChklst& form) {
    MergeBench::Tick(form, kBrakes, 0);
    bench.OthersStore({"First, , ", "[Engine], , ", "Oil, , ", "Horn,Weak, ", "[Lights], , ", "Lamp, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("First, , ", "[Engine], , ", "Oil, , ", "Horn,Weak, ", "[Brakes], , ",
                                          "Pads, , ", "[Lights], , ", "Lamp, , "));
  EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(ChecklistMerge, OfEntriesThatWereLoadedAndArentInTheListOnlyThoseStayThatOthersHaveChanged) {
  MergeBench bench({"[Engine], , ", "Horn,Weak, ", "Wipers, , "});
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.Use([&](frmWOChklst& form) {
    bench.OthersStore({"[Engine], , ", "Horn,Dead, ", "Wipers, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Horn,Dead, "));
}

TEST(ChecklistMerge, AnEntryThatThisListDoesntHaveKeepsItsCategoryWhetherThatIsKnownOrNot) {
  MergeBench bench({"[Engine], , ", "Oil, , ", "[Lights], , "});
  bench.desktop.WillAnswer(Answer::Ok);
  bench.Use([&](frmWOChklst& form) {
    form.List1.DoCheck(kEngine, false);
    bench.OthersStore({"[Engine], , ", "Oil, , ", "Horn, , ", "[Lights], , ", "Lamp, , ", "Bulb, , "});
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Horn, , ", "[Lights], , ", "Lamp, , ", "Bulb, , "));
  EXPECT_TRUE(bench.records.checkList.items.at(0).Used);
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
}

}  // namespace
}  // namespace lantos
