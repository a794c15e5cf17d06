#include "ui/Shell.h"

#include <fstream>

#include "TestDesktop.h"
#include "frame/Installation.h"
#include "frame/ScratchDirectory.h"
#include "ui/Documents.h"

namespace lantos::ui {
namespace {

using test::ScratchDirectory;
using test::TestDesktop;
using Documents = std::vector<std::string>;

TEST(ShellOpen, EveryResultCodeHasItsMessage) {
  const std::pair<int, const char*> cases[] = {
      {0, "Memory Error"},
      {2, "File not found"},
      {3, "Path not found"},
      {5, "Access Denied"},
      {8, "Out of Memory"},
      {11, "Bad Executeable Format"},
      {26, "Sharing violation"},
      {27, "Association incomplete"},
      {28, "DEE time out"},
      {29, "DDE failed"},
      {30, "DDE Busy error"},
      {31, "No association for this file"},
      {1, "Unknown Error!, Please try again..."},
      {32, "Unknown Error!, Please try again..."},
      {-1, "Unknown Error!, Please try again..."},
  };
  for (const auto& [code, message] : cases) {
    TestDesktop desktop;
    desktop.documentResult = code;
    desktop.WillAnswer(Answer::Ok);
    ShellOpen(desktop, "/srv/shop/guide.pdf");
    ASSERT_EQ(desktop.boxes.size(), 1U);
    EXPECT_EQ(desktop.boxes[0].text, message) << code;
  }
}

TEST(ShellOpen, ThirtyThreeAndMoreIsSilent) {
  for (const int code : {33, 42}) {
    TestDesktop desktop;
    desktop.documentResult = code;
    ShellOpen(desktop, "/srv/shop/guide.pdf");
    EXPECT_TRUE(desktop.boxes.empty());
    EXPECT_EQ(desktop.documents, (Documents{"/srv/shop/guide.pdf"}));
  }
}

struct Guide {
  Guide() { files.SetDataDir(directory.DataDir()); }
  ScratchDirectory directory;
  StandingClock clock{LocalTime{}};
  FileIO files{clock};
  TestDesktop desktop;
};

TEST(HelpFile, LiesInTheDataDirectoryUnderItsNameInAnyCase) {
  Guide guide;
  guide.directory.Put("GUIDE ONE.PDF", "%PDF");
  ShowHelpFile(guide.desktop, guide.files, "", "Guide One.pdf");
  EXPECT_EQ(guide.desktop.documents, (Documents{(guide.directory / "GUIDE ONE.PDF").string()}));
}

TEST(HelpFile, MayLieElsewhereWithOrWithoutASlashAtTheEnd) {
  Guide guide;
  ShowHelpFile(guide.desktop, guide.files, "C:\\help", "guide.pdf");
  ShowHelpFile(guide.desktop, guide.files, "C:\\help\\", "guide.pdf");
  ShowHelpFile(guide.desktop, guide.files, "/srv/help/", "guide.pdf");
  EXPECT_EQ(guide.desktop.documents, (Documents{"C:\\help\\guide.pdf", "C:\\help\\guide.pdf", "/srv/help/guide.pdf"}));
}

TEST(HelpFile, ThatIsMissingIsNamedWithTheDirectoryAsItIsWritten) {
  Guide guide;
  guide.desktop.documentResult = 31;
  guide.desktop.WillAnswer(Answer::Ok);
  ShowHelpFile(guide.desktop, guide.files, "", "guide.pdf");
  ASSERT_EQ(guide.desktop.boxes.size(), 1U);
  EXPECT_EQ(guide.desktop.boxes[0].text, "Could not locate " + guide.directory.DataDir() + "guide.pdf");
  EXPECT_EQ(guide.desktop.boxes[0].title, "Missing help file");
}

TEST(HelpFile, ThatIsMissingInTheShopIsTheOneThatIsInstalled) {
  struct : TestDesktop {
    int OpenDocument(const std::string& path) override {
      documents.push_back(path);
      return LookAtDocument(path);
    }
  } desktop;
  Guide guide;
  const std::filesystem::path installed = InstalledFolder("guide") / "Installed for a test.pdf";
  std::filesystem::create_directories(installed.parent_path());
  std::ofstream(installed) << "%PDF-1.4";
  ShowHelpFile(desktop, guide.files, "", "Installed for a test.pdf");
  std::filesystem::remove(installed);
  ASSERT_EQ(desktop.documents.size(), 2U);
  EXPECT_EQ(desktop.documents[1], installed.string());
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST(HelpFile, ThatIsThereAndIsNotOpenedIsTold) {
  const std::pair<std::string, std::string> cases[] = {
      {"%PDF-1.4", " is there, but no program of this computer opens PDF documents, so it isn't opened."},
      {"#!/bin/sh", " is there, but it is no PDF document, so it isn't opened."},
      {"", " is there, but it is no PDF document, so it isn't opened."},
  };
  for (const auto& [content, cause] : cases) {
    Guide guide;
    guide.directory.Put("guide.pdf", content);
    guide.desktop.documentResult = kNoAssociation;
    guide.desktop.WillAnswer(Answer::Ok);
    ShowHelpFile(guide.desktop, guide.files, "", "guide.pdf");
    ASSERT_EQ(guide.desktop.boxes.size(), 1U);
    EXPECT_EQ(guide.desktop.boxes[0].text, guide.directory.DataDir() + "guide.pdf" + cause);
    EXPECT_EQ(guide.desktop.boxes[0].title, "Help file");
  }
}

TEST(HelpFile, ThirtyTwoCountsAsFound) {
  Guide guide;
  guide.desktop.documentResult = 32;
  ShowHelpFile(guide.desktop, guide.files, "", "guide.pdf");
  EXPECT_TRUE(guide.desktop.boxes.empty());
}

}  // namespace
}  // namespace lantos::ui
