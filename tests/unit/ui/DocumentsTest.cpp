#include "ui/Documents.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "frame/ScratchDirectory.h"

namespace lantos::ui {
namespace {

using test::AsOrdinaryUser;
using test::ScratchDirectory;

TEST(Addresses, AreOfWebAndMailAlone) {
  for (const char* address : {"http://example.test", "https://example.test/a?b=c&d", "HTTPS://EXAMPLE.TEST/",
                              "mailto:someone@example.test"}) {
    EXPECT_TRUE(IsAddress(address)) << address;
    EXPECT_EQ(LookAtDocument(address), kOpened) << address;
  }
  for (const char* other :
       {"file:///etc/passwd", "file://shop/x.desktop", "smb://server/run.exe", "ftp://example.test",
        "javascript:alert(1)", "vbscript:x", "data:text/html,x", "www.example.test", "http://", "mailto:", "http://a b",
        "http://a\"b", "http://a\nb", "http:\\\\example.test", "", "http"}) {
    EXPECT_FALSE(IsAddress(other)) << other;
    EXPECT_LT(LookAtDocument(other), kOpened) << other;
  }
}

struct Look {
  ScratchDirectory directory;
  int At(const std::string& name) const { return LookAtDocument((directory / name).string()); }
  std::string Why(const std::string& name) const { return WhyNotOpened((directory / name).string()); }
};

TEST(Documents, ArePdfByNameAndFirstBytes) {
  Look look;
  look.directory.Put("guide.pdf", "%PDF-1.4\n");
  look.directory.Put("GUIDE.PDF", "%PDF-1.7\n");
  look.directory.Put("two \"words\" & 'more' $(x).pdf", "%PDF-1.4\n");
  EXPECT_EQ(look.At("guide.pdf"), kOpened);
  EXPECT_EQ(look.At("GUIDE.PDF"), kOpened);
  EXPECT_EQ(look.At("two \"words\" & 'more' $(x).pdf"), kOpened);
  look.directory.Put("guide.txt", "%PDF-1.4\n");
  look.directory.Put("guide.pdf.desktop", "%PDF-1.4\n");
  look.directory.Put("guide", "%PDF-1.4\n");
  look.directory.Put("script.pdf", "#!/bin/sh\n%PDF-1.4\n");
  look.directory.Put("program.pdf", "\177ELF");
  look.directory.Put("empty.pdf", "");
  for (const char* other : {"guide.txt", "guide.pdf.desktop", "guide", "script.pdf", "program.pdf", "empty.pdf"}) {
    EXPECT_EQ(look.At(other), kNoAssociation) << other;
    EXPECT_EQ(look.Why(other), " is there, but it is no PDF document") << other;
  }
}

TEST(Documents, AreNotProgramsWhoeverMayRunThem) {
  Look look;
  look.directory.Put("guide.pdf", "#!/bin/sh\n");
  look.directory.Put("run", "#!/bin/sh\n");
  look.directory.Put("real.pdf", "%PDF-1.4\n");
  for (const char* each : {"guide.pdf", "run", "real.pdf"})
    ASSERT_EQ(::chmod((look.directory / each).c_str(), 0777), 0);
  EXPECT_EQ(look.At("guide.pdf"), kNoAssociation);
  EXPECT_EQ(look.At("run"), kNoAssociation);
  EXPECT_EQ(look.At("real.pdf"), kOpened) << "its mode makes it no program";
}

TEST(Documents, AreFilesOfTheirOwnDirectory) {
  Look look;
  const ScratchDirectory elsewhere;
  elsewhere.Put("real.pdf", "%PDF-1.4\n");
  look.directory.Put("here.pdf", "%PDF-1.4\n");
  std::filesystem::create_symlink(elsewhere / "real.pdf", look.directory / "away.pdf");
  std::filesystem::create_symlink(look.directory / "nothing.pdf", look.directory / "dangling.pdf");
  std::filesystem::create_symlink("here.pdf", look.directory / "beside.pdf");
  std::filesystem::create_directory(look.directory / "folder.pdf");
  ASSERT_EQ(::mkfifo((look.directory / "pipe.pdf").c_str(), 0600), 0);
  EXPECT_EQ(look.At("beside.pdf"), kOpened);
  EXPECT_EQ(look.At("away.pdf"), kNoAssociation);
  EXPECT_EQ(look.At("dangling.pdf"), kNoAssociation);
  EXPECT_EQ(look.At("folder.pdf"), kNoAssociation);
  EXPECT_EQ(look.At("pipe.pdf"), kNoAssociation) << "and it isn't waited for";
  EXPECT_EQ(look.Why("away.pdf"), " is a link that leads out of its directory or nowhere");
  EXPECT_EQ(look.Why("pipe.pdf"), " is there, but it is no file");
}

TEST(Documents, ThatAreMissingOrUnreadableAreToldApart) {
  Look look;
  look.directory.Put("secret.pdf", "%PDF-1.4\n");
  ASSERT_EQ(::chmod((look.directory / "secret.pdf").c_str(), 0), 0);
  ASSERT_EQ(::chmod(look.directory.Path().c_str(), 0755), 0);
  EXPECT_EQ(AsOrdinaryUser([&] { return look.At("secret.pdf"); }), kAccessDenied);
  EXPECT_EQ(look.At("none.pdf"), kFileNotFound);
  EXPECT_EQ(look.At("none/none.pdf"), kPathNotFound);
  EXPECT_EQ(look.Why("none.pdf"), "");
}

}  // namespace
}  // namespace lantos::ui
