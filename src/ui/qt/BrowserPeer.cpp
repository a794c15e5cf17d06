#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include "ui/Browser.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

namespace {

// The links of a document in their order, marked from end to end. One that changes its look on the way is still one.
std::vector<QTextCursor> LinksOf(QTextDocument& document) {
  std::vector<QTextCursor> links;
  QString target;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    target.clear();
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextFragment fragment = part.fragment();
      const QString leadsTo = fragment.charFormat().anchorHref();
      if (!leadsTo.isEmpty() && leadsTo != target) {
        links.emplace_back(&document);
        links.back().setPosition(fragment.position());
      }
      target = leadsTo;
      if (!leadsTo.isEmpty()) {
        links.back().setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
      }
    }
  }
  return links;
}

class BrowserPeer : public WidgetPeer {
 public:
  BrowserPeer(FormWindow& window, Browser& control, QTextBrowser& page)
      : WidgetPeer(window, control, page), browser_(control), page_(page) {
    page_.setOpenLinks(false);
    QObject::connect(&page_, &QTextBrowser::anchorClicked, &page_, [this](const QUrl& link) {
      if (IsPersonsDoing()) browser_.DoFollow(FromQt(link.toString()));
    });
  }

  // What a page shows can't be turned back into what it was made of.
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    if (page_.document()->isEmpty()) state.text = "";
  }

 private:
  void Apply(unsigned aspects) override {
    const bool isNew = Has(aspects, Aspect::Text);
    if (isNew) page_.setMarkdown(ToQt(browser_.Text()));
    if (isNew || Has(aspects, Aspect::Value)) ShowSought();
    if (isNew || Has(aspects, Aspect::Selection)) ShowMarkedLink();
  }

  void ShowMarkedLink() {
    const std::vector<QTextCursor> links = LinksOf(*page_.document());
    const auto marked = static_cast<std::size_t>(browser_.MarkedLink());
    if (browser_.MarkedLink() >= 0 && marked < links.size()) {
      page_.setTextCursor(links[marked]);
      page_.ensureCursorVisible();
    } else if (!page_.textCursor().selectedText().isEmpty()) {
      QTextCursor cursor = page_.textCursor();
      cursor.clearSelection();
      page_.setTextCursor(cursor);
    }
  }

  // All of it in colour, and the first in sight.
  void ShowSought() {
    QList<QTextEdit::ExtraSelection> found;
    const QString sought = ToQt(browser_.Sought());
    QTextCursor at(page_.document());
    while (!sought.isEmpty()) {
      at = page_.document()->find(sought, at);
      if (at.isNull()) break;
      QTextEdit::ExtraSelection each;
      each.cursor = at;
      each.format.setBackground(Qt::yellow);
      each.format.setForeground(Qt::black);
      found.push_back(each);
    }
    page_.setExtraSelections(found);
    if (found.isEmpty()) return;
    QTextCursor first = found.front().cursor;
    first.clearSelection();
    page_.setTextCursor(first);
    page_.ensureCursorVisible();
  }

  Browser& browser_;
  QTextBrowser& page_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeBrowserPeer(FormWindow& window, Browser& control, QWidget& widget) {
  return std::make_unique<BrowserPeer>(window, control, dynamic_cast<QTextBrowser&>(widget));
}

}  // namespace lantos::ui
