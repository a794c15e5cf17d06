#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ui/Drive.h"

namespace lantos::test {

// Does what the test has laid down for each wait, in order, and notes what waits for nobody.
class ScriptedPerson : public ui::Person {
 public:
  ~ScriptedPerson() override { EXPECT_TRUE(script_.empty()) << script_.size() << " deeds were never asked for"; }

  void Will(std::function<void()> deed) { script_.push_back(std::move(deed)); }

  void AtForm(ui::Form&, const std::function<bool()>& over) override {
    while (!over()) Next("a form");
  }
  void AtBox(const ui::Box& box, const std::function<void(ui::Answer)>& press,
             const std::function<bool()>& over) override {
    boxes.push_back(box);
    pressButton = press;
    while (!over()) {
      if (script_.empty() && boxesDontMatter) press(ui::ButtonsOf(box).front());
      if (!over()) Next("a box: " + box.text);
    }
  }
  void AtPopup(ui::MenuItem& menu, const std::function<void(ui::MenuItem*)>& choose,
               const std::function<bool()>& over) override {
    chooseEntry = choose;
    popup = &menu;
    while (!over()) Next("a menu");
  }
  void AtPreview(const ui::Report&, const PreviewHands& hands, const std::function<bool()>& over) override {
    preview = hands;
    while (!over()) Next("a preview");
  }
  void AtPrinter(const ui::Report&, const std::function<void(bool)>& answer,
                 const std::function<bool()>& over) override {
    answerPrinter = answer;
    while (!over()) Next("the printer dialog");
  }
  void NotePrinted(const ui::Report& report, const std::filesystem::path& text,
                   const std::filesystem::path& pdf) override {
    jobs.push_back({report.design.name, text, pdf});
  }
  void NoteBeep() override { ++beeps; }
  void NoteStatus(std::string_view text) override { statuses.emplace_back(text); }
  void NoteShell(std::string_view path) override { opened.emplace_back(path); }
  void NoteFailure(std::string_view text) override { failures.emplace_back(text); }
  void NoteEnd(int) override {}

  // Boxes that come when nothing is laid down get their first button.
  bool boxesDontMatter = false;
  std::function<void(ui::Answer)> pressButton;
  std::function<void(ui::MenuItem*)> chooseEntry;
  ui::MenuItem* popup = nullptr;
  PreviewHands preview;
  std::function<void(bool)> answerPrinter;
  struct Job {
    std::string report;
    std::filesystem::path text, pdf;
  };
  std::vector<Job> jobs;
  std::vector<ui::Box> boxes;
  std::vector<std::string> statuses;
  std::vector<std::string> opened;
  std::vector<std::string> failures;
  int beeps = 0;

 private:
  void Next(const std::string& at) {
    if (script_.empty()) throw std::logic_error("nothing laid down for " + at);
    const std::function<void()> deed = std::move(script_.front());
    script_.pop_front();
    deed();
  }
  std::deque<std::function<void()>> script_;
};

}  // namespace lantos::test
