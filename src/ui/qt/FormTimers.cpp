#include "ui/qt/FormTimers.h"

#include <QTimer>

namespace lantos::ui {

namespace {

class TimerPeer : public ControlPeer {
 public:
  explicit TimerPeer(Timer& control) : control_(control) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { control_.DoTick(); });
    control_.SetPeer(this);
    Refresh(Aspect::Value);
  }
  ~TimerPeer() override { control_.SetPeer(nullptr); }
  void Refresh(Aspect /*aspect*/) override {
    timer_.setInterval(control_.Interval());
    if (control_.Interval() > 0 && control_.Enabled()) {
      timer_.start();
    } else {
      timer_.stop();
    }
  }

 private:
  Timer& control_;
  QTimer timer_;
};

}  // namespace

std::vector<std::unique_ptr<ControlPeer>> MakeTimers(const Form& form) {
  std::vector<std::unique_ptr<ControlPeer>> timers;
  for (Control* control : form.Controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) timers.push_back(std::make_unique<TimerPeer>(*timer));
  }
  return timers;
}

}  // namespace lantos::ui
