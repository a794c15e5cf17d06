#include <fstream>

#include "ui/DriverBench.h"

namespace lantos::ui {
namespace {

using Hands = DriverBench;

TEST_F(Hands, AClickGoesToTheControlFirst) {
  form.text.OnLostFocus = [&] { form.happened += "lost "; };
  form.other.OnGotFocus = [&] { form.happened += "got "; };
  form.other.OnClick = [&] { form.happened += "click "; };
  EXPECT_EQ(Do(R"j({"do":"click","control":"cmdOther"})j")["focus"], "cmdOther");
  EXPECT_EQ(form.happened, "lost got click ");
}

TEST_F(Hands, ARefusedLeaveKeepsTheFocusAndClicksNothing) {
  form.text.OnValidate = [&](bool& keepFocus) { keepFocus = form.text.Text() == "bad"; };
  form.other.OnClick = [&] { form.happened += "click "; };
  const auto read =
      Play({R"j({"do":"type","control":"txtName","text":"bad"})j", R"j({"do":"click","control":"cmdOther"})j",
            R"j({"do":"leave"})j", R"j({"do":"type","control":"txtName","text":"good"})j", kDone});
  ASSERT_EQ(read.size(), 6U);
  EXPECT_EQ(read[2]["focus"], "txtName");
  EXPECT_EQ(read[3]["focus"], "txtName");
  EXPECT_EQ(form.happened, "");
}

TEST_F(Hands, CantTouchWhatAPersonCouldnt) {
  form.other.SetEnabled(false);
  form.tick.SetVisible(false);
  form.frame.SetVisible(false);
  form.notes.SetLocked(true);
  const std::pair<const char*, const char*> refusals[] = {
      {R"j({"do":"click","control":"cmdNone"})j", "there is no control 'cmdNone' on frmBench, which has the user"},
      {R"j({"do":"click","control":"Timer1"})j", "there is no control 'Timer1' on frmBench, which has the user"},
      {R"j({"do":"click","control":"List1"})j", "there is no control 'List1' on frmBench, which has the user"},
      {R"j({"do":"click","control":"cmdOther"})j", "cmdOther is disabled"},
      {R"j({"do":"check","control":"chkTick","value":true})j", "chkTick is hidden"},
      {R"j({"do":"type","control":"txtInside","text":"x"})j", "txtInside is hidden"},
      {R"j({"do":"type","control":"txtNotes","text":"x"})j", "txtNotes is locked"},
      {R"j({"do":"type","control":"cboDrop","text":"x"})j", "cboDrop takes no text"},
      {R"j({"do":"type","control":"cmdDone","text":"x"})j", "cmdDone takes no text"},
      {R"j({"do":"click","control":"List1(3)","row":3})j", "List1(3) has no row 3"},
      {R"j({"do":"click","control":"List1(3)","row":-1})j", "List1(3) has no row -1"},
      {R"j({"do":"click","control":"cmdDone","row":0})j", "cmdDone has no rows"},
      {R"j({"do":"select","control":"DataGrid1","row":2})j", "DataGrid1 has no row 2"},
      {R"j({"do":"select","control":"List1(3)","text":"gamma"})j", "List1(3) has no row with 'gamma'"},
      {R"j({"do":"select","control":"List1(3)","rows":[0,1]})j", "List1(3) takes one row at a time"},
      {R"j({"do":"select","control":"List1(3)"})j", "one of 'row', 'rows' and 'text' tells what to select"},
      {R"j({"do":"check","control":"cmdDone","value":true})j", "cmdDone can't be ticked"},
      {R"j({"do":"check","control":"List1(3)","row":0,"value":true})j", "List1(3) has no boxes to tick"},
      {R"j({"do":"pick","control":"txtName","date":"2003-10-01"})j", "txtName holds no date"},
      {R"j({"do":"pick","control":"MonthView1","date":"2003-02-30"})j", "'2003-02-30' is no date"},
      {R"j({"do":"menu","item":"mnuNone"})j", "there is no menu entry 'mnuNone' on frmBench"},
      {R"j({"do":"menu","item":"mnuGray"})j", "mnuGray is disabled"},
      {R"j({"do":"menu","item":"mnuStat(1)"})j", "mnuStat(1) is hidden"},
      {R"j({"do":"menu","item":"mnuFile"})j", "mnuFile is a menu, not an entry of one"},
      {R"j({"do":"click","control":"cmdDone","button":"middle"})j", "a mouse has no button 'middle'"},
      {R"j({"do":"click","control":"List1(3)","column":"VIN"})j", "List1(3) has no columns"},
      {R"j({"do":"click","control":"DataGrid1","column":"Colour"})j", "DataGrid1 has no column 'Colour'"},
      {R"j({"get":"screenshot","to":"x.png"})j", "there are no pixels without real windows"},
      {R"j({"get":"frmNone"})j", "no form 'frmNone' is loaded"},
      {R"j({"get":"frmBench.cmdNone"})j", "there is no control 'cmdNone' on frmBench"},
  };
  for (const auto& [line, error] : refusals) {
    EXPECT_EQ(Refused(line), error) << line;
  }
}

TEST_F(Hands, TouchTheTopmostFormOnly) {
  BenchForm second(desktop);
  form.other.OnClick = [&] { second.ShowModal(); };
  second.other.OnClick = [&] { second.happened += "second "; };
  Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"do":"click","control":"cmdOther"})j", kDone, kDone});
  EXPECT_EQ(second.happened, "second ");
}

TEST_F(Hands, TypeCharacterByCharacter) {
  form.text.SetText("before");
  form.text.OnChange = [&] { form.happened += form.text.Text() + "|"; };
  Play({R"j({"do":"type","control":"txtName","text":"ab"})j", kDone});
  EXPECT_EQ(form.happened, "|a|ab|");
}

TEST_F(Hands, TypedTextIsOfTheProgramsPage) {
  Play({R"j({"do":"type","control":"txtName","text":"Müller € 漢"})j", kDone});
  EXPECT_EQ(form.text.Text(), "M\xfcller \x80 ?");
  EXPECT_EQ(Do(R"j({"get":"frmBench.txtName"})j")["result"]["text"], "Müller € ?");
}

TEST_F(Hands, WhatNoKeyTypesGoesIntoNoText) {
  Play({R"j({"do":"type","control":"txtName","text":"a\tb\u0000c\u001bd"})j", kDone});
  EXPECT_EQ(form.text.Text(), "abcd");
}

TEST_F(Hands, AnswersAreWrittenWhateverBytesAPathHolds) {
  form.other.OnClick = [&] { session.Note({{"shell", "a\xff"}}); };
  EXPECT_EQ(Do(R"j({"do":"click","control":"cmdOther"})j")["events"][0]["shell"], "a\ufffd");
  EXPECT_EQ(Do(R"j({"do":"leave","m\u00fc":1})j")["error"], "unknown member 'm\u00fc'");
}

TEST_F(Hands, LineEndsGoIntoAMultiLineBoxAndComeOutAsLineFeeds) {
  form.notes.SetMultiLine(true);
  Play({R"j({"do":"type","control":"txtNotes","text":"one\ntwo\r\nthree"})j", kDone});
  EXPECT_EQ(form.notes.Text(), "one\r\ntwo\r\nthree");
  EXPECT_EQ(Do(R"j({"get":"frmBench.txtNotes"})j")["result"]["text"], "one\ntwo\nthree");
}

TEST_F(Hands, SelectRowsByNumberAndByText) {
  form.list.OnClick = [&] { form.happened += std::to_string(form.list.ListIndex()) + " "; };
  Play({R"j({"do":"select","control":"List1(3)","row":2})j", R"j({"do":"select","control":"List1(3)","text":"alpha"})j",
        R"j({"do":"select","control":"List1(3)","text":"phab"})j", R"j({"do":"click","control":"List1(3)","row":1})j",
        R"j({"do":"select","control":"List1(3)","row":-1})j", R"j({"do":"select","control":"lstMulti","rows":[0,2]})j",
        R"j({"do":"select","control":"cboDrop","text":"beta"})j",
        R"j({"do":"select","control":"DataGrid1","text":"2001"})j", kDone});
  EXPECT_EQ(form.happened, "2 0 1 1 ") << "-1 selects nothing and clicks nothing";
  EXPECT_EQ(form.list.ListIndex(), -1);
  EXPECT_TRUE(form.multi.Selected(0));
  EXPECT_FALSE(form.multi.Selected(1));
  EXPECT_TRUE(form.multi.Selected(2));
  EXPECT_EQ(form.drop.Text(), "beta");
  EXPECT_EQ(form.grid.Row(), 1);
}

TEST_F(Hands, ADoubleClickOnARowSelectsItFirst) {
  form.list.OnClick = [&] { form.happened += "click "; };
  form.list.OnDoubleClick = [&] { form.happened += "double" + std::to_string(form.list.ListIndex()); };
  Play({R"j({"do":"click","control":"List1(3)","row":2,"double":true})j", kDone});
  EXPECT_EQ(form.happened, "click double2");
}

TEST_F(Hands, ARightClickOnARowSelectsItUnlessItIsCurrent) {
  form.list.OnClick = [&] { form.happened += "click "; };
  form.list.OnMouseUp = [&](MouseButton button) { form.happened += button == MouseButton::Right ? "right " : "left "; };
  const std::string line = R"j({"do":"click","control":"List1(3)","row":2,"button":"right"})j";
  Play({line, line, kDone});
  EXPECT_EQ(form.happened, "click right right ");
}

TEST_F(Hands, TheRightButtonOnAListSelectsNothing) {
  form.list.OnMouseUp = [&](MouseButton) { form.happened += std::to_string(form.list.ListIndex()); };
  Play({R"j({"do":"click","control":"List1(3)","button":"right"})j", kDone});
  EXPECT_EQ(form.happened, "-1");
}

TEST_F(Hands, FramesLabelsAndTheBareFormTakeTheRightButton) {
  form.frame.OnMouseUp = [&](MouseButton) { form.happened += "frame "; };
  form.label.OnMouseUp = [&](MouseButton) { form.happened += "label "; };
  Play({R"j({"do":"click","control":"fraBox","button":"right"})j",
        R"j({"do":"click","control":"lblName","button":"right"})j",
        R"j({"do":"click","control":"frmBench","button":"right"})j", R"j({"do":"click","control":"frmBench"})j",
        kDone});
  EXPECT_EQ(form.happened, "frame label right left ");
}

TEST_F(Hands, AClickOnAHeading) {
  form.grid.OnHeadClick = [&](int column) { form.happened += std::to_string(column); };
  Play({R"j({"do":"click","control":"DataGrid1","column":"Year"})j", kDone});
  EXPECT_EQ(form.happened, "1");
}

TEST_F(Hands, TickOnceAndNotTwice) {
  form.tick.OnClick = [&] { form.happened += "tick "; };
  form.one.OnClick = [&] { form.happened += "one "; };
  form.boxes.OnItemCheck = [&](int row) { form.happened += "row" + std::to_string(row) + " "; };
  const auto read = Play(
      {R"j({"do":"check","control":"chkTick","value":true})j", R"j({"do":"check","control":"chkTick","value":true})j",
       R"j({"do":"check","control":"optOne","value":true})j", R"j({"do":"check","control":"optOne","value":false})j",
       R"j({"do":"check","control":"lstBoxes","row":1,"value":true})j",
       R"j({"do":"check","control":"lstBoxes","row":1,"value":true})j", kDone});
  EXPECT_EQ(form.happened, "tick one row1 ");
  EXPECT_TRUE(read[4].contains("error")) << "an option is unticked by ticking another";
  EXPECT_TRUE(form.boxes.Checked(1));
}

TEST_F(Hands, PickDates) {
  form.calendar.OnDateClick = [&](DaySerial day) { form.happened += "click" + FormatIsoDate(day) + " "; };
  form.calendar.OnDateDoubleClick = [&](DaySerial day) { form.happened += "double" + FormatIsoDate(day) + " "; };
  form.picker.OnChange = [&] { form.happened += "picker" + FormatIsoDate(form.picker.Value()); };
  Play({R"j({"do":"pick","control":"MonthView1","date":"2003-10-02"})j",
        R"j({"do":"pick","control":"MonthView1","date":"2003-10-03","double":true})j",
        R"j({"do":"pick","control":"DTPicker1","date":"2003-10-04"})j", kDone});
  EXPECT_EQ(form.happened, "click2003-10-02 click2003-10-03 double2003-10-03 picker2003-10-04");
}

TEST_F(Hands, KeysMenusAndTheCloseBox) {
  auto read = Play({R"j({"do":"key","key":"F10"})j", R"j({"do":"close"})j"});
  EXPECT_EQ(form.happened, "F10 close ");
  read = Play({R"j({"do":"menu","item":"mnuExit"})j"});
  EXPECT_EQ(read.back()["waiting"], "ended");
}

using Eyes = DriverBench;

TEST_F(Eyes, ReadEveryKindOfControl) {
  form.list.SetToolTip("Pick <F4>");
  form.list.SetBackColor(Color{0xe0, 0xe0, 0xe0});
  form.list.SetListIndex(1);
  const json list = Do(R"j({"get":"frmBench.List1(3)"})j")["result"];
  EXPECT_EQ(list["type"], "ListBox");
  EXPECT_EQ(list["visible"], true);
  EXPECT_EQ(list["enabled"], true);
  EXPECT_EQ(list["tooltip"], "Pick <F4>");
  EXPECT_EQ(list["backcolor"], "#e0e0e0");
  EXPECT_EQ(list["selected"], 1);
  EXPECT_EQ(list["rows"][1], json::parse(R"j({"text":"alphabet","data":11,"checked":false,"selected":true})j"));
  EXPECT_EQ(list["rows"][0]["selected"], false);
}

TEST_F(Eyes, ReadAFormWithItsMenusAndHiddenControls) {
  form.tick.SetVisible(false);
  form.grid.SetRow(1);
  form.SetBackColor(Color{1, 2, 3});
  const json result = Do(R"j({"get":"form"})j")["result"];
  EXPECT_EQ(result["form"], "frmBench");
  EXPECT_EQ(result["caption"], "Bench");
  EXPECT_EQ(result["visible"], true);
  EXPECT_EQ(result["backcolor"], "#010203");
  const json& controls = result["controls"];
  EXPECT_EQ(controls["chkTick"]["visible"], false);
  EXPECT_EQ(controls["chkTick"]["checked"], false);
  EXPECT_EQ(controls["txtName"]["locked"], false);
  EXPECT_EQ(controls["MonthView1"]["date"], "2003-09-30");
  EXPECT_EQ(controls["mnuStat(1)"]["checked"], true);
  EXPECT_EQ(controls["DataGrid1"]["rows"][1],
            json::parse(R"j({"cells":{"VIN":"2DEF","Year":"2001"},"data":6,"selected":true})j"));
}

TEST_F(Eyes, ReadAnyLoadedFormHiddenOnesToo) {
  class Hidden : public Form {
   public:
    explicit Hidden(Desktop& owner) : Form(owner, "frmHidden", "Hidden") {}
    TextBox text{*this, "txtText"};
  } hidden(desktop);
  form.other.OnClick = [&] { hidden.LoadForm(); };
  const auto read = Play({R"j({"do":"click","control":"cmdOther"})j", R"j({"get":"frmHidden"})j",
                          R"j({"get":"forms"})j", R"j({"get":"frmHidden.txtText"})j", R"j({"get":"log"})j", kDone});
  EXPECT_EQ(read[2]["result"]["visible"], false);
  EXPECT_EQ(read[2]["result"]["backcolor"], nullptr);
  EXPECT_EQ(read[3]["result"], json::parse(R"j(["frmBench","frmHidden"])j"));
  EXPECT_EQ(read[4]["result"]["text"], "");
  EXPECT_EQ(read[5]["result"], nullptr);
}

TEST_F(Eyes, SeeTheTopmostFormBehindABox) {
  form.other.OnClick = [&] { desktop.Tell("text", "title"); };
  const auto read = Play(
      {R"j({"do":"click","control":"cmdOther"})j", R"j({"get":"form"})j", R"j({"do":"answer","button":"OK"})j", kDone});
  EXPECT_EQ(read[2]["result"]["form"], "frmBench");
}

TEST_F(Eyes, APrintedScreenIsAFileAndAnEvent) {
  std::string pattern = (std::filesystem::temp_directory_path() / "print-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(pattern.data());
  desktop.PrintTo(folder);
  form.other.OnClick = [&] { desktop.PrintScreen(form); };
  const json event = Do(R"j({"do":"click","control":"cmdOther"})j")["events"][0];
  EXPECT_EQ(event["printed"], "frmBench");
  std::ifstream file(event["text"].get<std::string>());
  EXPECT_EQ(json::parse(file)["form"], "frmBench");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace lantos::ui
