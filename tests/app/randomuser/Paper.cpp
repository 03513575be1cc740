// The printable report, the pages before they are printed, and the printer.
#include <QAction>
#include <QCheckBox>
#include <QPrintDialog>
#include <array>

#include "RandomUser.h"

namespace {

constexpr int MostTurnsOnPaper = 8;

}  // namespace

// A button or a key, for its text or its window.
void RandomUser::UsePrintableReport(QWidget& report) {
  static constexpr std::array buttons = {"cmdReportPrint", "cmdCopyToClipboard", "cmdReportClose",
                                         "cmdReportSaveAs"};
  static constexpr std::array keys = {Qt::Key_Down,  Qt::Key_End,    Qt::Key_PageDown, Qt::Key_Tab,
                                      Qt::Key_Space, Qt::Key_Escape, Qt::Key_A,        Qt::Key_C,
                                      Qt::Key_S,     Qt::Key_P,      Qt::Key_W};
  static constexpr std::array endings = {".rtf", ".pdf", ".odt", ".html", ""};
  chooser_.Choice = directory_ / ("report" + std::string(OneOf(endings)));
  QWidget* target = report.focusWidget() != nullptr ? report.focusWidget() : &report;
  const Qt::Key key = OneOf(keys);
  switch (Below(8)) {
    case 0:
      report.resize(Below(1200), Below(900));
      break;
    case 1: {
      const QList<QCheckBox*> extras = report.findChildren<QCheckBox*>();
      if (!extras.isEmpty()) QTest::mouseClick(OneOf(extras), Qt::LeftButton);
      break;
    }
    case 2:
    case 3:
    case 4: {
      auto* button = report.findChild<QWidget*>(QString::fromLatin1(OneOf(buttons)));
      if (button != nullptr) QTest::mouseClick(button, Qt::LeftButton);
      break;
    }
    default:
      QTest::keyClick(target, key, OneIn(2) ? Qt::ControlModifier : Qt::NoModifier);
  }
}

// Its tools (pages, zoom, printing), for a while.
void RandomUser::UsePreview(QWidget& preview) {
  const QList<QAction*> tools = preview.findChildren<QAction*>();
  if (tools.isEmpty() || OneIn(3) || dialogTurns_ > MostTurnsOnPaper) {
    preview.close();
    return;
  }
  QAction* tool = OneOf(tools);
  if (tool->isEnabled() && tool->isVisible()) tool->trigger();
}

// Into a file, which may be there, or may be a place where nothing can be written.
void RandomUser::AnswerPrinter(QPrintDialog& dialog) {
  auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
  if (name == nullptr || OneIn(3) || dialogTurns_ > MostTurnsOnPaper) return dialog.reject();
  static constexpr std::array names = {"printed.pdf", "printed.pdf", "no such folder/printed.pdf"};
  name->selectAll();
  QTest::keyClicks(name, QString::fromStdString(directory_ / OneOf(names)));
  dialog.accept();
}
