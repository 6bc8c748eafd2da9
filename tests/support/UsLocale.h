#pragma once
// For a test that reads numbers as the program writes them: US separators ("1,234.5")
// whatever the machine's locale, the previous default back at the end of the scope.

#include <QLocale>

namespace testing_support {

class UsLocale {
 public:
  UsLocale() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
  ~UsLocale() { QLocale::setDefault(previous_); }
  UsLocale(const UsLocale&) = delete;
  UsLocale& operator=(const UsLocale&) = delete;

 private:
  QLocale previous_;
};

}  // namespace testing_support
