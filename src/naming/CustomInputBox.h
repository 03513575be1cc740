// The small modal dialog that asks for one line of text, such as a new name.
#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

/// How many twips (1/1440 inch) a pixel measures, whatever the screen.
inline constexpr int TwipsPerPixel = 15;

class CustomInputBox final : public QDialog {
  Q_OBJECT

 public:
  /// All texts are single-byte texts and shown as they are, never as markup. `about` is told to who cannot
  /// see where the dialog stands.
  CustomInputBox(const std::string& prompt, const std::string& defaultText, QWidget* parent,
                 const std::string& about = {});

  /// What the text box holds, as a single-byte text: characters outside the code page become "?".
  std::string Text() const;

  /// Puts the frame's left top corner at `leftTop` (screen pixels), or as near as the whole dialog is
  /// visible.
  void MoveOnScreen(QPoint leftTop);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLabel* Label1;
  QLineEdit* txtInput;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

/// Asks for a text with a fresh dialog whose left top corner lies at `left`, `top` (twips on the screen, kept
/// visible). Returns the text exactly as typed, or "" when the user cancels. All texts are single-byte texts.
/// `about` as above.
std::string InputBox2(const std::string& prompt, const std::string& defaultText, int left, int top,
                      QWidget* parent, const std::string& about = {});
