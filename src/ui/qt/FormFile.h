#pragma once

#include <QWidget>
#include <memory>
#include <string>

namespace lantos::ui {

// The widgets of a form as they were designed, from the resources of the executable. Throws std::logic_error when
// there is no such form.
std::unique_ptr<QWidget> LoadFormFile(const std::string& formName);

}  // namespace lantos::ui
