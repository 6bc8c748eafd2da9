#pragma once
// `frmTexto`: the small modal dialog with one line of text. In its Go to Page mode it
// takes a page number: only digits can be typed, an empty box does nothing, and a number
// outside 1..pages is refused with a message and the box ready for another try.

#include <QDialog>

class QLineEdit;

namespace widgets {

class frmTexto : public QDialog {
  Q_OBJECT

 public:
  // Go to Page: asks for a number from 1 to `pages`.
  frmTexto(int pages, QWidget* parent = nullptr);

  int Page() const { return page_; }

 private:
  void Accept();

  QLineEdit* txtTexto_ = nullptr;
  int pages_ = 0;
  int page_ = 0;
};

}  // namespace widgets
