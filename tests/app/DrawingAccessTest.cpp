// The drawing of the main window in the accessibility tree.
#include "support/AccessibleTree.h"
#include "support/WindowEditingFixture.h"

namespace {

using accessible::Listener;

class DrawingInWords : public WindowEditingFixture {
 protected:
  QAccessibleInterface* Paper() const { return accessible::Of(*Canvas()); }

  QAccessibleInterface* Child(QAccessible::Role role, const char* name) const {
    return accessible::One(Paper(), role, QString::fromUtf8(name));
  }
  QAccessibleInterface* Graphic(const char* name) const { return Child(QAccessible::Graphic, name); }

  bool IsThere(const char* name) const {
    return !accessible::All(Paper(), QAccessible::Graphic, QString::fromUtf8(name)).empty();
  }

  void SetCursor(double x, double y) const {
    Child(QAccessible::SpinBox, "Cursor x")->valueInterface()->setCurrentValue(x);
    Child(QAccessible::SpinBox, "Cursor y")->valueInterface()->setCurrentValue(y);
  }

  static bool CanPress(QAccessibleInterface* element) {
    return element->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction());
  }

  static QString Description(QAccessibleInterface* of) { return of->text(QAccessible::Description); }
};

}  // namespace

TEST_F(DrawingInWords, ElementsAreChildrenOfTheDrawingWithNameRoleAndDescription) {
  Start();
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(Paper()->role(), QAccessible::Canvas);
  EXPECT_EQ(accessible::Name(Paper()), QStringLiteral("Drawing of the truss"));
  for (const char* name : {"member AB from (2, 2) to (18, 2)", "member AC from (2, 2) to (10, 10)",
                           "joint C at (10, 10)", "clamp at (2, 2), forces Ax and Ay",
                           "roller at (18, 2), force By", "force at (10, 10), 0 right, 2000 down"}) {
    QAccessibleInterface* element = Graphic(name);
    EXPECT_EQ(element->parent()->object(), Canvas());
    EXPECT_EQ(Paper()->indexOfChild(element),
              Paper()->indexOfChild(Paper()->child(Paper()->indexOfChild(element))));
    EXPECT_EQ(Paper()->child(Paper()->indexOfChild(element)), element);
    EXPECT_TRUE(element->state().focusable);
  }
  EXPECT_EQ(Description(Graphic("joint C at (10, 10)")), QStringLiteral("2 members, a force"));
  EXPECT_EQ(Description(Graphic("roller at (18, 2), force By")), QStringLiteral("pushes up"));
}

TEST_F(DrawingInWords, AnElementIsWhereItIsDrawn) {
  Start();
  OpenTruss(LoadedTriangle());
  const QRect member = Graphic("member AC from (2, 2) to (10, 10)")->rect();
  const QPoint corner = Canvas()->mapToGlobal(QPoint(0, 0));
  EXPECT_TRUE(member.contains(corner + At(2, 2)));
  EXPECT_TRUE(member.contains(corner + At(10, 10)));
  EXPECT_FALSE(member.contains(corner + At(11, 6)));
  const QPoint on = corner + At(6, 6);
  EXPECT_EQ(accessible::Name(Paper()->childAt(on.x(), on.y())),
            QStringLiteral("member AC from (2, 2) to (10, 10)"));
  const QPoint beside = corner + At(15, 14);
  EXPECT_EQ(Paper()->childAt(beside.x(), beside.y()), nullptr);
}

TEST_F(DrawingInWords, InStep3MembersAndSupportsTellTheirForces) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  EXPECT_EQ(Description(Graphic("member AB from (2, 2) to (18, 2)")), QStringLiteral("tension 1000"));
  EXPECT_EQ(Description(Graphic("member AC from (2, 2) to (10, 10)")), QStringLiteral("compression 1414"));
  EXPECT_EQ(Description(Graphic("clamp at (2, 2), forces Ax and Ay")),
            QStringLiteral("Ax 0, Ay 1000 up; holds both ways"));
  Click("cmdPrev3");
  EXPECT_EQ(Description(Graphic("member AB from (2, 2) to (18, 2)")), QString());
}

TEST_F(DrawingInWords, NamesAreButtonsWhereAClickDoesSomething) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  const char* member = "name AB of the member from (2, 2) to (18, 2)";
  const char* joint = "name A of the joint at (2, 2)";
  EXPECT_TRUE(CanPress(Child(QAccessible::Button, member)));
  EXPECT_TRUE(CanPress(Child(QAccessible::Button, joint)));
  Click("cmdNext2");
  EXPECT_FALSE(CanPress(Child(QAccessible::StaticText, member)));
  EXPECT_TRUE(CanPress(Child(QAccessible::Button, joint)));
  accessible::Press(Child(QAccessible::Button, joint));
  EXPECT_TRUE(Widget("picStep3")->isVisible());
  EXPECT_EQ(
      accessible::All(Paper(), QAccessible::Button, QStringLiteral("name A of the joint at (2, 2)")).size(),
      1U);
}

TEST_F(DrawingInWords, AnElementGetsTheKeysAndAFrameAroundIt) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  Listener listener;
  QAccessibleInterface* name = Child(QAccessible::Button, "name AB of the member from (2, 2) to (18, 2)");
  accessible::Do(name, QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(Canvas()->hasFocus());
  EXPECT_EQ(Canvas()->FocusLabel(), truss_.Members[1].NameLabel1);
  EXPECT_TRUE(name->state().focused);
  EXPECT_EQ(Paper()->focusChild(), name);
  EXPECT_EQ(
      listener.Count(QAccessible::Focus, QStringLiteral("name AB of the member from (2, 2) to (18, 2)")), 1);
  const QImage before = Picture();
  accessible::Do(Graphic("joint C at (10, 10)"), QAccessibleActionInterface::setFocusAction());
  EXPECT_FALSE(name->state().focused);
  EXPECT_EQ(Canvas()->FocusLabel(), 0);
  EXPECT_NE(Picture(), before);
}

TEST_F(DrawingInWords, TabTellsTheNameThatItReaches) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  Canvas()->setFocus();
  Listener listener;
  QTest::keyClick(Canvas(), Qt::Key_Tab);
  ASSERT_NE(Canvas()->FocusLabel(), 0);
  EXPECT_EQ(listener.Count(QAccessible::Focus, accessible::Name(Paper()->focusChild())), 1);
}

TEST_F(DrawingInWords, ErasingByActionTellsWhatIsGone) {
  Start();
  OpenTruss(LoadedTriangle());
  ChooseTool(Tool::Erase);
  QAccessibleInterface* member = Graphic("member AB from (2, 2) to (18, 2)");
  QAccessibleInterface* joint = Graphic("joint C at (10, 10)");
  EXPECT_TRUE(CanPress(member));
  EXPECT_FALSE(CanPress(joint));
  Listener listener;
  accessible::Press(member);
  EXPECT_EQ(NumLiveMembers(truss_), 2);
  EXPECT_FALSE(member->isValid());
  EXPECT_FALSE(IsThere("member AB from (2, 2) to (18, 2)"));
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("erased member AB from (2, 2) to (18, 2)"));
  EXPECT_GE(listener.Count(QAccessible::ObjectReorder, QStringLiteral("Drawing of the truss")), 1);
}

TEST_F(DrawingInWords, ANewMemberAndANewNameAreTold) {
  Start();
  OpenTruss(LoadedTriangle());
  EXPECT_FALSE(IsThere("member from (10, 10) to (10, 2)"));
  Listener listener;
  ChooseTool(Tool::TrussMember);
  DrawMember(10, 10, 10, 2);
  EXPECT_TRUE(IsThere("member from (10, 10) to (10, 2)"));
  EXPECT_EQ(listener.Count(QAccessible::ObjectCreated, QStringLiteral("member from (10, 10) to (10, 2)")), 1);
  Click("cmdNext1");
  Graphic("member AB from (2, 2) to (18, 2)");
  Click("cmdAutoName(2)");
  EXPECT_EQ(listener.Count(QAccessible::NameChanged, QStringLiteral("member from (2, 2) to (18, 2)")), 1);
}

TEST_F(DrawingInWords, ArrowKeysTellThePointAndWhatItWouldSnapTo) {
  Start();
  OpenTruss(LoadedTriangle());
  Canvas()->setFocus();
  Listener listener;
  SetCursor(9.5, 10);
  Key(Qt::Key_Right);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("(10, 10), joint C"));
  Key(Qt::Key_Right);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("(10.5, 10), grid point"));
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("snaps to (10.5, 10), grid point"));
  Key(Qt::Key_1);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("Truss Member Tool"));
  Key(Qt::Key_Space);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("from (10.5, 10), grid point"));
  Key(Qt::Key_Down);
  Key(Qt::Key_Space);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("made member from (10.5, 10) to (10.5, 9.5)"));
  Key(Qt::Key_Space);
  Key(Qt::Key_Escape);
  EXPECT_EQ(listener.LastSaid(), QStringLiteral("cancelled"));
  Key(Qt::Key_5);
  SetCursor(10.5, 9.75);
  Key(Qt::Key_7);
  Key(Qt::Key_Space);
  EXPECT_EQ(listener.LastSaid(),
            QStringLiteral("picked member from (10.5, 10) to (10.5, 9.5); its ends can be moved"));
}

TEST_F(DrawingInWords, WhatIsSaidOfTheDrawingIsWhatIsThereNow) {
  Started(700, 600);
  EXPECT_EQ(Description(Paper()), QStringLiteral("nothing drawn yet"));
  OpenTruss(LoadedTriangle());
  const QString all = QStringLiteral("3 members, a clamp, a roller, a force");
  EXPECT_EQ(Description(Paper()), all);
  Canvas()->setFocus();
  SetCursor(6, 2);
  EXPECT_EQ(Description(Paper()), QStringLiteral("(6, 2), grid point"));
  ChooseTool(Tool::Erase);
  EXPECT_EQ(Description(Paper()), QStringLiteral("(6, 2), grid point, on member AB from (2, 2) to (18, 2)"));
  Key(Qt::Key_Space);
  EXPECT_EQ(Description(Paper()), QStringLiteral("(6, 2), grid point"));
  Click("cmdNext1");
  EXPECT_EQ(Description(Paper()), QStringLiteral("2 members, a clamp, a roller, a force"));
}

TEST_F(DrawingInWords, WhatTheValueEditorStoresIsSaid) {
  Start();
  OpenTruss(LoadedTriangle());
  ChooseTool(Tool::NumericalValue);
  accessible::Press(Graphic("force at (10, 10), 0 right, 2000 down"));
  ASSERT_TRUE(IsPanelOpen(Shapes()));
  Listener listener;
  QAccessibleInterface* box = Child(QAccessible::EditableText, "Fy");
  box->editableTextInterface()->replaceText(0, box->textInterface()->characterCount(),
                                            QStringLiteral("-1000"));
  accessible::Press(Child(QAccessible::Button, "OK"));
  EXPECT_EQ(truss_.Forces[1].Fy, -1000);
  EXPECT_EQ(listener.Said.last(), QStringLiteral("now force at (10, 10), 0 right, 1000 down"));
}

TEST_F(DrawingInWords, ANameIsAskedForByWhatItNamesAndTheKeysComeBackToIt) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  const char* name = "name Ax of the x-reaction of the clamp at (2, 2)";
  QAccessibleInterface* label = Child(QAccessible::Button, name);
  QString about;
  InModalWindow([&about](QWidget& window) {
    about = Description(accessible::One(accessible::Of(window), QAccessible::EditableText,
                                        QStringLiteral("Enter a new name:")));
    window.close();
  });
  label->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(modalWindows_, 0) << "who asks for the press does not wait for the answer";
  Listener listener;
  QApplication::processEvents();
  EXPECT_EQ(modalWindows_, 1);
  EXPECT_EQ(about, QString::fromUtf8(name));
  form_->activateWindow();  // as a window manager does when a dialog has gone
  EXPECT_TRUE(QTest::qWaitFor([&] { return label->state().focused; }));
  EXPECT_GE(listener.Count(QAccessible::Focus, QString::fromUtf8(name)), 1);
}

TEST_F(DrawingInWords, TheCursorIsInsideTheDrawingFromTheStart) {
  Start();
  for (const char* axis : {"Cursor x", "Cursor y"}) {
    const QAccessibleValueInterface* value = Child(QAccessible::SpinBox, axis)->valueInterface();
    EXPECT_GT(value->currentValue().toDouble(), value->minimumValue().toDouble()) << axis;
    EXPECT_LT(value->currentValue().toDouble(), value->maximumValue().toDouble()) << axis;
  }
  const auto x = [this] {
    return Child(QAccessible::SpinBox, "Cursor x")->valueInterface()->currentValue().toDouble();
  };
  const double before = x();
  Canvas()->setFocus();
  Key(Qt::Key_Right);
  EXPECT_EQ(x(), before + 0.5);
}

TEST_F(DrawingInWords, TheCursorIsTwoNumbersWithinTheDrawingArea) {
  Start();
  QAccessibleInterface* x = Child(QAccessible::SpinBox, "Cursor x");
  QAccessibleInterface* y = Child(QAccessible::SpinBox, "Cursor y");
  EXPECT_EQ(x->valueInterface()->minimumValue().toDouble(), 0);
  EXPECT_EQ(x->valueInterface()->maximumValue().toDouble(), 20);
  EXPECT_EQ(x->valueInterface()->minimumStepSize().toDouble(), 0.5);
  x->valueInterface()->setCurrentValue(3);
  y->valueInterface()->setCurrentValue(4.5);
  EXPECT_EQ(x->valueInterface()->currentValue().toDouble(), 3);
  EXPECT_EQ(y->text(QAccessible::Value), QStringLiteral("4.5"));
  EXPECT_EQ(Status(2), QStringLiteral(" (3.00, 4.50) "));
  x->valueInterface()->setCurrentValue(500);
  EXPECT_EQ(x->valueInterface()->currentValue().toDouble(), 20);
  x->valueInterface()->setCurrentValue(QStringLiteral("nowhere"));
  x->valueInterface()->setCurrentValue(std::nan(""));
  EXPECT_EQ(x->valueInterface()->currentValue().toDouble(), 20);
  Click("cmdNext1");
  EXPECT_FALSE(x->isValid());
  x->valueInterface()->setCurrentValue(1);  // does nothing
  EXPECT_EQ(Paper()->indexOfChild(x), -1);
}

TEST_F(DrawingInWords, TheLargestTrussIsToldOnDemand) {
  Start();
  Truss large;
  TrussBuilder builder;
  for (int i = 0; i < 2000; ++i) {
    builder.Member(static_cast<float>(i), 0, static_cast<float>(i) + 1, 0);
    builder.Member(static_cast<float>(i), 0, static_cast<float>(i), 1);
  }
  OpenTruss(builder);
  Listener listener;
  EXPECT_GT(Paper()->childCount(), 8000);
  EXPECT_EQ(accessible::Name(Paper()->child(Paper()->childCount() - 3)).isEmpty(), false);
  ChooseTool(Tool::Clamp);
  ClickAt(At(3, 3));
  EXPECT_EQ(
      listener.Count(QAccessible::ObjectCreated, QStringLiteral("clamp at (3, 3), forces not named yet")), 1);
  EXPECT_LT(listener.Events.size(), 100U);
}

TEST_F(DrawingInWords, ElementsOutliveTheWindowAsNothing) {
  Start();
  OpenTruss(LoadedTriangle());
  accessible::Walk(Paper(), [](QAccessibleInterface* each) { each->text(QAccessible::Name); });
  const QAccessible::Id id = QAccessible::uniqueId(Graphic("joint C at (10, 10)"));
  form_.reset();
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}
