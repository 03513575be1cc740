// The window in which a lecturer sets an exercise: how many variants of the truss, which ones, what they look
// like, and where they go.
#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <string>

#include "explanation/LearnWindow.h"
#include "platform/FileChooser.h"
#include "platform/MessageBox.h"
#include "practice/ExerciseSheets.h"
#include "reports/SavingAs.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;
class QSpinBox;

class ExerciseWindow final : public LearnWindow {
  Q_OBJECT

 public:
  /// All of it must outlive the window.
  struct Partners {
    FileChooser& Chooser;
    MessageBox& Messages;
    std::string Directory;    ///< UTF-8; where choosers open for a truss without a file
    int ProgressDelay = 500;  ///< milliseconds of work before its progress is shown
  };

  explicit ExerciseWindow(Partners partners, QWidget* parent = nullptr);
  ~ExerciseWindow() override;

  void ShowSubject(const LearnSubject& subject) override;
  void Clear() override;

  /// What is shown.
  const ExerciseSet& Set() const { return set_; }

 protected:
  QWidget& FirstControl() override;

 private:
  void CreateControls();
  void CreatePreview();
  void LayOut();
  VariantWishes Wishes() const;
  void MakeLater();
  void Make();
  void ShowVariant();
  std::optional<ExerciseSet> ShownVariant() const;
  void PaintVariant(QPrinter* printer) const;
  void SaveSheets();
  void SaveBank();
  void Print();
  SavingAs Saving(const char* what, const char* filter, const char* ending) const;

  Partners on_;
  std::shared_ptr<const Truss> truss_;  // null: there is nothing to show
  NumberFormat numbers_;
  ExerciseSet set_;
  QTimer remake_;
  bool isBusy_ = false;
  std::unique_ptr<QPrinter> paper_;
  QSpinBox* txtVariants_;
  QLineEdit* txtSeed_;
  QCheckBox* chkMirrored_;
  QCheckBox* chkRenamed_;
  QLabel* lblState_;
  QListWidget* lstVariants_;
  QPrintPreviewWidget* picSheet_;
  QPushButton* cmdSaveSheets_;
  QPushButton* cmdSaveBank_;
  QPushButton* cmdPrint_;
};
