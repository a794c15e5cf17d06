#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "frame/Dates.h"
#include "ui/driver/DriverDesktop.h"
#include "ui/driver/Session.h"

namespace lantos::ui {

using nlohmann::json;

// A form with one of everything, and a person who does what the lines say.
class BenchForm : public Form {
 public:
  explicit BenchForm(Desktop& desktop) : Form(desktop, "frmBench", "Bench") {
    inside.SetContainer(frame);
    combo.SetEditable(true);
    multi.SetMultiSelect(true);
    boxes.SetCheckBoxes(true);
    for (const char* row : {"alpha", "alphabet", "beta"}) {
      list.AddItem(row, list.ListCount() + 10);
      multi.AddItem(row);
      boxes.AddItem(row);
      drop.AddItem(row);
    }
    grid.SetColumns({{"VIN", "Vehicle", false}, {"Year", "Yr", true}});
    grid.SetRows({{{"1ABC", "1999"}, 5}, {{"2DEF", "2001"}, 6}});
    calendar.SetValue(ToSerial({2003, 9, 30}));
    picker.SetValue(ToSerial({2003, 9, 30}));
    MenuItem& file = AddMenu("mnuFile", "&File");
    file.Add("mnuExit", "E&xit", [this] { Hide(); });
    file.Add("mnuGray", "Gray").SetEnabled(false);
    MenuItem& popup = AddMenu("mnuPopup", "popup");
    popup.SetVisible(false);
    popup.Add(
        "mnuStat", "&Scheduled", [this] { happened += "stat0 "; }, 0);
    popup
        .Add(
            "mnuStat", "Arrived", [this] { happened += "stat1 "; }, 1)
        .SetChecked(true);
    popup.Add("mnuStat", "Hidden", nullptr, 2).SetVisible(false);
    popup.Add("mnuStat", "Gray", nullptr, 3).SetEnabled(false);
    done.OnClick = [this] { Hide(); };
  }

  TextBox text{*this, "txtName"};
  TextBox notes{*this, "txtNotes"};
  Button done{*this, "cmdDone", "Done"};
  Button other{*this, "cmdOther", "Other"};
  CheckBox tick{*this, "chkTick", "Tick"};
  OptionButton one{*this, "optOne", "One"};
  OptionButton two{*this, "optTwo", "Two"};
  ListBox list{*this, "List1", 3};
  ListBox multi{*this, "lstMulti"};
  ListBox boxes{*this, "lstBoxes"};
  ComboBox combo{*this, "cboText"};
  ComboBox drop{*this, "cboDrop"};
  Grid grid{*this, "DataGrid1"};
  MonthView calendar{*this, "MonthView1"};
  DTPicker picker{*this, "DTPicker1"};
  Label label{*this, "lblName", "Name"};
  Frame frame{*this, "fraBox", "Box"};
  TextBox inside{*this, "txtInside"};
  Timer timer{*this, "Timer1"};
  Timer slow{*this, "Timer2"};
  std::string happened;

 protected:
  void OnQueryClose(bool& refuse) override {
    happened += "close ";
    refuse = true;
    Hide();
  }
  void OnMouseUp(MouseButton button) override { happened += button == MouseButton::Right ? "right " : "left "; }
  void OnKeyDown(KeyPress& key) override {
    if (key.Is("F10")) happened += "F10 ";
  }
};

// Lines go in before the form is shown; the last one must close it.
class DriverBench : public testing::Test {
 protected:
  DriverBench() {
    session.Attach(desktop, desktop.GetHand());
    desktop.note = [this](Json event) { session.Note(std::move(event)); };
  }

  // The answers to the lines, the last one being the end. Index 0 is the answer before any line.
  std::vector<json> Play(const std::vector<std::string>& script) {
    std::string text;
    for (const std::string& line : script) text += line + "\n";
    answers.str("");
    lines.str(text);
    lines.clear();
    form.ShowModal();
    session.NoteEnd(0);
    std::vector<json> read;
    std::istringstream written(answers.str());
    for (std::string line; std::getline(written, line);) read.push_back(json::parse(line));
    return read;
  }
  // The answer to one line on the form.
  json Do(const std::string& line) {
    const std::vector<json> read = Play({line, kDone});
    return read.size() < 2 ? json::object() : read.at(read.size() - 2);
  }
  std::string Refused(const std::string& line) {
    const json answer = Do(line);
    return answer.value("error", "");
  }

  static constexpr const char* kDone = R"j({"do":"click","control":"cmdDone"})j";

  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  std::istringstream lines;
  std::ostringstream answers;
  Session session{lines, answers, clock};
  DriverDesktop desktop{session};
  BenchForm form{desktop};
};

}  // namespace lantos::ui
