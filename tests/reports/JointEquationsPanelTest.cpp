// The joint-equations panel: its texts, its width, and the ways to close it.
#include "reports/JointEquationsPanel.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

namespace {

struct JointEquationsPanelTest : testing::Test {
  QWidget canvas;
  QPushButton other{&canvas};
  JointEquationsPanel panel{&canvas};
  QLineEdit* txtXEqn = panel.findChild<QLineEdit*>(QStringLiteral("txtXEqn"));
  QLineEdit* txtYEqn = panel.findChild<QLineEdit*>(QStringLiteral("txtYEqn"));
  QPushButton* cmdOKJointReport = panel.findChild<QPushButton*>(QStringLiteral("cmdOKJointReport"));

  const JointEquationTexts middling{"F2 cos(56.3) + F3 cos(56.3) = F4 + 100.", "F2 sin(56.3) = 0"};

  void SetUp() override {
    canvas.resize(700, 400);
    panel.move(40, 90);
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&canvas));
    other.setFocus();
  }

  QString Caption() const { return panel.findChild<QLabel*>(QStringLiteral("lblCaption"))->text(); }
  int TextWidth(const QString& text) const { return txtXEqn->fontMetrics().horizontalAdvance(text); }
};

TEST_F(JointEquationsPanelTest, IsHiddenUntilItHasEquations) {
  EXPECT_EQ(panel.objectName(), QStringLiteral("frNewCoords(3)"));
  EXPECT_TRUE(panel.isHidden());
}

TEST_F(JointEquationsPanelTest, ShowsCaptionAndEquations) {
  panel.ShowEquations("C", middling);
  EXPECT_TRUE(panel.isVisible());
  EXPECT_EQ(Caption(), QStringLiteral("Equations for joint C"));
  EXPECT_EQ(txtXEqn->text(), QStringLiteral("F2 cos(56.3) + F3 cos(56.3) = F4 + 100."));
  EXPECT_EQ(txtYEqn->text(), QStringLiteral("F2 sin(56.3) = 0"));
  EXPECT_TRUE(txtXEqn->isReadOnly());
  EXPECT_TRUE(txtYEqn->isReadOnly());
  EXPECT_EQ(canvas.children().last(), &panel);  // before everything else
}

TEST_F(JointEquationsPanelTest, EachEquationHasItsHeading) {
  QStringList labels;
  for (const QLabel* label : panel.findChildren<QLabel*>()) labels.append(label->text());
  EXPECT_TRUE(labels.contains(QStringLiteral("forces right = forces left")));
  EXPECT_TRUE(labels.contains(QStringLiteral("forces up = forces down")));
}

TEST_F(JointEquationsPanelTest, IsAtLeast233PixelsWide) {
  panel.ShowEquations("A", {"0 = 0", "0 = 12."});
  EXPECT_EQ(panel.width(), 233);
}

TEST_F(JointEquationsPanelTest, IsAsWideAsTheLongerEquationAnd45) {
  panel.ShowEquations("C", middling);
  EXPECT_EQ(panel.width(), TextWidth(txtXEqn->text()) + 45);
  panel.ShowEquations("C", {middling.Y, middling.X});
  EXPECT_EQ(panel.width(), TextWidth(txtYEqn->text()) + 45);
}

TEST_F(JointEquationsPanelTest, EachBoxIsAsWideAsItsEquation) {
  panel.ShowEquations("C", middling);
  EXPECT_EQ(txtXEqn->width(), TextWidth(txtXEqn->text()));
  EXPECT_EQ(txtYEqn->width(), TextWidth(txtYEqn->text()));
}

TEST_F(JointEquationsPanelTest, StaysInsideItsParentWithVeryLongEquations) {
  std::string sum = "F1";
  for (int k = 2; k <= 400; ++k) sum += " + F" + std::to_string(k);
  panel.ShowEquations("A", {sum + " = 0", "0 = 0"});
  EXPECT_TRUE(canvas.rect().contains(panel.geometry()));
  EXPECT_TRUE(panel.rect().contains(QRect(txtXEqn->mapTo(&panel, QPoint()), txtXEqn->size())));
  EXPECT_EQ(txtXEqn->cursorPosition(), 0);
  EXPECT_EQ(txtXEqn->text(), QString::fromStdString(sum) + QStringLiteral(" = 0"));
  canvas.resize(300, 250);
  EXPECT_TRUE(canvas.rect().contains(panel.geometry()));
}

TEST_F(JointEquationsPanelTest, SurvivesATinyParent) {
  canvas.resize(20, 20);
  panel.ShowEquations("A", middling);
  canvas.grab();
  EXPECT_EQ(panel.width(), 20 - 2 * 8);
  EXPECT_GE(panel.x(), 0);
  EXPECT_EQ(panel.y(), 0);
}

TEST_F(JointEquationsPanelTest, NamesAreNeverMarkupNorAccessKeys) {
  panel.ShowEquations("<b>x</b> & y", {"<b>F</b> = &0", middling.X});
  EXPECT_EQ(Caption(), QStringLiteral("Equations for joint <b>x</b> & y"));
  EXPECT_EQ(panel.findChild<QLabel*>(QStringLiteral("lblCaption"))->textFormat(), Qt::PlainText);
  EXPECT_EQ(txtXEqn->text(), QStringLiteral("<b>F</b> = &0"));
}

TEST_F(JointEquationsPanelTest, AVeryLongNameIsCutInTheCaptionOnly) {
  panel.ShowEquations(std::string(10000, 'W'), middling);
  EXPECT_EQ(panel.width(), TextWidth(txtXEqn->text()) + 45);
  EXPECT_TRUE(Caption().startsWith(QStringLiteral("Equations for joint WW")));
  EXPECT_TRUE(Caption().endsWith(QChar(0x2026)));
  EXPECT_EQ(panel.accessibleName().size(), 20 + 10000);
}

TEST_F(JointEquationsPanelTest, TheButtonHasTheFocusAndIsTheDefault) {
  panel.ShowEquations("A", middling);
  EXPECT_TRUE(cmdOKJointReport->hasFocus());
  EXPECT_TRUE(cmdOKJointReport->isDefault());
}

TEST_F(JointEquationsPanelTest, ClickingTheButtonHidesIt) {
  panel.ShowEquations("A", middling);
  QTest::mouseClick(cmdOKJointReport, Qt::LeftButton);
  EXPECT_TRUE(panel.isHidden());
}

TEST_F(JointEquationsPanelTest, EnterReturnAndEscapeHideItFromEveryControl) {
  for (QWidget* control : {static_cast<QWidget*>(cmdOKJointReport), static_cast<QWidget*>(txtXEqn)}) {
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Return, Qt::Key_Escape}) {
      panel.ShowEquations("A", middling);
      control->setFocus();
      QTest::keyClick(control, key);
      EXPECT_TRUE(panel.isHidden()) << control->objectName().toStdString() << " " << key;
    }
  }
}

TEST_F(JointEquationsPanelTest, EscapeHidesItFromTheRestOfTheWindow) {
  panel.ShowEquations("A", middling);
  other.setFocus();
  QTest::keyClick(&other, Qt::Key_Escape);
  EXPECT_TRUE(panel.isHidden());
}

TEST_F(JointEquationsPanelTest, IsNotClickedThrough) {
  struct PressCounter : QObject {
    int Presses = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::MouseButtonPress) ++Presses;
      return false;
    }
  } counter;
  canvas.installEventFilter(&counter);
  panel.ShowEquations("A", middling);
  QTest::mouseClick(&panel, Qt::LeftButton, {}, QPoint(4, 4));
  EXPECT_EQ(counter.Presses, 0);
  EXPECT_TRUE(panel.isVisible());
}

TEST_F(JointEquationsPanelTest, GivesTheFocusBack) {
  panel.ShowEquations("A", middling);
  panel.ShowEquations("B", middling);  // another joint while it is shown
  QTest::keyClick(cmdOKJointReport, Qt::Key_Return);
  EXPECT_TRUE(other.hasFocus());
}

}  // namespace
