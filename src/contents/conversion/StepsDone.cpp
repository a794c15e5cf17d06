#include "contents/conversion/StepsDone.h"

#include "frame/Numbers.h"
#include "frame/PlainWords.h"

namespace lantos {

void StepsDone::Add(std::string step) {
  log_.Write("Convert: estimate " + FormatZeros(estimate_, 6) + " to " + Goal() + ": " + step);
  steps_.push_back(std::move(step));
}

// Nothing is undone, so the person has to know how far it came.
void StepsDone::Rethrow(const std::exception& error) const {
  if (steps_.empty()) throw;
  std::string text = "\r\rThe conversion to " + Goal() + " stopped here. What was done before stays:";
  for (const std::string& step : steps_) text += "\r- " + step;
  text += "\rThe next step was not finished.";
  if (isWritten_) text += "\r\rThe work order is there. Don't convert the estimate once more.";
  throw WordedError(error.what() + text, WordsFor(error) + text);
}

std::string StepsDone::Goal() const {
  return order_.WorkorderNumber == 0 ? "a work order" : "work order # " + FormatZeros(order_.WorkorderNumber, 6);
}

}  // namespace lantos
