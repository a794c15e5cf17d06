#include <gtest/gtest.h>

#include <QApplication>
#include <QTextBrowser>
#include <set>

#include "help/Guide.h"
#include "qt/EveryForm.h"
#include "ui/Browser.h"
#include "ui/qt/Appearance.h"

namespace lantos {
namespace {

TEST(Guide, HasAPageForEveryForm) {
  const Guide guide(GuideText());
  const test::PaperShop every;
  ASSERT_GT(every.forms.size(), 50U);
  for (const auto& form : every.forms) EXPECT_TRUE(guide.PageOf(form->Name())) << form->Name() << " has no page";
  EXPECT_FALSE(guide.PageOf("frmNowhere"));
}

TEST(Guide, EveryLinkLeadsToAPageAndEveryPageIsLinkedFromTheContents) {
  const Guide guide(GuideText());
  for (const GuidePage& page : guide.Pages()) {
    for (const ui::Browser::Link& link : ui::LinksIn(page.text)) {
      ASSERT_TRUE(link.target.starts_with('#')) << page.title << ": " << link.target;
      EXPECT_TRUE(guide.PageAt(link.target.substr(1))) << page.title << ": " << link.target;
    }
  }
  EXPECT_EQ(ui::LinksIn(guide.Pages().front().text).size(), guide.Pages().size() - 1);
}

TEST(Guide, NoTwoPagesHaveOneAnchor) {
  const Guide guide(GuideText());
  std::set<std::string> anchors;
  for (const GuidePage& page : guide.Pages()) EXPECT_TRUE(anchors.insert(page.anchor).second) << page.anchor;
}

TEST(Guide, LeavesPicturesAndTheirParagraphsOut) {
  const Guide guide(
      "# One\n\nfirst\n\n![a](a.png)\nunder it\n\nlast\n\n<!-- frmA frmB -->\n## Two, \"2\"\n\ntext\n### Three\n");
  ASSERT_EQ(guide.Pages().size(), 3U);
  EXPECT_EQ(guide.Pages()[0].text, "# One\n\nfirst\n\nlast\n\n- [Two, \"2\"](#two-2)\n  - [Three](#three)\n");
  EXPECT_EQ(guide.Pages()[1].text, "# Two, \"2\"\n\ntext\n\n- [Three](#three)\n");
  EXPECT_EQ(guide.PageOf("frmB"), 1U);
  EXPECT_EQ(guide.Find("TEXT", 1), 1U);
  EXPECT_FALSE(guide.Find("nowhere", 0));
}

// The page on the screen has as many links as the control that marks them counts.
TEST(Guide, TheWindowShowsTheSameLinks) {
  const Guide guide(GuideText());
  QTextBrowser browser;
  for (const GuidePage& page : guide.Pages()) {
    browser.setMarkdown(QString::fromLatin1(page.text));
    const std::vector<ui::Browser::Link> links = ui::LinksIn(page.text);
    qsizetype at = 0;
    for (const ui::Browser::Link& link : links) {
      at = browser.toHtml().indexOf(QStringLiteral("href=\"%1\"").arg(QString::fromStdString(link.target)), at);
      ASSERT_GE(at, 0) << page.title << ": " << link.target;
    }
    EXPECT_EQ(browser.toHtml().count(QStringLiteral("href=")), static_cast<qsizetype>(links.size())) << page.title;
    EXPECT_FALSE(browser.toPlainText().contains(QStringLiteral("**"))) << page.title;
  }
}

TEST(ProgramIcon, HasTheSizesOfTitleBarsAndListsOfWindows) {
  const QIcon icon = ui::ProgramIcon();
  EXPECT_EQ(icon.availableSizes(), QList<QSize>({{16, 16}, {32, 32}, {48, 48}}));
}

}  // namespace
}  // namespace lantos
