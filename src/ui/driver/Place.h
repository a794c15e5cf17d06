#pragma once

#include <functional>

#include "ui/driver/ControlJson.h"
#include "ui/driver/Line.h"

namespace lantos::ui {

// Something on the screen that waits for the person: tells what it is, and takes what is done to it.
class Place {
 public:
  virtual ~Place() = default;
  virtual Json Describe() const = 0;
  // Throws Refusal when such a thing can't be done here.
  virtual void Perform(const Line& line) = 0;
};

class BoxPlace : public Place {
 public:
  BoxPlace(const Box& box, const std::function<void(Answer)>& press) : box_(box), press_(press) {}
  Json Describe() const override;
  void Perform(const Line& line) override;

 private:
  const Box& box_;
  const std::function<void(Answer)>& press_;
};

class PopupPlace : public Place {
 public:
  PopupPlace(MenuItem& menu, const std::function<void(MenuItem*)>& choose) : menu_(menu), choose_(choose) {}
  Json Describe() const override;
  void Perform(const Line& line) override;

 private:
  MenuItem& menu_;
  const std::function<void(MenuItem*)>& choose_;
};

class PreviewPlace : public Place {
 public:
  PreviewPlace(const Report& report, const Person::PreviewHands& hands) : report_(report), hands_(hands) {}
  Json Describe() const override;
  void Perform(const Line& line) override;

 private:
  const Report& report_;
  const Person::PreviewHands& hands_;
};

class PrinterPlace : public Place {
 public:
  PrinterPlace(const Report& report, const std::function<void(bool)>& answer) : report_(report), answer_(answer) {}
  Json Describe() const override;
  void Perform(const Line& line) override;

 private:
  const Report& report_;
  const std::function<void(bool)>& answer_;
};

}  // namespace lantos::ui
