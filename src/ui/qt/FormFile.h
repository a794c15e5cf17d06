#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

namespace lantos::ui {

// The widgets of a form as they were designed; the .ui files are compiled in, which starts faster than reading them and
// spares the libraries that do. Throws std::logic_error when there is no such form.
std::unique_ptr<QWidget> LoadFormFile(const std::string& formName);
// A design that isn't compiled in, known from now on.
void AddFormFile(const std::string& formName, std::function<std::unique_ptr<QWidget>()> build);

}  // namespace lantos::ui
