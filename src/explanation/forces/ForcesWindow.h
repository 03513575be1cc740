// The window with the forces on the truss: the drawing, and beside it the list of all forces.
#pragma once

#include <memory>

#include "explanation/LearnWindow.h"

class ForcesView;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableWidget;
struct ShownForces;

class ForcesWindow final : public LearnWindow {
  Q_OBJECT

 public:
  explicit ForcesWindow(QWidget* parent = nullptr);

  void ShowSubject(const LearnSubject& subject) override;
  void Clear() override;

 protected:
  QWidget& FirstControl() override;

 private:
  void CreateControls();
  void CreateList();
  void CreateKeys();
  void LayOut();
  void FillList(const ReportFormat& format);
  int HeightForRows(int rows) const;
  void ShowState();
  void Choose(int unknown);
  void CopyPicture();
  void CopyList();
  QString ListText() const;

  std::shared_ptr<const ShownForces> shown_;
  ForcesView* picForces_ = nullptr;
  QTableWidget* lstForces_ = nullptr;
  QPushButton* cmdZoomIn_ = nullptr;
  QPushButton* cmdZoomOut_ = nullptr;
  QPushButton* cmdZoomWhole_ = nullptr;
  QPushButton* cmdCopyForces_ = nullptr;
  QCheckBox* chkSwapHues_ = nullptr;
  QLabel* lblRoom_ = nullptr;
};
