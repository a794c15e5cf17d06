#include "ui/DriverBench.h"

namespace lantos::ui {
namespace {

using Answers = DriverBench;

TEST_F(Answers, ComeWhenTheProgramNextWaits) {
  const auto read = Play({kDone});
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0], json::parse(R"j({"waiting":"form","form":"frmBench","caption":"Bench","focus":"txtName"})j"));
  EXPECT_EQ(read[1], json::parse(R"j({"waiting":"ended","code":0})j"));
}

TEST_F(Answers, TellAMessageBoxWithLineFeedsOnly) {
  form.other.OnClick = [&] {
    const Answer answer = desktop.Show({"one\r\rtwo\r\nthree", "Title", Buttons::YesNoCancel, Icon::Question, 1});
    form.happened += std::string(NameOf(answer));
  };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"answer","button":"No"})j", kDone});
  ASSERT_EQ(read.size(), 4U);
  EXPECT_EQ(read[1], json::parse(R"j({"waiting":"box","title":"Title","text":"one\n\ntwo\nthree","icon":"question",
                                     "buttons":["Yes","No","Cancel"],"default":"No"})j"));
  EXPECT_EQ(read[2]["waiting"], "form");
  EXPECT_EQ(form.happened, "No");
}

TEST_F(Answers, AMessageBoxTakesNothingButAnAnswer) {
  form.other.OnClick = [&] { desktop.Tell("text", "title"); };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"answer","button":"Yes"})j", kDone,
                          R"j({"do":"close"})j", R"j({"do":"choose","item":null})j", R"j({"get":"frmBench.cmdDone"})j",
                          R"j({"do":"answer","button":"OK"})j", kDone});
  ASSERT_EQ(read.size(), 9U);
  for (std::size_t i = 2; i <= 5; ++i) {
    EXPECT_EQ(read[i]["waiting"], "box");
    EXPECT_TRUE(read[i].contains("error")) << i;
  }
  EXPECT_EQ(read[6]["result"]["caption"], "Done");
  EXPECT_FALSE(read[7].contains("error"));
}

TEST_F(Answers, NestAsTheCallsDo) {
  BenchForm second(desktop);
  form.other.OnClick = [&] {
    desktop.Tell("first", "t");
    second.ShowModal();
    desktop.Tell("second", "t");
  };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"answer","button":"OK"})j",
                          R"j({"do":"check","control":"chkTick","value":true})j", kDone,
                          R"j({"do":"answer","button":"OK"})j", kDone});
  ASSERT_EQ(read.size(), 7U);
  EXPECT_EQ(read[1]["text"], "first");
  EXPECT_EQ(read[2]["waiting"], "form");
  EXPECT_EQ(read[4]["text"], "second");
  EXPECT_TRUE(second.tick.Value());
  EXPECT_FALSE(form.tick.Value());
}

TEST_F(Answers, TellThePopupMenusVisibleEntries) {
  form.list.OnMouseUp = [&](MouseButton) { desktop.PopupMenu(form, *form.FindMenu("mnuPopup")); };
  const std::string rightClick = R"j({"do":"click","control":"List1(3)","row":1,"button":"right"})j";
  const auto read =
      Play({rightClick, R"j({"do":"choose","item":"Gray"})j", R"j({"do":"choose","item":"Hidden"})j",
            R"j({"do":"choose","item":"Scheduled"})j", rightClick, R"j({"do":"choose","item":"mnuStat(1)"})j",
            rightClick, R"j({"do":"choose","item":null})j", kDone});
  ASSERT_EQ(read.size(), 10U);
  EXPECT_EQ(read[1], json::parse(R"j({"waiting":"popup","menu":"mnuPopup","items":[
    {"name":"mnuStat(0)","caption":"&Scheduled","checked":false,"enabled":true
  },
    {"name":"mnuStat(1)","caption":"Arrived","checked":true,"enabled":true},
    {"name":"mnuStat(3)","caption":"Gray","checked":false,"enabled":false}]
  })j"));
  EXPECT_TRUE(read[2].contains("error"));
  EXPECT_TRUE(read[3].contains("error"));
  EXPECT_EQ(form.happened, "stat0 stat1 ");
  EXPECT_EQ(form.list.ListIndex(), 1);
}

TEST_F(Answers, CarryWhatHappenedMeanwhileOnce) {
  form.other.OnClick = [&] {
    desktop.Beep();
    desktop.ShowStatus("Saving");
    EXPECT_EQ(desktop.OpenDocument("http://example.test/"), 33);
    EXPECT_EQ(desktop.OpenDocument("/no such.pdf"), 2);
    EXPECT_EQ(desktop.OpenDocument("C:\\no\\such.pdf"), 3);
  };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"leave"})j", kDone});
  EXPECT_EQ(read[1]["events"],
            json::parse(R"j([{"beep":true},{"status":"Saving"},{"shell":"http://example.test/"}])j"));
  EXPECT_FALSE(read[2].contains("events"));
}

TEST_F(Answers, AnErrorThatEndsAnEventIsShownAndNoted) {
  std::string logged;
  desktop.logFailure = [&](const std::string& text) { logged = text; };
  form.other.OnClick = [] { throw std::runtime_error("the disk is full"); };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"answer","button":"OK"})j", kDone});
  ASSERT_EQ(read.size(), 4U);
  EXPECT_EQ(read[1]["text"], "the disk is full");
  EXPECT_EQ(read[1]["icon"], "critical");
  EXPECT_EQ(read[1]["events"], json::parse(R"j([{"failure":"the disk is full"}])j"));
  EXPECT_EQ(logged, "the disk is full");
}

TEST_F(Answers, RefuseAMalformedLineAndGoOn) {
  for (const char* line :
       {"", "nonsense", "[]", "{}", R"j({"do":7})j", R"j({"do":"dance"})j", R"j({"do":"click"})j",
        R"j({"do":"click","control":"cmdOther","shift":true})j", R"j({"do":"click","control":"List1(3)","row":"1"})j",
        R"j({"get":"form","to":"x"})j", R"j({"get":"screenshot"})j", R"j({"do":"wait","ms":1.5})j",
        R"j({"do":"wait","ms":-1})j", R"j({"do":"now","at":"yesterday"})j", R"j({"do":"print"})j",
        R"j({"do":"answer","button":"OK"})j", R"j({"do":"key","key":"F10+X"})j", R"j({"do":"wait","ms":99999999999})j",
        R"j({"do":"select","control":"List1(3)","row":18446744073709551615})j"}) {
    EXPECT_NE(Refused(line), "") << line;
  }
  EXPECT_EQ(form.happened, "");
}

TEST_F(Answers, RefuseTheHeadingOfAHiddenColumn) {
  form.grid.SetColumns({{"VIN", "Vehicle", false}, {"Year", "Yr", true, true}});
  form.grid.OnHeadClick = [&](int) { form.happened += "heading "; };
  EXPECT_NE(Refused(R"j({"do":"click","control":"DataGrid1","column":"Year"})j"), "");
  EXPECT_EQ(form.happened, "");
}

TEST_F(Answers, TheEndOfInputEndsTheProcessAtOnce) {
  lines.str("");
  EXPECT_EXIT(form.ShowModal(), testing::ExitedWithCode(0), "");
}

TEST_F(Answers, EndProcessSaysTheLastWordAndUnloadsNothing) {
  form.other.OnClick = [&] { desktop.EndProcess(3); };
  EXPECT_EXIT(Play({R"j({"do":"click","control":"cmdOther"})j"}), testing::ExitedWithCode(3), "");
}

using Time = DriverBench;

TEST_F(Time, StandsStillUntilItIsMoved) {
  Play({R"j({"do":"leave"})j", kDone});
  EXPECT_EQ(clock.Now(), *ParseLocalTime("2003-09-30T08:15:00"));
  Play({R"j({"do":"wait","ms":1500})j", kDone});
  EXPECT_EQ(clock.Now(), ParseLocalTime("2003-09-30T08:15:00")->PlusMilliseconds(1500));
  Play({R"j({"do":"now","at":"2003-10-01T00:00:01"})j", kDone});
  EXPECT_EQ(clock.Now(), *ParseLocalTime("2003-10-01T00:00:01"));
}

TEST_F(Time, TimersRunWhenTheyFallDueAndInOrder) {
  form.timer.SetInterval(300);
  form.slow.SetInterval(500);
  const LocalTime start = clock.Now();
  const auto note = [&](const char* name) {
    form.happened += name + std::to_string(clock.Now().MillisecondsSince(start)) + " ";
  };
  form.timer.OnTimer = [&] { note("a"); };
  form.slow.OnTimer = [&] { note("b"); };
  Play({R"j({"do":"wait","ms":999})j", kDone});
  EXPECT_EQ(form.happened, "a300 b500 a600 a900 ");
}

TEST_F(Time, SettingTheClockRunsNoTimer) {
  form.timer.SetInterval(300);
  form.timer.OnTimer = [&] { form.happened += "tick "; };
  Play({R"j({"do":"now","at":"2003-10-01T00:00:01"})j", kDone});
  EXPECT_EQ(form.happened, "");
}

TEST_F(Time, AStoppedTimerDoesNotRunAndAStartedOneRunsItsFullInterval) {
  form.timer.SetInterval(300);
  form.slow.SetInterval(200);
  form.slow.SetEnabled(false);
  form.timer.OnTimer = [&] {
    form.happened += "a ";
    form.timer.SetEnabled(false);
    form.slow.SetEnabled(true);
  };
  form.slow.OnTimer = [&] { form.happened += "b "; };
  Play({R"j({"do":"wait","ms":499})j", kDone});
  EXPECT_EQ(form.happened, "a ");
  Play({R"j({"do":"wait","ms":1})j", kDone});
  EXPECT_EQ(form.happened, "a b ");
}

TEST_F(Time, ATimersBoxWaitsForThePersonAndTheRestOfTheTimePassesAfterIt) {
  form.timer.SetInterval(300);
  form.timer.OnTimer = [&] { desktop.Tell("tick", "t"); };
  const auto read = Play(
      {R"j({"do":"wait","ms":500})j", R"j({"do":"wait","ms":1000})j", R"j({"do":"answer","button":"OK"})j", kDone});
  ASSERT_EQ(read.size(), 5U);
  EXPECT_EQ(read[1]["text"], "tick");
  EXPECT_EQ(read[2]["text"], "tick") << "its own event still runs: it doesn't fall due again";
  EXPECT_EQ(read[3]["waiting"], "form");
  EXPECT_EQ(clock.Now().MillisecondsSince(*ParseLocalTime("2003-09-30T08:15:00")), 1300);
}

TEST_F(Time, RealTimePassesUnderTheRealClock) {
  SystemClock real;
  std::istringstream script(std::string(R"j({"do":"wait","ms":30})j") + "\n" +
                            R"j({"do":"now","at":"2003-10-01T00:00:01"})j" + "\n" + kDone + "\n");
  std::ostringstream said;
  Session person(script, said, real);
  DriverDesktop screen(person);
  person.Attach(screen, screen.GetHand());
  BenchForm bench(screen);
  bench.timer.SetInterval(10);
  bench.timer.OnTimer = [&] { bench.happened += "tick "; };
  const LocalTime start = real.Now();
  bench.ShowModal();
  EXPECT_GE(real.Now().MillisecondsSince(start), 30);
  EXPECT_TRUE(bench.happened.starts_with("tick tick ")) << bench.happened;
  EXPECT_NE(said.str().find("the real clock can't be set"), std::string::npos);
}

}  // namespace
}  // namespace lantos::ui
