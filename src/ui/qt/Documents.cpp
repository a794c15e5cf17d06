#include "ui/qt/Documents.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include "ui/Documents.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

int OpenInPlatform(const std::string& path) {
  const int look = LookAtDocument(path);
  if (look != kOpened) return look;
  const QUrl url =
      IsAddress(path)
          ? QUrl(ToQt(path), QUrl::StrictMode)
          : QUrl::fromLocalFile(QFileInfo(QFile::decodeName(FileOfDocument(path).c_str())).absoluteFilePath());
  return url.isValid() && QDesktopServices::openUrl(url) ? kOpened : kNoAssociation;
}

}  // namespace lantos::ui
