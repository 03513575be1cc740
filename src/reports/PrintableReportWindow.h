// The window of the printable report: the whole document, to be read, copied, printed or saved.
#pragma once

#include <QDialog>
#include <QImage>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileChooser.h"
#include "reports/PrintableReportFiles.h"
#include "reports/SavingAs.h"

class QCheckBox;
class QPushButton;
class QTextEdit;
class ReportWindow;

/// For one report: the truss and its analysis stay as they are while the window is open, so it is shown
/// modally. The document is built when the window is activated. A later activation finds it up to date and
/// leaves it alone: building the same text anew would take the user's selection and place in it away. One
/// that lacks a picture, because the clipboard could not be had, is built again.
class PrintableReportWindow final : public QDialog {
  Q_OBJECT

 public:
  /// All of it must outlive the window.
  struct Partners {
    ReportSubject Subject;  ///< what it is reported with is chosen in the window
    ReportWindow& Report;   ///< shows the solutions once the document is built
    ClipboardAccess Access;
    std::function<QImage()> Bitmap;  ///< what the clipboard holds; null when it holds none
    FileChooser& Chooser;
    std::string Directory;    ///< UTF-8; where Save as opens for a truss without a file
    int ProgressDelay = 500;  ///< milliseconds of work before its progress is shown
  };

  PrintableReportWindow(Partners partners, QWidget* parent);

  /// False until the document is built.
  bool HasDocument() const { return built_.has_value(); }

  /// True while a document is built, printed, copied or saved.
  bool IsBusy() const { return busy_; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // What a document was built from, but for the analysis, which is the same as long as the window lives.
  struct Basis {
    std::string FileName;
    DocumentSettings Settings;
    DerivedView View;
    std::vector<ReportExtra> With;

    friend bool operator==(const Basis&, const Basis&) = default;
  };

  void MakeTextBox();
  void MakeButtons();
  void MakeActions();
  void MakeCheckBoxes();
  void FitButtons();
  void FitCheckBoxes();
  void FixSmallestSize();
  void LayOut();

  Basis Present() const;
  void BuildLater();
  void Build();
  std::string Notice() const;
  void ShowDocument(std::unique_ptr<QTextDocument> document);

  void cmdCopyToClipboard_Click();
  void cmdReportPrint_Click();
  void cmdReportSaveAs_Click();
  SavingAs Saving() const;
  void SaveAs(const std::string& path, DocumentFileFormat format, const SavingAs& saving);
  void ChooseExtras();

  Partners on_;
  std::optional<Basis> built_;
  bool lacksAPicture_ = false;
  bool isToBeBuilt_ = false;
  bool regainsActivation_ = false;  // from the messages and progress of a build
  bool busy_ = false;

  QTextEdit* RichTextBox1 = nullptr;
  QPushButton* cmdReportPrint = nullptr;
  QPushButton* cmdCopyToClipboard = nullptr;
  QPushButton* cmdReportClose = nullptr;
  QPushButton* cmdReportSaveAs = nullptr;
  std::vector<QCheckBox*> chkReportWith;  // one for each of AllReportExtras that has a caption
};
