// A window of the menu Learn that works with the analysis of Step 3: what the menu asks of it.
#pragma once

#include <QWidget>
#include <memory>

#include "analysis/FormatSigFigs.h"
#include "explanation/Explanation.h"

/// What a window shows. The truss is a copy that stays as it is; the reasons end with the step, so that
/// whoever keeps something of them keeps what keeps it alive.
struct LearnSubject {
  std::shared_ptr<const Truss> Document;
  std::shared_ptr<ExplanationOnDemand> Reasons;
  ReportFormat Format;
  float Points = 10;  ///< the size of letters in reports
};

/// Made when it is first asked for, and kept.
class LearnWindow : public QWidget {
  Q_OBJECT

 public:
  /// Closes with Escape.
  LearnWindow(const QString& name, const QString& title, QWidget* parent);

  /// Shows this truss in place of the one before.
  virtual void ShowSubject(const LearnSubject& subject) = 0;

  /// Empties the window and forgets every truss.
  virtual void Clear() = 0;

  /// Shows the window before all others, also when it was minimised, with the keys where the user begins.
  void BringUp();

 protected:
  virtual QWidget& FirstControl() = 0;
};
