#include "start/CommandLine.h"

#include "start/InstalledShop.h"

namespace lantos {
namespace {

using test::InstalledShop;
using ui::Answer;

struct Running : InstalledShop {
  void WillClose() {
    desktop.WillUse([](ui::Form& form) { form.DoClose(); });
  }
};

TEST(StrangeCommandLine, NamesADirectoryWithoutTheSwitchAndGoesOn) {
  for (const std::string line : {"/srv/shop", " ./shop ", "shop", "x /D=/srv/shop", "D=/srv/shop", "-D=/srv/shop"}) {
    Running run;
    run.desktop.WillAnswer([&](const ui::Box& box) {
      EXPECT_NE(box.text.find("\"" + Trim(line) + "\" on the command line"), std::string::npos) << box.text;
      EXPECT_NE(box.text.find("/D="), std::string::npos);
      EXPECT_EQ(box.icon, ui::Icon::Exclamation);
      return Answer::Ok;
    });
    run.WillClose();
    EXPECT_EQ(run.Run(line), kEndedInOrder);
    EXPECT_EQ(run.StoredDataDir(), run.data.DataDir());
  }
}

TEST(StrangeCommandLine, NamesASwitchOfAnotherLetterInTheLogAndOnTheStatusLine) {
  Running run;
  run.WillClose();
  EXPECT_EQ(run.Run("/X=/srv/shop"), kEndedInOrder);
  EXPECT_TRUE(run.desktop.boxes.empty());
  EXPECT_NE(run.Log("LN930000.LOG").find("\"/X=/srv/shop\" on the command line is not understood."), std::string::npos);
}

}  // namespace
}  // namespace lantos
