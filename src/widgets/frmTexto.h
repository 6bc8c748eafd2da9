#pragma once
// `frmTexto`: the small modal dialog with one line of text, for Rename ("&New name:") and
// for the Thumbnails view's Go to Page. OK with an empty box does nothing; otherwise the
// caller's acceptor decides, telling the user why when it refuses, and the box is ready
// for another try.

#include <QDialog>

#include <functional>
#include <memory>

class QLineEdit;

namespace widgets {

class frmTexto : public QDialog {
  Q_OBJECT

 public:
  using Acceptor = std::function<bool(const QString& trimmedText)>;  // true closes the dialog

  frmTexto(const QString& caption, const QString& label, const QString& text, Acceptor acceptor,
           QWidget* parent = nullptr);

  void SetAcceptor(Acceptor acceptor) { acceptor_ = std::move(acceptor); }
  void SetDigitsOnly();
  // Selects the first characters of the text, ready to be typed over.
  void SelectFirst(int characters);
  QString Text() const;

 private:
  void Accept();

  QLineEdit* txtTexto_ = nullptr;
  Acceptor acceptor_;
};

// Go to Page: a number from 1 to `pages` ("Please enter a number between 1 and 7"
// otherwise); after OK, Text() holds it.
std::unique_ptr<frmTexto> GoToPageDialog(int pages, QWidget* parent = nullptr);

}  // namespace widgets
