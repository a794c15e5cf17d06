#include "ui/qt/Platform.h"

#include <QGuiApplication>

namespace lantos::ui {

namespace {

QtMessageHandler previousHandler = nullptr;

void PassOn(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith(QStringLiteral("This plugin does not support "))) return;
  if (previousHandler != nullptr) previousHandler(type, context, text);
}

}  // namespace

void QuietOffscreenPlatform() {
  if (previousHandler != nullptr || QGuiApplication::platformName() != QStringLiteral("offscreen")) return;
  previousHandler = qInstallMessageHandler(PassOn);
}

}  // namespace lantos::ui
