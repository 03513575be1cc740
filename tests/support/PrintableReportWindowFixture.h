// The window of the printable report on its own, with stand-ins for the clipboard, its pauses, messages and
// file chooser.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextFragment>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "reports/PrintableReportWindow.h"
#include "reports/ReportWindow.h"
#include "support/FakeClipboard.h"
#include "support/FakeClock.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/LoadedTriangle.h"
#include "support/ModalDialog.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

class PrintableReportWindowFixture : public testing::Test {
 protected:
  void Analyse(const Truss& truss) {
    truss_ = truss;
    truss_.View = DeriveView(truss_.Settings, CanvasBounds{});
    analysis_ = SolveTruss(truss_);
  }

  // The window of the truss, not yet shown.
  PrintableReportWindow& Created(const Truss& truss = LoadedTriangle()) {
    window_.reset();
    Analyse(truss);
    window_ = std::make_unique<PrintableReportWindow>(
        PrintableReportWindow::Partners{.Subject = {truss_, analysis_, NumberFormat{}},
                                        .Report = report_,
                                        .Access = {clipboard_, clock_, messages_},
                                        .Bitmap = [this] { return bitmap_; },
                                        .Chooser = chooser_,
                                        .Directory = directory_ / "program",
                                        .ProgressDelay = progressDelay_},
        nullptr);
    return *window_;
  }

  // The window with its document.
  PrintableReportWindow& Opened(const Truss& truss = LoadedTriangle()) {
    Created(truss).show();
    // Progress that was shown has been active last.
    EXPECT_TRUE(progressDelay_ == 0 || QTest::qWaitForWindowActive(window_.get()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return window_->HasDocument(); }));
    return *window_;
  }

  QTextEdit& Box() const { return Child<QTextEdit>(*window_, "RichTextBox1"); }
  QPushButton& Button(const char* name) const { return Child<QPushButton>(*window_, name); }
  void Click(const char* button) const { QTest::mouseClick(&Button(button), Qt::LeftButton); }
  std::string Text() const { return Box().toPlainText().toStdString(); }

  void Select(const char* text) const {
    Box().setTextCursor(Box().document()->find(QString::fromUtf8(text)));
    ASSERT_TRUE(Box().textCursor().hasSelection());
  }

  // The format of the first place of a text.
  QTextCharFormat FormatOf(const char* text) const {
    const QTextCursor found = Box().document()->find(QString::fromUtf8(text));
    EXPECT_FALSE(found.isNull()) << text;
    return found.charFormat();
  }

  int NumImages() const {
    int images = 0;
    for (QTextBlock block = Box().document()->begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part)
        images += part.fragment().charFormat().isImageFormat();
    }
    return images;
  }

  // How many pictures were put on the clipboard.
  std::ptrdiff_t NumPicturesPut() const { return std::ranges::count(clipboard_.Tries, "picture"); }

  // Does something as soon as progress is shown.
  void WhenProgressShows(const std::function<void(QProgressDialog&)>& act) {
    auto* timer = new QTimer(window_.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* progress = qobject_cast<QProgressDialog*>(widget);
        if (progress == nullptr || !progress->isVisible()) continue;
        timer->deleteLater();
        act(*progress);
        return;
      }
    });
    timer->start(0);
  }

  static void PressCancel(QProgressDialog& progress) {
    QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton);
  }

  TemporaryDirectory directory_;
  FakeClipboard clipboard_;
  FakeClock clock_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  QImage bitmap_ = [] {
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::green);
    return image;
  }();
  int progressDelay_ = 60'000;
  Truss truss_;
  TrussAnalysis analysis_;
  ReportWindow report_{NumberFormat{}};
  std::unique_ptr<PrintableReportWindow> window_;
};
