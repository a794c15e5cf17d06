// What the person has said already while a form is at work.
#include "ui/DriverBench.h"

namespace lantos::ui {
namespace {

constexpr const char* kWork = R"j({"do":"click","control":"cmdOther"})j";

// The other button sets the form to work, of ten steps, and ends it too.
class AtWork : public DriverBench {
 protected:
  AtWork() {
    form.other.OnClick = [this] {
      if (working) {
        stopped = true;
        return;
      }
      working = true;
      for (stopped = false; steps < 10 && !stopped && form.Visible(); ++steps) desktop.ServeMeanwhile(form, form.other);
      working = false;
    };
    form.other.OnKeyDown = [this](KeyPress& key) { stopped = stopped || key.Is("Esc"); };
  }

  // Each line has its answer.
  void ExpectEndedBy(const char* line) {
    const auto read = Play({kWork, line, kDone});
    ASSERT_EQ(read.size(), 4U);
    EXPECT_EQ(steps, 1);
    for (const std::size_t i : {1U, 2U}) {
      EXPECT_EQ(read[i]["form"], "frmBench");
      EXPECT_FALSE(read[i].contains("error"));
    }
  }

  bool working = false;
  bool stopped = false;
  int steps = 0;
};

TEST_F(AtWork, ItsButtonEndsIt) { ExpectEndedBy(kWork); }

TEST_F(AtWork, EscEndsIt) { ExpectEndedBy(R"j({"do":"key","key":"Esc"})j"); }

TEST_F(AtWork, TheCloseBoxEndsItToo) {
  const auto read = Play({kWork, R"j({"do":"close"})j"});
  EXPECT_EQ(steps, 1);
  EXPECT_EQ(form.happened, "close ");
  EXPECT_EQ(read.size(), 3U);
}

TEST_F(AtWork, EverythingElseWaitsForItsEnd) {
  const auto read = Play({kWork, R"j({"do":"type","control":"txtName","text":"typed"})j", "no line at all",
                          R"j({"get":"frmBench.txtName"})j", kDone});
  ASSERT_EQ(read.size(), 6U);
  EXPECT_EQ(steps, 10);
  EXPECT_FALSE(read[2].contains("error"));
  EXPECT_TRUE(read[3].contains("error"));
  EXPECT_EQ(read[4]["result"]["text"], "typed");
}

TEST_F(AtWork, NobodyWhoHasSaidNothingIsWaitedFor) {
  form.done.OnClick = [this] {
    form.other.OnClick();
    form.Hide();
  };
  Play({kDone});
  EXPECT_EQ(steps, 10);
}

// A form that is at work before anything was answered, as the one that shows a start.
class Unknown : public AtWork {
 protected:
  int StepsWith(const std::string& line) {
    lines.str(line + "\n");
    form.Show();
    form.other.OnClick();
    return steps;
  }
};

TEST_F(Unknown, WorkIsNotEndedByTheCloseBox) { EXPECT_EQ(StepsWith(R"j({"do":"close"})j"), 10); }

TEST_F(Unknown, WorkIsNotEndedByEsc) { EXPECT_EQ(StepsWith(R"j({"do":"key","key":"Esc"})j"), 10); }

TEST_F(Unknown, WorkIsEndedByItsButton) {
  EXPECT_EQ(StepsWith(kWork), 1);
  EXPECT_EQ(json::parse(answers.str())["form"], "frmBench");
}

}  // namespace
}  // namespace lantos::ui
