#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace lantos::ui {

// The thing can't be done, and why. Nothing has been done.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// One line of the person: something to do or something to look at, checked against what such a line may say. Text is
// in the program's page.
class Line {
 public:
  // Throws Refusal when it is malformed, unknown, or has members that don't belong to it.
  explicit Line(std::string_view text);

  bool IsQuestion() const { return question_; }
  // What is to be done ("click"), or what is to be looked at ("form", "frmMain.List2").
  const std::string& Subject() const { return subject_; }

  bool Has(std::string_view member) const { return json_.contains(member); }
  bool IsNull(std::string_view member) const { return json_.at(std::string(member)).is_null(); }
  std::string Text(std::string_view member) const;
  // The same in the form of TextOfPath: what a list shows may have characters beyond the page.
  std::string WholeText(std::string_view member) const;
  int Number(std::string_view member) const;
  std::vector<int> Numbers(std::string_view member) const;
  bool Flag(std::string_view member, bool whenAbsent = false) const;

 private:
  nlohmann::json json_;
  bool question_ = false;
  std::string subject_;
};

}  // namespace lantos::ui
