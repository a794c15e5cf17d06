#include "ui/qt/Documents.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "ui/Documents.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

int OpenInPlatform(const std::string& path, const std::string& arguments) {
  const int look = LookAtDocument(path);
  if (look != kOpened) return look;
  const std::string plain = PlainDocument(path);
  if (IsAddress(plain)) return QDesktopServices::openUrl(QUrl::fromUserInput(ToQt(plain))) ? kOpened : kNoAssociation;
  const std::filesystem::path document = FileOfDocument(plain);
  const QFileInfo file(QString::fromStdString(document.string()));
  if (IsProgram(document)) {
    const bool started =
        QProcess::startDetached(file.absoluteFilePath(), QProcess::splitCommand(ToQt(arguments)), file.absolutePath());
    return started ? kOpened : kAccessDenied;
  }
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())) ? kOpened : kNoAssociation;
}

}  // namespace lantos::ui
