#include "ui/WindowRegistry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

namespace lantos::ui {
namespace {

namespace fs = std::filesystem;

class Windows : public testing::Test {
 protected:
  Windows() {
    std::string pattern = (fs::temp_directory_path() / "windows-XXXXXX").string();
    root = mkdtemp(pattern.data());
    directory = root / "lantos";
  }
  ~Windows() override { fs::remove_all(root); }

  std::size_t Entries() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
  }

  fs::path root;
  fs::path directory;
};

TEST_F(Windows, OfAnotherCopyAreFoundByAnyPartOfTheCaptionInAnyCase) {
  WindowRegistry first(directory, "BENCH1");
  WindowRegistry second(directory, "BENCH1");
  first.SetCaptions({"splash", "Lantos: Miller's Garage (/srv/shop/\\)"});
  EXPECT_TRUE(second.Find("Lantos: "));
  EXPECT_TRUE(second.Find("LANTOS: m"));
  EXPECT_TRUE(second.Find("GARAGE"));
  EXPECT_FALSE(second.Find("Korvel: "));
}

TEST_F(Windows, AStartingCopyIsNotFoundUnderTheFullCaption) {
  WindowRegistry first(directory, "BENCH1");
  WindowRegistry second(directory, "BENCH1");
  first.SetCaptions({"Lantos Starting..."});
  EXPECT_FALSE(second.Find("Lantos: "));
  first.SetCaptions({"Lantos: Shop"});
  EXPECT_TRUE(second.Find("Lantos: "));
}

TEST_F(Windows, OfTheSameCopyCountAsWell) {
  WindowRegistry only(directory, "BENCH1");
  only.SetCaptions({"Lantos Starting..."});
  EXPECT_TRUE(only.Find("starting"));
  EXPECT_FALSE(only.Find("Lantos: "));
}

TEST_F(Windows, AnEmptyPatternFindsNothing) {
  WindowRegistry only(directory, "BENCH1");
  only.SetCaptions({"Lantos: Shop", ""});
  EXPECT_FALSE(only.Find(""));
  EXPECT_FALSE(only.Activate(""));
}

TEST_F(Windows, OfAnotherWorkstationAreNotSeen) {
  WindowRegistry here(directory, "BENCH1");
  WindowRegistry there(directory, "BENCH2");
  there.SetCaptions({"Lantos: Shop"});
  EXPECT_FALSE(here.Find("Lantos: "));
}

TEST_F(Windows, ANamelessWorkstationSeesItsOwnOnly) {
  WindowRegistry here(directory, "");
  WindowRegistry there(directory, "BENCH2");
  WindowRegistry alsoHere(directory, "");
  there.SetCaptions({"Lantos: There"});
  alsoHere.SetCaptions({"Lantos: Here"});
  EXPECT_TRUE(here.Find("Here"));
  EXPECT_FALSE(here.Find("There"));
}

TEST_F(Windows, OnlyTheFirst255CharactersOfACaptionCount) {
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({std::string(250, 'x') + "12345" + "6"});
  EXPECT_TRUE(second.Find("x12345"));
  EXPECT_FALSE(second.Find("123456"));
}

TEST_F(Windows, ACaptionEndsAtItsFirstNul) {
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({std::string("Lantos\0: Shop", 13)});
  EXPECT_TRUE(second.Find("lantos"));
  EXPECT_FALSE(second.Find("shop"));
}

TEST_F(Windows, ALineEndInACaptionMakesNoSecondWindow) {
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({"one\ntwo"});
  EXPECT_TRUE(second.Find("one two"));
}

TEST_F(Windows, OfAClosedCopyAreGone) {
  WindowRegistry first(directory, "");
  {
    WindowRegistry second(directory, "");
    second.SetCaptions({"Lantos: Shop"});
    EXPECT_TRUE(first.Find("Lantos: "));
  }
  EXPECT_FALSE(first.Find("Lantos: "));
  EXPECT_EQ(Entries(), 1U);
}

TEST_F(Windows, OfADeadProcessDoNotCountAndAreRemoved) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    WindowRegistry dying(directory, "");
    dying.SetCaptions({"Lantos: Shop"});
    dying.Activate("Lantos: ");
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(Entries(), 1U);
  WindowRegistry living(directory, "");
  EXPECT_FALSE(living.Find("Lantos: "));
  EXPECT_EQ(Entries(), 1U) << "the living one's entry alone";
}

TEST_F(Windows, OfALivingProcessAreFoundUntilItIsKilled) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    WindowRegistry other(directory, "");
    other.SetCaptions({"Lantos: Shop"});
    if (write(ready[1], "x", 1) != 1) _exit(1);
    for (;;) pause();
  }
  char mark = 0;
  ASSERT_EQ(read(ready[0], &mark, 1), 1);
  WindowRegistry here(directory, "");
  EXPECT_TRUE(here.Find("Lantos: "));
  kill(child, SIGKILL);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_FALSE(here.Find("Lantos: "));
  close(ready[0]);
  close(ready[1]);
}

TEST_F(Windows, AreAskedToComeUpOnce) {
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({"frmSplash", "Lantos: Shop"});
  EXPECT_TRUE(second.Activate("lantos: "));
  EXPECT_EQ(first.TakeRaiseRequests(), std::vector<std::string>{"Lantos: Shop"});
  EXPECT_TRUE(first.TakeRaiseRequests().empty());
  EXPECT_TRUE(second.TakeRaiseRequests().empty());
}

TEST_F(Windows, OfTheSameCopyAreAskedToComeUpToo) {
  WindowRegistry only(directory, "");
  only.SetCaptions({"Lantos: Shop"});
  EXPECT_TRUE(only.Activate("Lantos: "));
  EXPECT_EQ(only.TakeRaiseRequests(), std::vector<std::string>{"Lantos: Shop"});
}

TEST_F(Windows, NothingComesUpWhenNothingIsFound) {
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({"Lantos: Shop"});
  EXPECT_FALSE(second.Activate("Korvel: "));
  EXPECT_TRUE(first.TakeRaiseRequests().empty());
}

TEST_F(Windows, LieInADirectoryThatOnlyTheUserCanEnter) {
  WindowRegistry only(directory, "");
  struct stat found {};
  ASSERT_EQ(stat(directory.c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0700U);
}

TEST_F(Windows, ADirectoryThatOthersCanEnterIsNotUsed) {
  fs::create_directory(directory);
  fs::permissions(directory, fs::perms::all);
  WindowRegistry first(directory, "");
  WindowRegistry second(directory, "");
  first.SetCaptions({"Lantos: Shop"});
  EXPECT_FALSE(second.Find("Lantos: "));
  EXPECT_TRUE(first.Find("Lantos: ")) << "the own windows are still known";
  EXPECT_EQ(Entries(), 0U);
}

TEST_F(Windows, AnEntryOfRubbishIsNoWindow) {
  WindowRegistry first(directory, "");
  std::ofstream(directory / "1-0.windows") << std::string(5000, '\xff');
  EXPECT_FALSE(first.Find("\xff"));
}

TEST(RuntimeDirectory, IsThePlatformsElseATemporaryOneOfTheUser) {
  const char* before = std::getenv("XDG_RUNTIME_DIR");
  const std::string kept = before == nullptr ? "" : before;
  setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
  EXPECT_EQ(WindowRegistry::RuntimeDirectory(), "/run/user/7/lantos");
  unsetenv("XDG_RUNTIME_DIR");
  EXPECT_EQ(WindowRegistry::RuntimeDirectory(), "/tmp/lantos-" + std::to_string(geteuid()));
  if (before != nullptr) setenv("XDG_RUNTIME_DIR", kept.c_str(), 1);
}

}  // namespace
}  // namespace lantos::ui
