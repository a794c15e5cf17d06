#pragma once

#include <QMessageBox>
#include <optional>
#include <vector>

#include "ui/Desktop.h"

namespace lantos::ui {

// A message box with exactly the buttons of the program's box.
class BoxWindow : public QMessageBox {
 public:
  BoxWindow(const Box& box, QWidget* parent);

  std::optional<Answer> Pressed() const;
  void Press(Answer answer);  // the button itself

 protected:
  // A box that has no button for it can't be left by Esc or its close box.
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  bool CanBeDismissed() const;
  void MakeRoomForTitle();

  std::vector<Answer> answers_;
  std::vector<QAbstractButton*> buttons_;  // in the order of answers_
};

}  // namespace lantos::ui
