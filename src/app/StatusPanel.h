// The two panels of the status bar: what to do next, and where the mouse is.
#pragma once

#include <QLabel>

/// Panel 1 wraps its text, panel 2 has one line. Both show their text without the blanks around it, which
/// would push the first of two lines out of line, in the largest font in which all of it fits, but in none
/// smaller than can be read at a glance. What does not fit even then ends with an ellipsis; the tool tip and
/// the name for screen readers, who are told of every new text of panel 1, have all of it.
class StatusPanel final : public QLabel {
 public:
  /// Panel 1 or 2.
  StatusPanel(int number, QWidget* statusBar);

  void ShowText(const QString& text);

  /// Puts the panel at `left`, as high as the status bar, and chooses its font anew.
  void Place(int left, int width);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Fit(const QFont& wanted, const QString& text);
  QString Shown() const;
  int Flags() const;

  const bool wraps_;
};

/// Pixels of a status bar in which the texts of all steps and tools fit into a first panel of this width: two
/// lines or, with large letters, three; but no more than a quarter of the window's inner height.
int StatusBarHeight(const QFont& font, int firstPanelWidth, int windowHeight);
