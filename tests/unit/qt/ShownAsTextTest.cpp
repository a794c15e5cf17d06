#include <QComboBox>
#include <QLabel>
#include <QTextDocument>

#include "qt/TestForms.h"
#include "qt/WindowShop.h"
#include "ui/qt/Text.h"

// Texts of the shop are texts: no widget takes one for markup, or cuts it.
namespace lantos {
namespace {

using test::Bench;
using test::WindowShop;

// As the window system will paint it.
std::string Painted(const QString& tip) {
  if (!Qt::mightBeRichText(tip)) return ui::FromQt(tip);
  QTextDocument page;
  page.setHtml(tip);
  return ui::FromQt(page.toPlainText());
}

TEST(ShownAsText, AreToolTipsWhateverStandsInThem) {
  for (const std::string text : {"Save <F10>", "<b>bold</b> &amp; more", "&lt;i&gt; in words", "BRAKE & WHEEL",
                                 "<img src='x'>\nanother  line", "</p><p>out of it", "one\n<b>two</b>"}) {
    Bench bench;
    bench.form.TextString.SetToolTip(text);
    bench.form.Show();
    EXPECT_EQ(Painted(bench.WidgetOf<QWidget>(bench.form.TextString).toolTip()), text);
  }
}

TEST(ShownAsText, AreTheLabelsOfEveryForm) {
  WindowShop shop;
  for (const auto& form : shop.forms) {
    form->LoadForm();
    form->Show();
    const ui::FormWindow* window = shop.windows.WindowOf(*form);
    ASSERT_NE(window, nullptr) << form->Name();
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      const bool isText = label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text());
      EXPECT_TRUE(isText) << form->Name() << " " << label->objectName().toStdString();
    }
    for (const ui::Control* control : form->Controls()) {
      const auto* label = dynamic_cast<const ui::Label*>(control);
      if (label == nullptr || window->PeerOf(*label) == nullptr) continue;
      const auto* widget = dynamic_cast<const QLabel*>(&window->PeerOf(*label)->Widget());
      if (widget != nullptr) EXPECT_EQ(widget->textFormat(), Qt::PlainText) << form->Name() << " " << label->FullName();
    }
    form->Hide();
  }
}

TEST(ShownAsText, IsAWholeTextThatIsLongerThanMayBeTyped) {
  Bench bench;
  bench.form.Drive1.SetEditable(true);
  bench.form.Drive1.SetMaxLength(4);
  bench.form.Drive1.AddItem("TAURUS");
  bench.form.Drive1.SetText("TAURUS");
  bench.form.Show();
  EXPECT_EQ(ui::FromQt(bench.WidgetOf<QComboBox>(bench.form.Drive1).currentText()), "TAURUS");
  EXPECT_EQ(bench.form.Drive1.Text(), "TAURUS");
  bench.form.Drive1.SetText("ABC");
  bench.hand.Type(bench.form.Drive1, "FOCUS");
  EXPECT_EQ(bench.form.Drive1.Text(), "FOCU");
}

}  // namespace
}  // namespace lantos
