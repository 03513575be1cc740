// Whoever follows the page "Your first truss" step by step has drawn the example of which the help goes on to
// speak.
#include <QFile>
#include <QRegularExpression>

#include "support/WindowEditingFixture.h"

namespace {

using Points = QVector<QPointF>;

class HelpTutorial : public WindowEditingFixture {
 protected:
  // The points that a section of the page names, in their order.
  static Points PointsOf(const char* section) {
    QFile file(QStringLiteral(ORVANE_HELP_SOURCES "/program/first-truss.htm"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString heading = QStringLiteral("<h2 id=\"%1\">").arg(QString::fromLatin1(section));
    const QString text =
        QString::fromUtf8(file.readAll()).section(heading, 1).section(QStringLiteral("<h2"), 0, 0);
    static const QRegularExpression point(QStringLiteral("\\(([0-9.]+), ([0-9.]+)\\)"));
    Points points;
    for (auto match = point.globalMatch(text); match.hasNext();) {
      const auto found = match.next();
      points.append({found.captured(1).toDouble(), found.captured(2).toDouble()});
    }
    return points;
  }

  QPoint PixelOf(const QPointF& point) const {
    return At(static_cast<float>(point.x()), static_cast<float>(point.y()));
  }

  void DragAlong(Tool tool, const char* section) {
    const Points points = PointsOf(section);
    ChooseTool(tool);
    for (qsizetype i = 0; i + 1 < points.size(); i += 2) Drag(PixelOf(points[i]), PixelOf(points[i + 1]));
  }

  void Name(LabelIndex label, const char* name) {
    AnswerInputBox(QString::fromLatin1(name));
    ClickLabel(label);
    EXPECT_EQ(truss_.Name(label), name);
  }

  LabelIndex JointAt(const QPointF& point) const {
    for (const JointRec& joint : truss_.JointsInUse()) {
      if (QPointF(double{joint.X}, double{joint.Y}) == point) return joint.NameLabel;
    }
    ADD_FAILURE() << "no joint at " << point.x() << ", " << point.y();
    return 1;
  }
};

TEST_F(HelpTutorial, EndsWithTheExampleOfTheTriangle) {
  Start();
  DragAlong(Tool::TrussMember, "members");
  const Points supports = PointsOf("supports");
  ASSERT_EQ(supports.size(), 2);
  ChooseTool(Tool::Clamp);
  ClickAt(PixelOf(supports[0]));
  ChooseTool(Tool::Roller);
  ClickAt(PixelOf(supports[1]));
  DragAlong(Tool::Force, "force");

  Click("cmdNext1");
  ASSERT_EQ(truss_.NumMembers, 3);
  Name(truss_.Members[1].NameLabel1, "AB");
  Name(truss_.Members[2].NameLabel1, "AC");
  Name(truss_.Members[3].NameLabel1, "BC");
  ASSERT_EQ(truss_.NumSupports, 2);
  Name(truss_.Supports[1].NameLabel1, "Ax");
  Name(truss_.Supports[1].NameLabel2, "Ay");
  Name(truss_.Supports[2].NameLabel1, "B");
  Name(JointAt(supports[0]), "A");
  Name(JointAt(supports[1]), "B");
  const Points force = PointsOf("force");
  ASSERT_EQ(force.size(), 2);
  Name(JointAt(force[0]), "C");

  chooser_.Choice = directory_ / "first.trs";
  Trigger("mnuFileSaveAs");
  std::ifstream example(ORVANE_EXAMPLES_DIR "/triangle.trs", std::ios::binary);
  EXPECT_EQ(directory_.Bytes("first.trs"), std::string(std::istreambuf_iterator<char>(example), {}));
}

}  // namespace
