#pragma once

#include <string>
#include <string_view>

#include "ui/Desktop.h"
#include "ui/Report.h"

namespace lantos {

// Prints straight on the current printer, without preview and dialog, in a fixed-pitch font. Places are characters from
// the left and lines from the job's first, both from 0; what one page can't hold goes on at the top of the next. Where
// no printer is installed the job becomes a PDF, whose name the person is asked for. A text is cut at the page's right
// edge.
class PrintUtil {
 public:
  // What the pen does behind a text.
  enum class Pen { ToNextLine, Stays };

  // The name tells the job apart as a report's does ("rptPayStub"), the title is what the printer's queue shows.
  PrintUtil(ui::Desktop& desktop, std::string name, std::string title);

  // A blank job, upright, with the pen at its beginning. What wasn't ended is gone.
  void BeginPrintJob();
  // Prints the job, if anything was drawn in it. Throws what the printer does.
  void EndPrintJob();
  // Of the whole job. Always true.
  bool SetOrientation(ui::Orientation orientation);

  // From the pen on.
  void PrintText(std::string_view text, Pen then = Pen::ToNextLine);
  // In the middle of the line, and against its right edge but for one character. An empty text behind which the pen
  // stays prints nothing.
  void PrintCentered(std::string_view text, Pen then = Pen::ToNextLine);
  void PrintRight(std::string_view text, Pen then = Pen::ToNextLine);
  // The four sides of a rectangle. The pen stays where it was.
  void PrintBox(float left, float top, float right, float bottom);

  std::size_t PageWidth() const;  // in characters

 private:
  void PrintAt(std::size_t column, std::string_view text, Pen then);

  ui::Desktop& desktop_;
  std::string name_;
  std::string title_;
  ui::Report job_;
  bool isOpen_ = false;
  std::size_t column_ = 0, line_ = 0;  // of the pen
};

}  // namespace lantos
