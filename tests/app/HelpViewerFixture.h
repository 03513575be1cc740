// The help viewer with the built help, a message box and a desktop that write down what they are told.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <QWheelEvent>

#include "app/HelpBrowser.h"
#include "app/HelpTopics.h"
#include "app/HelpViewer.h"
#include "support/BuiltHelp.h"
#include "support/FakeMessageBox.h"
#include "support/TemporaryDirectory.h"

// Stands in for the browser and the mail program of the desktop.
class Desktop final : public QObject {
  Q_OBJECT

 public:
  Desktop() {
    for (const char* scheme : {"http", "https", "mailto", "file"}) {
      QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "Open");
    }
  }
  ~Desktop() override {
    for (const char* scheme : {"http", "https", "mailto", "file"}) {
      QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
  }

  Q_INVOKABLE void Open(const QUrl& address) { Opened.append(address); }

  QList<QUrl> Opened;
};

class HelpViewerTest : public BuiltHelpTest {
 protected:
  void Open(const char* topic = ProgramHelpTopic) {
    ASSERT_TRUE(viewer_.ShowTopic(ProgramDirectory() + topic));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer_));
    QTest::qWait(0);
  }

  HelpBrowser& Browser() { return *viewer_.findChild<HelpBrowser*>(); }
  QAction& Action(const char* name) { return *viewer_.findChild<QAction*>(QString::fromLatin1(name)); }
  QTreeWidget& Contents() { return *viewer_.findChild<QTreeWidget*>(); }
  QLineEdit& FindLine() { return *viewer_.findChild<QLineEdit*>(QStringLiteral("txtFind")); }
  QString FindResult() { return viewer_.findChild<QLabel*>(QStringLiteral("lblFound"))->text(); }
  std::string Page() { return Browser().Page().toStdString(); }
  QString Selected() { return Browser().textCursor().selectedText(); }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    viewer_.activateWindow();
    QWidget* target = viewer_.focusWidget() != nullptr ? viewer_.focusWidget() : &viewer_;
    QTest::keyClick(target, key, modifiers);
    QTest::qWait(0);
  }

  // Clicks on the first link of the page that is written so.
  void ClickLink(const QString& written) {
    QTextDocument& page = *Browser().document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (part.fragment().charFormat().anchorHref() != written) continue;
        QTextCursor cursor(&page);
        cursor.setPosition(part.fragment().position());
        Browser().setTextCursor(cursor);
        const QRect left = Browser().cursorRect(cursor);
        QTest::mouseClick(Browser().viewport(), Qt::LeftButton, Qt::NoModifier, left.center() + QPoint(4, 0));
        QTest::qWait(0);
        return;
      }
    }
    ADD_FAILURE() << "no link " << written.toStdString();
  }

  // A page that is not in the help, with links that its pages do not have.
  void ShowInstead(const QString& markup) { Browser().document()->setHtml(markup); }

  void TurnWheel(int eighths) {
    const QPointF at(50, 50);
    QWheelEvent wheel(at, Browser().viewport()->mapToGlobal(at), {}, QPoint(0, eighths), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Browser().viewport(), &wheel);
  }

  // The first picture of the page, as it is laid out.
  QSizeF PictureSize() {
    QTextDocument& page = *Browser().document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextCharFormat format = part.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        const auto* handler = page.documentLayout()->handlerForObject(QTextFormat::ImageObject);
        return const_cast<QTextObjectInterface*>(handler)->intrinsicSize(&page, 0, format);
      }
    }
    ADD_FAILURE() << "no picture";
    return {};
  }

  void ExpectOnlyMessage(const std::string& text) {
    ASSERT_EQ(messages_.Shown.size(), 1U);
    EXPECT_EQ(messages_.Shown[0], (Message{.Text = text, .Icon = MessageIcon::Exclamation}));
  }

  FakeMessageBox messages_;
  Desktop desktop_;
  TemporaryDirectory directory_;
  HelpViewer viewer_{messages_};
};
