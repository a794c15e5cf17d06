#include "start/InitGlobals.h"

#include <fmt/format.h>

#include "admin/TestShop.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "start/InstalledShop.h"
#include "start/frmSplash.h"

namespace lantos {
namespace {

using test::InstalledShop;
using ui::Answer;

struct Start : InstalledShop {
  Start() { environment.computerName = computer; }
  bool Run() { return InitGlobals(shop, database, inventoryList, journals); }
  std::vector<std::string> journals;
  void ExpectTooManyUsers() {
    desktop.WillAnswer(Answer::Ok);
    try {
      Run();
      ADD_FAILURE() << "a run without a name of its own";
    } catch (const test::ProcessEnded& end) {
      EXPECT_EQ(end.code, kStartFailed);
    }
    ASSERT_EQ(desktop.boxes.size(), 1U);
    EXPECT_EQ(desktop.boxes[0].text, "More than 1000 network users - can not continue!");
    EXPECT_EQ(desktop.boxes[0].title, "KorvelMain");
    EXPECT_EQ(desktop.boxes[0].icon, ui::Icon::Critical);
    EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::Ok);
  }
  void ExpectConversionError(const std::string& key) {
    try {
      Run();
      ADD_FAILURE() << key << " was taken";
    } catch (const std::invalid_argument& error) {
      EXPECT_NE(std::string(error.what()).find(key), std::string::npos) << error.what();
    }
  }

  Environment environment{clock, settings};
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
  EstimateDatabase database{environment, records};
  frmInvList inventoryList{shop};
};

TEST(InitGlobals, ShowsTheSplashBehindTheFirstLogLineAndBeforeTheSlowSteps) {
  Start start;
  start.data.Put("AU9290.$$$", "");
  start.desktop.onShown = [&](ui::Form& form) {
    EXPECT_EQ(form.Name(), "frmSplash");
    EXPECT_EQ(start.Log("LN930000.LOG"), "Korvel Appointment Scheduler Started.\n");
    EXPECT_EQ(start.records.system.SysRec.Get(sysrec::company_name), "Miller's Garage");
    EXPECT_EQ(start.environment.profileSection, "");
    EXPECT_TRUE(start.Has("AU9290.$$$"));
    EXPECT_FALSE(start.Has("AU9300.$$$"));
  };
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(start.desktop.events, (std::vector<std::string>{"shown frmSplash", "unloaded frmSplash"}));
}

TEST(InitGlobals, EndsWithTheSplashGoneWhenAStepFails) {
  Start start;
  start.data.Put("Lantos.mdb", "no database at all");
  EXPECT_THROW(start.Run(), std::exception);
  EXPECT_EQ(start.desktop.events, (std::vector<std::string>{"shown frmSplash", "unloaded frmSplash"}));
  EXPECT_FALSE(start.Has("AU9300.$$$")) << "the update file comes after the upgrade";
}

// A file that another copy has for itself makes the start take longer than anybody likes to wait for nothing.
struct SlowStart : Start {
  SlowStart() {
    data.Put("TQDEPART.DAT", "");
    held.emplace(data / "TQDEPART.DAT", Access::Read, Deny::All);
  }
  std::optional<SharedFile> held;
  std::vector<std::string> seen;
};

TEST(InitGlobals, ALongStartTellsWhatItIsAtAndHowFarItIs) {
  SlowStart start;
  const LocalTime begun = start.clock.Now();
  start.desktop.meanwhile = [&](ui::Form& form, ui::Button& stop) {
    const auto& splash = dynamic_cast<frmSplash&>(form);
    EXPECT_EQ(&stop, &splash.cmdStop);
    EXPECT_EQ(splash.Focus(), &stop);
    for (const ui::Control* shown :
         std::initializer_list<const ui::Control*>{&stop, &splash.lblWork, &splash.StartProgress}) {
      EXPECT_TRUE(shown->Visible());
    }
    if (start.seen.empty()) EXPECT_EQ(start.clock.Now().MillisecondsSince(begun), 1000);
    start.seen.push_back(splash.lblWork.Caption() + std::to_string(splash.StartProgress.Value()) + "/" +
                         std::to_string(splash.StartProgress.Maximum()));
    if (start.seen.size() == 5) start.held.reset();
  };
  EXPECT_TRUE(start.Run());
  start.seen.erase(std::unique(start.seen.begin(), start.seen.end()), start.seen.end());
  EXPECT_EQ(start.seen, (std::vector<std::string>{"Reading the departments...7/11", "Reading the manufacturers...8/11",
                                                  "Reading makes and models...9/11", "Reading the checklist...10/11"}));
}

TEST(InitGlobals, AStartThatNobodyWaitsForShowsNothingOfIt) {
  Start start;
  start.desktop.onShown = [&](ui::Form& form) {
    const auto& splash = dynamic_cast<frmSplash&>(form);
    EXPECT_FALSE(splash.cmdStop.Visible() || splash.lblWork.Visible() || splash.StartProgress.Visible());
  };
  start.desktop.meanwhile = [](ui::Form&, ui::Button&) { ADD_FAILURE() << "no time has passed"; };
  EXPECT_TRUE(start.Run());
}

TEST(InitGlobals, IsStoppedByTheButtonByEscAndByTheCloseBox) {
  const std::vector<std::function<void(ui::Form&, ui::Button&)>> ways = {
      [](ui::Form&, ui::Button& stop) { stop.DoClick(); },
      [](ui::Form& form, ui::Button&) { test::Press(form, "Esc"); },
      [](ui::Form& form, ui::Button&) { form.DoClose(); },
  };
  for (const auto& way : ways) {
    SlowStart start;
    start.desktop.meanwhile = way;
    EXPECT_FALSE(start.Run());
    EXPECT_EQ(start.desktop.events, (std::vector<std::string>{"shown frmSplash", "unloaded frmSplash"}));
    EXPECT_TRUE(start.Log("LN930000.LOG").ends_with("\nStopped before it was up.\n"));
    EXPECT_TRUE(start.desktop.boxes.empty());
  }
}

TEST(InitGlobals, StopsSilentlyWithoutADataDirectoryAndWithoutALog) {
  Start start;
  std::filesystem::remove(start.data / "Lantos.mdb");
  start.desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(start.Run());
  EXPECT_TRUE(start.desktop.events.empty());
  EXPECT_EQ(start.data.Count(), 1U) << "the system record alone";
}

TEST(InitGlobals, MakesAnEmptyUpdateFileAndRemovesThoseOfOtherDays) {
  Start start;
  for (const char* name : {"AU9299.$$$", "AUc310.$$$", "AU9300.$$$", "AU9302.$$$"}) start.data.Put(name, "x");
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(start.environment.updateFileName, "AU9301.$$$");
  EXPECT_EQ(start.data.Content("AU9301.$$$"), "");
  EXPECT_EQ(start.environment.files.List("AU*"), (std::vector<std::string>{"AU9300.$$$", "AU9301.$$$", "AU9302.$$$"}));
  EXPECT_EQ(start.data.Content("AU9300.$$$"), "x") << "another copy's, of today";
}

TEST(InitGlobals, AnUpdateFileOfAnotherDayThatIsHeldOpenStays) {
  Start start;
  const SharedFile held(start.data / "AU9290.$$$", Access::ReadWrite, Deny::None);
  EXPECT_TRUE(start.Run());
  EXPECT_TRUE(start.Has("AU9290.$$$"));
}

TEST(InitGlobals, TheThousandthLogOfADayStopsTheStartBeforeTheSplash) {
  Start start;
  for (int n = 0; n < 1000; ++n) start.data.Put(fmt::format("LN930{:03}.LOG", n), "");
  start.ExpectTooManyUsers();
  EXPECT_TRUE(start.desktop.events.empty());
}

TEST(InitGlobals, TheThousandthUpdateFileOfADayStopsTheStartWithTheSameMessage) {
  Start start;
  for (int n = 0; n < 1000; ++n) start.data.Put(fmt::format("AU930{}.$$$", n), "");
  start.data.Put("AU9290.$$$", "");
  start.ExpectTooManyUsers();
  EXPECT_TRUE(start.Has("AU9290.$$$")) << "those of other days are removed after the name is found";
}

TEST(InitGlobals, TheProfileSectionIsTheComputersNameInTwentyCharacters) {
  const std::pair<std::string, std::string> cases[] = {
      {"BENCH1", "BENCH1"},
      {"A-COMPUTER-WITH-A-VERY-LONG-NAME", "A-COMPUTER-WITH-A-VE"},
      {std::string("BENCH\0rest", 10), "BENCH"},
      {"  BENCH 1  ", "BENCH 1"},
      {"", "Lantos Defaults"},
      {"                    BEYOND", "Lantos Defaults"},
  };
  for (const auto& [name, section] : cases) {
    Start start;
    start.environment.computerName = name;
    EXPECT_TRUE(start.Run());
    EXPECT_EQ(start.environment.profileSection, section);
  }
}

TEST(InitGlobals, TellsWhetherTheSecondDatabaseIsThere) {
  Start without;
  EXPECT_TRUE(without.Run());
  EXPECT_FALSE(without.environment.hasKorvelDatabase);
  Start with;
  CreateKorvelDatabase(with.data / "Korvel.mdb", with.clock);
  EXPECT_TRUE(with.Run());
  EXPECT_TRUE(with.environment.hasKorvelDatabase);
}

TEST(InitGlobals, TheFleetFlagIsABooleanThatIsFalseWhereItIsMissing) {
  const std::pair<const char*, bool> cases[] = {{"", false},  {"True", true}, {"false", false},
                                                {"0", false}, {"-1", true},   {" TRUE ", true}};
  for (const auto& [text, value] : cases) {
    Start start;
    if (*text != '\0') start.settings.Save("Korvel", "Settings", "FleetVersion", text);
    EXPECT_TRUE(start.Run());
    EXPECT_EQ(start.environment.fleetVersion, value) << text;
  }
}

TEST(InitGlobals, ASettingOfTheWrongKindRaisesTheConversionErrorWithItsName) {
  Start fleet;
  fleet.settings.Save("Korvel", "Settings", "FleetVersion", "maybe");
  fleet.ExpectConversionError("FleetVersion");
  Start font;
  font.data.Put("Lantos.ini", "[BENCH1]\r\nFontFactor=x\r\n");
  font.ExpectConversionError("FontFactor");
  Start option;
  option.data.Put("Lantos.ini", "[Options]\r\nLaborDateOption=maybe\r\n");
  option.ExpectConversionError("LaborDateOption");
}

TEST(InitGlobals, ReadsFontFactorAndStatusOptions) {
  Start start;
  start.data.Put("Lantos.ini", "[bench1]\r\nFontFactor=4\r\n[Status Options]\r\nRescheduledAllow=N\r\n");
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(start.environment.fontFactor, 4);
  EXPECT_EQ(start.environment.statusOptions[StatusOption::RescheduledAllow], 'N');
  EXPECT_EQ(start.environment.statusOptions[StatusOption::ScheduledToArrived], 'A');
}

TEST(InitGlobals, AProfileThatCannotBeReadOrWrittenIsNoHindrance) {
  Start start;
  std::filesystem::create_directory(start.data / "Lantos.ini");
  EXPECT_TRUE(start.Run());
  EXPECT_EQ(start.environment.fontFactor, 1);
}

TEST(InitGlobals, LoadsEmployeesThenPasswordsThenMakes) {
  Start start;
  start.data.Put("TQEMPLOY.DAT", std::string(199, '\0'));
  EXPECT_TRUE(start.Run());
  EXPECT_TRUE(start.records.employees.Loaded());
  EXPECT_EQ(start.Log("LN930000.LOG"),
            "Korvel Appointment Scheduler Started.\n"
            "CloseFile: Closed file with pointer = 2\n"
            "CloseFile: Closed file with pointer = 2\n"
            "CloseFile: Closed file with pointer = 2\n");
  Start held;
  const SharedFile busy(held.data / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
  EXPECT_THROW(held.Run(), FileError);
  EXPECT_FALSE(held.Has("TQPASSWD.DAT")) << "an open would have made it";
  EXPECT_FALSE(held.Has("TQMAKMOD.DAT"));
}

// Something happens each time that the program lets time pass.
struct EventfulClock : StandingClock {
  using StandingClock::StandingClock;
  void Wait(std::int64_t milliseconds) override {
    onWait();
    StandingClock::Wait(milliseconds);
  }
  std::function<void()> onWait;
};

TEST(InitGlobals, WaitsAMomentForFilesThatAnotherCopyIsLoading) {
  for (const char* file : {"TQEMPLOY.DAT", "TQDEPART.DAT", "TQMANUFA.DAT", "TQMAKMOD.DAT", "CHECKLST.TXT"}) {
    InstalledShop shop;
    EventfulClock clock(shop.clock.Now());
    std::optional<SharedFile> held(std::in_place, shop.data / file, Access::ReadWrite, Deny::All);
    int waits = 0;
    clock.onWait = [&] {
      if (++waits == 3) held.reset();
    };
    shop.desktop.WillUse([](ui::Form& form) { form.DoClose(); });
    EXPECT_EQ(Program(shop.desktop, clock, shop.settings, Invocation{"", shop.computer}).Run(), kEndedInOrder) << file;
    EXPECT_TRUE(shop.desktop.boxes.empty()) << file;
    EXPECT_EQ(waits, 3) << file;
  }
}

}  // namespace
}  // namespace lantos
