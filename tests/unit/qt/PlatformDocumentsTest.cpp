#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>

#include "support/ScratchDirectory.h"
#include "ui/Documents.h"
#include "ui/qt/Documents.h"

namespace lantos {
namespace {

// Takes what is handed to the platform, in its place: by the signal of a widget that has one for addresses.
struct Platform {
  Platform() {
    QObject::connect(&listener, &QTextBrowser::anchorClicked, [this](const QUrl& url) { taken.append(url); });
    for (const char* kind : kKinds)
      QDesktopServices::setUrlHandler(QString::fromLatin1(kind), &listener, "anchorClicked");
  }
  ~Platform() {
    for (const char* kind : kKinds) QDesktopServices::unsetUrlHandler(QString::fromLatin1(kind));
  }

  static constexpr const char* kKinds[] = {"file", "http", "https", "mailto"};
  QTextBrowser listener;
  QList<QUrl> taken;
};

TEST(PlatformDocuments, AProgramIsNotRunWhateverItIsCalled) {
  const test::ScratchDirectory directory;
  const std::string mark = (directory / "ran").string();
  for (const char* name : {"guide.pdf", "guide", "guide.sh", "guide.desktop"}) {
    directory.Put(name, "#!/bin/sh\ntouch " + mark + "\n");
    ASSERT_EQ(::chmod((directory / name).c_str(), 0755), 0);
    Platform platform;
    EXPECT_EQ(ui::OpenInPlatform((directory / name).string()), ui::kNoAssociation) << name;
    EXPECT_TRUE(platform.taken.isEmpty()) << name;
  }
  EXPECT_FALSE(std::filesystem::exists(mark));
}

TEST(PlatformDocuments, ADocumentIsHandedOnByItsNameWhateverThatHas) {
  const test::ScratchDirectory directory;
  for (const char* name : {"guide.pdf", "two \"words\".pdf", "it's.pdf", "$(touch ran).pdf", "50% #1?.pdf", "-x.pdf"}) {
    directory.Put(name, "%PDF-1.4");
    Platform platform;
    EXPECT_EQ(ui::OpenInPlatform((directory / name).string()), ui::kOpened) << name;
    ASSERT_EQ(platform.taken.size(), 1) << name;
    EXPECT_EQ(platform.taken[0].toLocalFile().toStdString(), (directory / name).string());
  }
}

TEST(PlatformDocuments, AddressesOfWebAndMailAreHandedOn) {
  Platform platform;
  EXPECT_EQ(ui::OpenInPlatform("https://example.test/a"), ui::kOpened);
  EXPECT_EQ(ui::OpenInPlatform("mailto:a@example.test"), ui::kOpened);
  EXPECT_LT(ui::OpenInPlatform("file:///etc/passwd"), ui::kOpened);
  EXPECT_EQ(platform.taken.size(), 2);
}

}  // namespace
}  // namespace lantos
