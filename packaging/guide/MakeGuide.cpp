// Makes the PDF of the guide: a page of Markdown and a file to be written.
#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int kDotsAnInch = 96;  // in which the text is laid out
constexpr qreal kMargin = 56;    // of those
constexpr qreal kLine = 20;
constexpr qreal kWidestInTable = 280;  // of a picture beside another
constexpr QSizeF kLetter(816, 1056);

void BeginPageAt(const QTextBlock& block) {
  QTextBlockFormat format = block.blockFormat();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).setBlockFormat(format);
}

// A picture fills the line at most, and a heading of the second kind begins a page.
void SetPictures(QTextDocument& guide, qreal width) {
  for (QTextBlock block = guide.begin(); block != guide.end(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (!part.fragment().charFormat().isImageFormat()) continue;
      QTextImageFormat format = part.fragment().charFormat().toImageFormat();
      const QImage picture(format.name());
      const QTextCursor place(block);
      const qreal most = place.currentTable() != nullptr ? kWidestInTable : width;
      format.setWidth(std::min<qreal>(most, picture.width()));
      QTextCursor cursor(&guide);
      cursor.setPosition(part.fragment().position());
      cursor.setPosition(part.fragment().position() + part.fragment().length(), QTextCursor::KeepAnchor);
      cursor.setCharFormat(format);
      break;
    }
    if (block.blockFormat().headingLevel() != 2 || block.blockNumber() < 4) continue;
    BeginPageAt(block);
  }
}

// Whether it stands at the foot of a page, away from what it is about.
bool IsLeftAlone(const QTextBlock& heading, qreal pageHeight) {
  const QAbstractTextDocumentLayout& layout = *heading.document()->documentLayout();
  const QRectF text = layout.blockBoundingRect(heading.next());
  const qreal firstLine = text.top() + std::min<qreal>(text.height(), kLine);
  return static_cast<int>(layout.blockBoundingRect(heading).top() / pageHeight) !=
         static_cast<int>(firstLine / pageHeight);
}

// All of it is laid out anew behind each change: a layout that is mended loses what stands ahead of a table.
void SetPages(QTextDocument& guide, const QSizeF& body) {
  guide.setPageSize(body);
  for (int i = 0; i < guide.blockCount() - 1; ++i) {
    const QTextBlock block = guide.findBlockByNumber(i);
    if (block.blockFormat().headingLevel() == 0 || !IsLeftAlone(block, body.height())) continue;
    BeginPageAt(block);
    guide.setPageSize(QSizeF());
    guide.setPageSize(body);
  }
}

// The lines that say which screens a heading is about are for the program.
QString WithWholePaths(QString text, const QString& folder) {
  static const QRegularExpression forms(QStringLiteral("^<!--.*-->\n"), QRegularExpression::MultilineOption);
  return text.remove(forms).replace(QStringLiteral("](../"),
                                    QStringLiteral("](") + QFileInfo(folder).absolutePath() + QLatin1Char('/'));
}

bool Draw(QTextDocument& guide, const QString& file) {
  QPdfWriter writer(file);
  writer.setTitle(QStringLiteral("Lantos Quick Start Guide"));
  writer.setPageSize(QPageSize(QPageSize::Letter));
  writer.setPageMargins(QMarginsF());
  writer.setResolution(kDotsAnInch);
  guide.documentLayout()->setPaintDevice(&writer);
  const QSizeF body(kLetter.width() - 2 * kMargin, kLetter.height() - 2 * kMargin);
  SetPages(guide, body);
  QPainter painter(&writer);
  for (int page = 0; page < guide.pageCount(); ++page) {
    if (page > 0 && !writer.newPage()) return false;
    painter.save();
    painter.translate(kMargin, kMargin - page * body.height());
    guide.drawContents(&painter, QRectF(0, page * body.height(), body.width(), body.height()));
    painter.restore();
    painter.setFont(guide.defaultFont());
    painter.drawText(QRectF(0, kLetter.height() - kMargin, kLetter.width(), kMargin), Qt::AlignCenter,
                     QString::number(page + 1));
  }
  return painter.end();
}

}  // namespace

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, arguments);
  const QStringList given = QGuiApplication::arguments();
  QFile source(given.value(1));
  if (given.size() != 3 || !source.open(QIODevice::ReadOnly)) {
    std::fputs("make-guide: give a page of Markdown and the PDF to be written\n", stderr);
    return 1;
  }
  QTextDocument guide;
  guide.setDocumentMargin(0);
  guide.setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 11));
  guide.setMarkdown(WithWholePaths(QString::fromUtf8(source.readAll()), QFileInfo(given[1]).absolutePath()));
  SetPictures(guide, kLetter.width() - 2 * kMargin);
  return Draw(guide, given[2]) ? 0 : 1;
}
