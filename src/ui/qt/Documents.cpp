#include "ui/qt/Documents.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "frame/FileIO.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

std::string WithoutQuotes(std::string text) {
  std::erase(text, '"');
  return Trim(text);
}

bool IsAddress(const std::string& path) {
  return Contains(path, "://") || path.starts_with("mailto:") || path.starts_with("www.");
}

QFileInfo FileOf(const std::string& path) {
  return QFileInfo(QString::fromStdString(PlatformPath(WithoutQuotes(path)).string()));
}

}  // namespace

int LookAtDocument(const std::string& path) {
  if (IsAddress(WithoutQuotes(path))) return kOpened;
  const QFileInfo file = FileOf(path);
  if (!file.exists()) return file.dir().exists() ? kFileNotFound : kPathNotFound;
  if (file.isDir()) return kOpened;
  if (!file.isReadable()) return kAccessDenied;
  // Nothing can be associated with a file that has no extension and is no program.
  return file.suffix().isEmpty() && !file.isExecutable() ? kNoAssociation : kOpened;
}

int OpenInPlatform(const std::string& path, const std::string& arguments) {
  const int look = LookAtDocument(path);
  if (look != kOpened) return look;
  const std::string plain = WithoutQuotes(path);
  if (IsAddress(plain)) return QDesktopServices::openUrl(QUrl::fromUserInput(ToQt(plain))) ? kOpened : kNoAssociation;
  const QFileInfo file = FileOf(path);
  if (file.isFile() && file.isExecutable()) {
    const bool started =
        QProcess::startDetached(file.absoluteFilePath(), QProcess::splitCommand(ToQt(arguments)), file.absolutePath());
    return started ? kOpened : kAccessDenied;
  }
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())) ? kOpened : kNoAssociation;
}

}  // namespace lantos::ui
