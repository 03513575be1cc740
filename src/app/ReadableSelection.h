// Selected texts that can be read: themes are found that show them in letters too faint for their ground.
#pragma once

#include <QObject>
#include <QPalette>

/// The theme with the ground of what is selected moved away from its letters, in steps, until both have a
/// contrast of 4.5 to 1 (the ratio of their luminances as the guidelines for accessible content define it);
/// the theme itself where that is so.
QPalette WithReadableSelection(QPalette theme);

/// As long as it lives the application has such a palette, whatever its theme changes to.
class ReadableSelection final : public QObject {
 public:
  ReadableSelection();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static void Mend();
};
