// The about box: what this program is, its version, its licence and what it is built with.
#pragma once

#include <QDialog>

class AboutForm final : public QDialog {
  Q_OBJECT

 public:
  explicit AboutForm(QWidget* parent);
};
