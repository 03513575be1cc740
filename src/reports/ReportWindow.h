// The report window: one report of the current truss at a time, as prose in a text box or as a table.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "analysis/Analysis.h"
#include "analysis/FormatSigFigs.h"
#include "platform/NumberFormat.h"
#include "reports/CountingReport.h"

class QLabel;
class QPlainTextEdit;
class ReportGrid;
class ReportTable;

/// Created once and kept. The analysis given to a loader of a table is read whenever the table is measured or
/// painted: before it is changed or destroyed, call Clear() or load another report. Numbers have `sigFigs`
/// significant figures.
class ReportWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit ReportWindow(NumberFormat numbers, QWidget* parent = nullptr);

  /// The font size of the text, the table and the lines below it, in points; a table that is shown is laid
  /// out again.
  void ChooseFontSet(float pointSize);

  /// Without an unknown force the text stays empty and the caption as it is.
  void ReportCounting(const CountedTruss& counted);

  void LoadGridWithEquations(const TrussAnalysis& analysis, int sigFigs);

  void LoadGridWithRREF(const TrussAnalysis& analysis, int sigFigs);

  /// An inconsistent system shows its conclusion in the text box and no table; a redundant one has its
  /// conclusion below the table.
  Outcome LoadGridWithSolutions(const TrussAnalysis& analysis, int sigFigs);

  /// What is to be said below the report that was loaded last, in the single-byte code page; without a notice
  /// the report has the whole window.
  void ShowNotice(const std::string& notice);

  /// The paragraphs of the Counting report last built.
  const CountingReport& Counting() const { return counting_; }

  /// Empties the window and forgets every analysis.
  void Clear();

  /// Shows the window before all others, also when it was minimised.
  void BringUp();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowText(const QString& text);
  void ShowTable(std::unique_ptr<ReportTable> table, int extraRowHeight, bool redundant);
  int RowHeight() const;
  int NoticeNeeds() const;
  int NoticeHeight() const;
  QRect Page() const;
  void LayOut();
  void PlaceHeading();
  void PlaceRedundantLines();
  ReportFormat Format(int sigFigs) const;

  NumberFormat numbers_;
  CountingReport counting_;
  float fontSize_ = 10;     // points
  int extraRowHeight_ = 0;  // pixels

  QPlainTextEdit* txtReport1_;
  QLabel* label17_;
  ReportGrid* eqnGrid_;
  QLabel* redundantLines_;
  QPlainTextEdit* txtNotice_;
};
