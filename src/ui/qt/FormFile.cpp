#include "ui/qt/FormFile.h"

#include <QFile>
#include <QUiLoader>
#include <stdexcept>

static void UseForms() { Q_INIT_RESOURCE(forms); }

namespace lantos::ui {

std::unique_ptr<QWidget> LoadFormFile(const std::string& formName) {
  QUiLoader loader;
  UseForms();
  // Looking for plug-ins would make what a form consists of depend on the machine.
  loader.clearPluginPaths();
  QFile file(QStringLiteral(":/forms/") + QString::fromStdString(formName) + QStringLiteral(".ui"));
  if (!file.open(QIODevice::ReadOnly)) throw std::logic_error("There is no form " + formName);
  std::unique_ptr<QWidget> widget(loader.load(&file));
  if (!widget) throw std::logic_error(formName + ": " + loader.errorString().toStdString());
  return widget;
}

}  // namespace lantos::ui
