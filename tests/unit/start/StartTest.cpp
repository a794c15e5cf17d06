#include "board/frmMain.h"
#include "start/InstalledShop.h"

namespace lantos {
namespace {

using test::InstalledShop;
using test::ProcessEnded;
using ui::Answer;

constexpr const char* kAlreadyRunning =
    "The Korvel Apppointment Scheduler is already running.\r\r"
    "Click Yes to switch to the running application.\r\r"
    "Click No to allow another copy to run.\r\r"
    "Click Cancel to exit this copy.";

struct Running : InstalledShop {
  // What the person does at the board before closing it.
  void WillWork(std::function<void(frmMain&)> work) {
    desktop.WillUse([work = std::move(work)](ui::Form& form) {
      work(dynamic_cast<frmMain&>(form));
      form.DoClose();
    });
  }
  void WillClose() {
    WillWork([](frmMain&) {});
  }
  // A run that ends its process on the way.
  int RunToTheEnd() {
    try {
      Run();
    } catch (const ProcessEnded& end) {
      return end.code;
    }
    ADD_FAILURE() << "the process went on";
    return -1;
  }
  void AnotherCopyRuns() { desktop.windows = {"Lantos: Miller's Garage (/srv/shop/\\)"}; }
  std::string Caption() const { return "Lantos: Miller's Garage (" + data.DataDir() + ")"; }
  void StorePlace(const std::string& state) {
    settings.Save("MainLeft", "1200.5");
    settings.Save("MainTop", "1300");
    settings.Save("MainWidth", "11000");
    settings.Save("MainHeight", "9000");
    settings.Save("MainState", state);
  }
  std::vector<std::string> StoredPlace() const {
    return {Setting("MainLeft"), Setting("MainTop"), Setting("MainWidth"), Setting("MainHeight"), Setting("MainState")};
  }
  void ExpectNothingStored() const {
    EXPECT_EQ(StoredPlace(), std::vector<std::string>(5, "(none)"));
    EXPECT_EQ(Setting("ShowStatus"), "(none)");
    EXPECT_EQ(Setting("LaborOnDayView"), "(none)");
    EXPECT_TRUE(Has("AU9300.$$$"));
  }
};

TEST(Start, EndsAtTheBoardWithItsFullCaption) {
  Running run;
  run.WillWork([&](frmMain& board) {
    EXPECT_EQ(board.Caption(), run.Caption());
    EXPECT_EQ(board.MonthView1.Value(), run.clock.Today());
    EXPECT_TRUE(board.week.frameWeekView.Visible());
    EXPECT_EQ(board.Width(), 10000);
    EXPECT_EQ(board.Height(), 10000);
    EXPECT_EQ(board.LeftEdge(), 1000);
    EXPECT_EQ(board.TopEdge(), 1000);
    EXPECT_EQ(board.State(), ui::WindowState::Normal);
    EXPECT_TRUE(board.day.cbShowLabor.Value());
  });
  EXPECT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.desktop.boxes.empty());
  EXPECT_EQ(run.desktop.events, (std::vector<std::string>{"shown frmSplash", "unloaded frmSplash", "shown frmMain",
                                                          "unloaded frmInvList", "unloaded frmMain"}));
}

TEST(Start, SetsEveryScreenInTheSizeOfTheFontFactor) {
  Running run;
  run.data.Put("Lantos.ini", "[BENCH1]\r\nFontFactor=3\r\n");
  run.WillWork([&](frmMain& board) {
    EXPECT_EQ(board.MonthView1.FontSize(), 12);
    EXPECT_EQ(board.week.List1[0].FontSize(), 12);
    for (const ui::Control* control : run.desktop.FindForm("frmInvList")->Controls()) {
      const bool hasFont = dynamic_cast<const ui::Timer*>(control) == nullptr &&
                           dynamic_cast<const ui::ProgressBar*>(control) == nullptr;
      EXPECT_EQ(control->FontSize(), hasFont ? 12 : 0) << control->FullName();
    }
  });
  EXPECT_EQ(run.Run(), 0);
}

TEST(Start, LeavesThePlatformsFontWhereNobodyAskedForAnother) {
  Running run;
  run.WillWork([&](frmMain& board) {
    EXPECT_EQ(board.MonthView1.FontSize(), 0);
    EXPECT_EQ(run.desktop.FindForm("frmInvList")->Controls().front()->FontSize(), 0);
  });
  EXPECT_EQ(run.Run(), 0);
}

TEST(Start, EndsTheProcessSilentlyWithoutADataDirectory) {
  Running run;
  std::filesystem::remove(run.data / "Lantos.mdb");
  run.desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(run.RunToTheEnd(), kStartCancelled);
  EXPECT_EQ(run.desktop.boxes.size(), 1U);
  EXPECT_EQ(run.Setting("ShowStatus"), "(none)");
}

TEST(Start, GivenUpAtTheSystemFileIsACancelledOne) {
  Running run;
  const SharedFile held(run.data / "TQSYSTEM.DAT", Access::Read, Deny::All);
  run.desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(run.RunToTheEnd(), kStartCancelled);
}

TEST(Start, StoppedWhileItReadsIsACancelledOneAndLeavesNoMailbox) {
  Running run;
  run.data.Put("TQDEPART.DAT", "");
  const SharedFile held(run.data / "TQDEPART.DAT", Access::Read, Deny::All);
  run.desktop.meanwhile = [&](ui::Form&, ui::Button& stop) {
    EXPECT_TRUE(run.Has("AU9300.$$$"));
    stop.DoClick();
  };
  EXPECT_EQ(run.RunToTheEnd(), kStartCancelled);
  EXPECT_FALSE(run.Has("AU9300.$$$"));
  EXPECT_TRUE(run.desktop.boxes.empty());
}

TEST(Start, AnErrorIsShownAndEndsTheRunWithCodeOne) {
  Running run;
  run.data.Put("Lantos.mdb", "no database at all");
  run.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.icon, ui::Icon::Critical);
    EXPECT_EQ(box.buttons, ui::Buttons::Ok);
    EXPECT_EQ(run.desktop.FindForm("frmSplash"), nullptr);
    return Answer::Ok;
  });
  EXPECT_EQ(run.Run(), 1);
  EXPECT_NE(run.Log("LN930000.LOG").find(run.desktop.boxes.at(0).text), std::string::npos);
  EXPECT_TRUE(run.desktop.forms.empty()) << "the window is never shown";
  EXPECT_EQ(run.Setting("ShowStatus"), "(none)");
}

TEST(Start, ASettingThatIsNoNumberIsAnErrorToo) {
  for (const char* text : {"wide", "1e39"}) {
    Running run;
    run.settings.Save("MainWidth", text);
    run.desktop.WillAnswer(Answer::Ok);
    EXPECT_EQ(run.Run(), 1) << text;
  }
}

TEST(Start, RestoresTheWindowTheLaborSwitchAndTheFilter) {
  Running run;
  run.StorePlace("2");
  run.settings.Save("LaborOnDayView", "0");
  run.settings.Save("ShowStatus", "1110111011");
  run.WillWork([](frmMain& board) {
    EXPECT_EQ(board.LeftEdge(), 1200.5F);
    EXPECT_EQ(board.TopEdge(), 1300);
    EXPECT_EQ(board.Width(), 11000);
    EXPECT_EQ(board.Height(), 9000);
    EXPECT_EQ(board.State(), ui::WindowState::Maximized);
    EXPECT_FALSE(board.day.cbShowLabor.Value());
    EXPECT_FALSE(board.FindMenu("mnuShowStat(3)")->Checked());
    EXPECT_FALSE(board.FindMenu("mnuShowStat(7)")->Checked());
    EXPECT_TRUE(board.FindMenu("mnuShowStat(9)")->Checked());
  });
  run.Run();
  EXPECT_EQ(run.Setting("ShowStatus"), "1110111011");
}

// The second copy.

TEST(SecondCopy, AsksUnderTheStartingCaptionAndNoLetsItRun) {
  Running run;
  run.AnotherCopyRuns();
  run.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, kAlreadyRunning);
    EXPECT_EQ(box.title, "Multiple Lantos Instances");
    EXPECT_EQ(box.icon, ui::Icon::Question);
    EXPECT_EQ(box.buttons, ui::Buttons::YesNoCancel);
    EXPECT_EQ(run.desktop.FindForm("frmMain")->Caption(), "Lantos Starting...");
    return Answer::No;
  });
  run.WillWork([&](frmMain& board) { EXPECT_EQ(board.Caption(), run.Caption()); });
  EXPECT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.desktop.activated.empty());
}

TEST(SecondCopy, AsksNothingWhileTheFirstIsStillStarting) {
  Running run;
  run.desktop.windows = {"Lantos Starting...", "Lantos"};
  run.WillClose();
  run.Run();
  EXPECT_TRUE(run.desktop.boxes.empty());
}

TEST(SecondCopy, AWindowOfTheMainApplicationWithTheWordsInItCounts) {
  Running run;
  run.desktop.windows = {"Korvel - about LANTOS: the scheduler"};
  run.desktop.WillAnswer(Answer::No);
  run.WillClose();
  run.Run();
  EXPECT_EQ(run.desktop.boxes.size(), 1U);
}

struct LeavingCopy : Running {
  LeavingCopy() {
    AnotherCopyRuns();
    StorePlace("0");
    settings.Save("ShowStatus", "1110111011");
    settings.Save("LaborOnDayView", "0");
    data.Put("Lantos.ini", "[Lantos Defaults]\r\nFontFactor=3\r\n");
    data.Put("AU9300.$$$", "of the first copy");
  }
  void ExpectWentDownInOrder() {
    EXPECT_TRUE(desktop.forms.empty()) << "the board is never shown";
    EXPECT_TRUE(Has("AU9300.$$$"));
    EXPECT_FALSE(Has("AU9301.$$$"));
    // Nobody holds the log any more.
    EXPECT_NO_THROW(SharedFile(data / "LN930000.LOG", Access::ReadWrite, Deny::All));
    EXPECT_EQ(StoredPlace(), (std::vector<std::string>{"1200.5", "1300", "11000", "9000", "0"})) << "as restored";
    EXPECT_EQ(Setting("LaborOnDayView"), "0");
    EXPECT_EQ(Setting("ShowStatus"), "1111111111") << "as designed: the stored one isn't read yet";
    EXPECT_EQ(data.Content("Lantos.ini"), "[Lantos Defaults]\r\nFontFactor=3\r\n[BENCH1]\r\nFontFactor=3\r\n");
    EXPECT_EQ(desktop.pointer, ui::Pointer::Normal);
    EXPECT_EQ(desktop.events, (std::vector<std::string>{"shown frmSplash", "unloaded frmSplash", "unloaded frmInvList",
                                                        "unloaded frmMain"}));
  }
};

TEST(SecondCopy, CancelTakesItDownInOrder) {
  LeavingCopy run;
  run.desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.desktop.activated.empty());
  run.ExpectWentDownInOrder();
}

TEST(SecondCopy, YesBringsTheFirstUpAndTakesItDownInOrder) {
  LeavingCopy run;
  run.desktop.WillAnswer(Answer::Yes);
  EXPECT_EQ(run.Run(), 0);
  EXPECT_EQ(run.desktop.activated, run.desktop.windows);
  run.ExpectWentDownInOrder();
}

TEST(SecondCopy, YesCarriesOnWhenTheFirstHasGoneMeanwhile) {
  Running run;
  run.AnotherCopyRuns();
  run.desktop.WillAnswer([&](const ui::Box&) {
    run.desktop.windows.clear();
    return Answer::Yes;
  });
  run.WillWork([&](frmMain& board) { EXPECT_EQ(board.Caption(), run.Caption()); });
  EXPECT_EQ(run.Run(), 0);
}

// Going down.

TEST(Closing, StoresFilterPlaceSwitchAndFontAndClosesLogAndUpdateFile) {
  Running run;
  run.data.Put("Lantos.ini", "[Lantos Defaults]\r\nFontFactor=3\r\n");
  run.WillWork([&](frmMain& board) {
    EXPECT_TRUE(run.Has("AU9300.$$$"));
    board.FindMenu("mnuShowStat(3)")->DoClick();
    board.day.cbShowLabor.DoClick();
    board.DoMove(1500.25F, 20);
    board.DoResize(12000, 8000, ui::WindowState::Normal);
  });
  run.Run();
  EXPECT_EQ(run.StoredPlace(), (std::vector<std::string>{"1500.25", "20", "12000", "8000", "0"}));
  EXPECT_EQ(run.Setting("ShowStatus"), "1110111111");
  EXPECT_EQ(run.Setting("LaborOnDayView"), "0");
  EXPECT_EQ(run.data.Content("Lantos.ini"), "[Lantos Defaults]\r\nFontFactor=3\r\n[BENCH1]\r\nFontFactor=3\r\n");
  EXPECT_FALSE(run.Has("AU9300.$$$"));
  EXPECT_NO_THROW(SharedFile(run.data / "LN930000.LOG", Access::ReadWrite, Deny::All));
}

TEST(Closing, AMinimisedOrMaximisedWindowStoresItsStateAlone) {
  for (const auto& [state, text] : {std::pair{ui::WindowState::Minimized, "1"}, {ui::WindowState::Maximized, "2"}}) {
    Running run;
    run.StorePlace("0");
    run.WillWork([shown = state](frmMain& board) {
      board.DoMove(-32000, -32000);
      board.DoResize(160, 24, shown);
    });
    run.Run();
    EXPECT_EQ(run.StoredPlace(), (std::vector<std::string>{"1200.5", "1300", "11000", "9000", text}));
  }
}

TEST(Closing, LosesSilentlyWhatCannotBeWritten) {
  Running run;
  std::filesystem::create_directory(run.data / "Lantos.ini");
  run.WillClose();
  EXPECT_EQ(run.Run(), 0);
  EXPECT_TRUE(run.desktop.boxes.empty());
  EXPECT_FALSE(run.Has("AU9300.$$$"));
}

struct HiddenForm : ui::Form {
  HiddenForm(ui::Desktop& shownOn, std::vector<std::string>& gone, std::string name, bool breaks)
      : Form(shownOn, std::move(name), "Hidden"), gone_(gone), breaks_(breaks) {
    LoadForm();
  }
  void OnUnload(bool&) override {
    gone_.push_back(Name());
    if (breaks_) throw std::runtime_error(Name() + " broke");
  }
  std::vector<std::string>& gone_;
  bool breaks_;
};

TEST(Closing, UnloadsTheOtherFormsFromTheLastOnPastAnyError) {
  Running run;
  std::vector<std::string> gone;
  HiddenForm first(run.desktop, gone, "frmFirst", false);
  HiddenForm second(run.desktop, gone, "frmSecond", true);
  HiddenForm third(run.desktop, gone, "frmThird", false);
  run.WillClose();
  EXPECT_EQ(run.Run(), 0);
  EXPECT_EQ(gone, (std::vector<std::string>{"frmThird", "frmSecond", "frmFirst"}));
  EXPECT_NE(run.Log("LN930000.LOG").find("frmSecond broke\n"), std::string::npos);
  EXPECT_FALSE(first.IsLoaded());
}

TEST(Leaving, ByTheMenuEndsOnTheSpotAndKeepsNothing) {
  Running run;
  run.desktop.WillUse([](ui::Form& form) { form.FindMenu("mnuFileExit")->DoClick(); });
  EXPECT_EQ(run.RunToTheEnd(), 0);
  run.ExpectNothingStored();
  EXPECT_NE(run.data.Content("Lantos.ini").find("[Lantos Defaults]"), std::string::npos) << "of the start";
  EXPECT_EQ(run.data.Content("Lantos.ini").find("[BENCH1]"), std::string::npos);
}

// Past midnight.

TEST(DayRollover, TheNextButtonTellsAndEndsOnTheSpot) {
  Running run;
  run.desktop.WillUse([&](ui::Form& form) {
    run.clock.MoveTo(LocalTime{run.clock.Today() + 1, 0});
    dynamic_cast<frmMain&>(form).commands.cmdDayView.DoClick();
  });
  run.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(run.RunToTheEnd(), 0);
  ASSERT_EQ(run.desktop.boxes.size(), 1U);
  const ui::Box& box = run.desktop.boxes[0];
  EXPECT_EQ(box.text,
            "NOTE: This application must be restarted each \r\nday in order to maintain data files integrity.\r\n\r\n"
            "Started date: 09/30/2003\r\nCurrent date: 10/01/2003\r\n\r\nClick OK to exit the application.");
  EXPECT_EQ(box.title, "Restart required.");
  EXPECT_EQ(box.icon, ui::Icon::Information);
  EXPECT_EQ(box.buttons, ui::Buttons::Ok);
  run.ExpectNothingStored();
}

TEST(DayRollover, AMenuCommandThatLeadsToNoSuchButtonGoesOn) {
  Running run;
  run.WillWork([&](frmMain& board) {
    run.clock.MoveTo(LocalTime{run.clock.Today() + 1, 0});
    board.FindMenu("mnuRefreshCustomer")->DoClick();
  });
  run.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(run.Run(), 0);
  EXPECT_EQ(run.desktop.boxes.at(0).text, "Customer information refreshed.");
}

// Two in one process, each with its own state.

TEST(TwoRuns, OfOneDayHaveTheirOwnLogAndUpdateFile) {
  Running first;
  Running second;
  second.StoreDataDir(first.data.DataDir());
  first.WillWork([&](frmMain&) {
    second.WillWork([&](frmMain&) {
      EXPECT_TRUE(first.Has("AU9300.$$$"));
      EXPECT_TRUE(first.Has("AU9301.$$$"));
    });
    second.Run();
    EXPECT_TRUE(first.Has("AU9300.$$$"));
    EXPECT_FALSE(first.Has("AU9301.$$$"));
  });
  first.Run();
  EXPECT_TRUE(first.Has("LN930000.LOG"));
  EXPECT_TRUE(first.Has("LN930001.LOG"));
}

}  // namespace
}  // namespace lantos
