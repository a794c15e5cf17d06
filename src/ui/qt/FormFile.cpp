#include "ui/qt/FormFile.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string_view>

#include "FormHeaders.inc"

namespace lantos::ui {

namespace {

template <class Design, class Root>
std::unique_ptr<QWidget> Build(void (Design::*setUp)(Root*)) {
  auto root = std::make_unique<Root>();
  Design design;
  (design.*setUp)(root.get());
  return root;
}

struct FormDesign {
  std::string_view name;
  std::unique_ptr<QWidget> (*build)();
};

#define FORM(name) {#name, [] { return Build(&Ui_##name::setupUi); }},
const FormDesign kForms[] = {
#include "FormRows.inc"
};
#undef FORM

std::map<std::string, std::function<std::unique_ptr<QWidget>()>> addedForms;

}  // namespace

void AddFormFile(const std::string& formName, std::function<std::unique_ptr<QWidget>()> build) {
  addedForms[formName] = std::move(build);
}

std::unique_ptr<QWidget> LoadFormFile(const std::string& formName) {
  if (const auto added = addedForms.find(formName); added != addedForms.end()) return added->second();
  const auto form = std::find_if(std::begin(kForms), std::end(kForms),
                                 [&](const FormDesign& design) { return design.name == formName; });
  if (form == std::end(kForms)) throw std::logic_error("There is no form " + formName);
  return form->build();
}

}  // namespace lantos::ui
