// The settings dialog: shows the document settings, and lets them out only when all of them can be used.
#pragma once

#include <QDialog>
#include <map>

#include "app/Settings.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

class OptionsDialog final : public QDialog {
  Q_OBJECT

 public:
  /// `messages` must outlive the dialog; it shows what is wrong with the settings.
  OptionsDialog(const DocumentSettings& settings, const NumberFormat& format, MessageBox& messages,
                QWidget* parent);

  /// What the controls hold now.
  SettingsInput Input() const;

 Q_SIGNALS:
  /// Close was pressed on settings that can be used. Store them and redraw; the dialog closes after that.
  /// Cancel, Escape and the window's own close button send nothing.
  void Applied(const SettingsInput& input);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void MakeControls();
  void MakeButtons();
  void LayOut();
  QWidget* XFrame();
  QWidget* YFrame();
  QWidget* DisplayFrame();
  QWidget* SwitchesFrame();
  void AddRow(QGridLayout& rows, const QStringList& lines, QWidget* control);
  void FitToScreen();
  void FixTabOrder();

  void ShowInput(const SettingsInput& input);
  void FocusOn(SettingsBox box);
  bool BadInput();
  void CloseIfGood();

  NumberFormat format_;
  MessageBox& messages_;
  std::map<SettingsBox, QLineEdit*> txtDim;
  QComboBox* cmbSigFigs = nullptr;
  QComboBox* cmbFontSize = nullptr;
  QCheckBox* chkShowRulers = nullptr;
  QCheckBox* chkSnapGrid = nullptr;
  QCheckBox* chkShowGrid = nullptr;
  QCheckBox* chkSnapObject = nullptr;
  QPushButton* cmdClose = nullptr;
  QPushButton* cmdCancel = nullptr;
  QPushButton* cmdFactory = nullptr;
};
