// Whoever goes through the windows with the Tab key comes to everything, sees where the keys go, and comes
// round again.

#include "support/WindowEditingFixture.h"

namespace {

class FocusByTab : public WindowEditingFixture {
 protected:
  // The widgets that Tab reaches from `first` on, each once. Every one of them looks otherwise with the keys
  // than without.
  static QList<QWidget*> GoRound(QWidget& window) {
    QList<QWidget*> reached;
    constexpr int most = 200;
    for (int i = 0; i < most; ++i) {
      QWidget* before = window.focusWidget();
      const QImage with = before != nullptr ? before->grab().toImage() : QImage();
      QTest::keyClick(before != nullptr ? before : &window, Qt::Key_Tab);
      QApplication::processEvents();
      QWidget* now = window.focusWidget();
      if (now == nullptr) {
        ADD_FAILURE() << "Tab leads nowhere";
        break;
      }
      // Where the keys were at first, nobody has gone by Tab, and the toolkit shows frames from the second
      // Tab on. A default button has the frame of one with the keys all the time.
      auto* button = qobject_cast<QPushButton*>(before);
      const bool isDefault = button != nullptr && button->isDefault();
      // Pages that are only scrolled are the toolkit's own.
      const bool isPages = before != nullptr && before->inherits("QGraphicsView");
      if (i > 1 && before != now && before->isVisible() && !isDefault && !isPages) {
        EXPECT_NE(before->grab().toImage(), with)
            << before->objectName().toStdString() << " -> " << now->objectName().toStdString() << " "
            << before->metaObject()->className();
      }
      if (now == before && reached.contains(now)) continue;  // from name to name on the canvas
      if (reached.contains(now)) return reached;
      EXPECT_TRUE(now->isVisible() && now->isEnabled()) << now->objectName().toStdString();
      reached.append(now);
    }
    return reached;
  }

  static void ExpectReadingOrder(const QList<QWidget*>& reached, const QList<const char*>& names) {
    QStringList expected, met;
    for (const char* name : names) expected.append(QString::fromLatin1(name));
    for (const QWidget* widget : reached) {
      if (expected.contains(widget->objectName())) met.append(widget->objectName());
    }
    // Where the round begins does not matter.
    const qsizetype first = met.indexOf(expected.front());
    if (first > 0) std::rotate(met.begin(), met.begin() + first, met.end());
    EXPECT_EQ(met, expected);
  }
};

}  // namespace

TEST_F(FocusByTab, InStep1ItGoesFromToolToToolToTheNextButtonAndTheDrawing) {
  Start();
  OpenTruss(LoadedTriangle());
  form_->activateWindow();
  ExpectReadingOrder(GoRound(*form_), {"imgTool(1)", "imgTool(2)", "imgTool(3)", "imgTool(4)", "imgTool(5)",
                                       "imgTool(6)", "imgTool(7)", "imgTool(8)", "cmdNext1", "picDraw"});
}

TEST_F(FocusByTab, InStep2ItGoesFromTheNamesToTheButtons) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  form_->activateWindow();
  ExpectReadingOrder(GoRound(*form_),
                     {"cmdAutoName(1)", "cmdAutoName(2)", "cmdPrev2", "cmdNext2", "picDraw"});
}

TEST_F(FocusByTab, InStep3ItGoesThroughTheReports) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  form_->activateWindow();
  ExpectReadingOrder(GoRound(*form_), {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF",
                                       "cmdReportSolutions", "cmdPrev3", "picDraw"});
}

TEST_F(FocusByTab, EveryControlOfTheDialogsShowsThatItHasTheKeys) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  int met = 0;
  const auto look = [&met](QWidget& window) {
    met += static_cast<int>(GoRound(window).size());
    window.close();
  };
  InModalWindow(look);
  Trigger("mnuFilePrint");
  Click("cmdPrev3");
  InModalWindow(look);
  Trigger("mnuSettings");
  EXPECT_GT(met, 20);
}

TEST_F(FocusByTab, EveryControlOfTheWindowsOfLearnShowsThatItHasTheKeys) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  for (QAction* entry : Find<QMenu>("mnuLearn")->actions()) {
    if (entry->isSeparator() || !entry->isEnabled()) continue;
    entry->trigger();
    QApplication::processEvents();
    QWidget* window = QApplication::activeWindow();
    ASSERT_NE(window, nullptr);
    ASSERT_NE(window, form_.get());
    EXPECT_FALSE(GoRound(*window).isEmpty()) << window->windowTitle().toStdString();
  }
}
