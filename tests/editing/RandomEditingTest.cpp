// Thousands of random events: whatever a user does, the truss stays sound.
#include <random>
#include <set>

#include "EditingFixture.h"
#include "analysis/Analysis.h"
#include "document/TrussFile.h"
#include "editing/KeyboardCursor.h"
#include "editing/ValueEditor.h"

namespace {

class RandomUser {
 public:
  explicit RandomUser(std::uint32_t seed) : random_(seed) {}

  void Event() {
    switch (Below(20)) {
      case 0:
      case 1:
        mouse_.SelectTool(1 + Below(NumTools));
        break;
      case 2:
        mouse_.MouseDown(MouseButton::Other, X(), Y());
        mouse_.MouseUp(MouseButton::Other, X(), Y());
        break;
      case 3:
        if (Below(3) == 0) mouse_.Cancel();
        break;
      case 4:
        ChangeSettings();
        break;
      case 5:
        cursor_.Move(static_cast<ArrowKey>(Below(4)), Below(2) == 0);
        break;
      case 6:
        cursor_.PressOrRelease();
        break;
      case 7:
        Type();
        break;
      case 8:
      case 9:
      case 10:
        mouse_.MouseMove(Below(20) != 0, X(), Y());
        break;
      case 11:
      case 12:
      case 13:
        mouse_.MouseUp(MouseButton::Left, X(), Y());
        break;
      default:
        PressSomewhere();
        break;
    }
  }

  // The document between two drags.
  void ExpectSound() {
    mouse_.Cancel();
    const Truss& truss = editor_.Document;
    std::set<int> labels, arrows;
    const auto takeLabel = [&](LabelIndex label) {
      ASSERT_TRUE(label >= 1 && label <= truss.NumLabels) << label;
      EXPECT_TRUE(labels.insert(label).second) << "label " << label << " names two elements";
      EXPECT_EQ(truss.Labels[label].Tag, "");
    };
    const auto takeArrow = [&](int last) {
      ASSERT_TRUE(last >= 4 && last <= truss.NumArrowLines) << last;
      EXPECT_TRUE(arrows.insert(last).second);
      for (int i = last - 3; i <= last; ++i) EXPECT_EQ(truss.ArrowLineTags[i], "");
    };
    for (const MemberRec& member : truss.MembersInUse()) {
      if (!member.Live) continue;
      EXPECT_FALSE(member.X1 == member.X2 && member.Y1 == member.Y2);
      EXPECT_EQ(member.NameLabel2, member.NameLabel1 + 1);
      for (const LabelIndex label : {member.NameLabel1, member.NameLabel2}) takeLabel(label);
      for (const int last : {member.ArrowLine1, member.ArrowLine2}) takeArrow(last);
    }
    for (const SupportRec& support : truss.SupportsInUse()) {
      if (!support.Live) continue;
      EXPECT_TRUE(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType);
      takeLabel(support.NameLabel1);
      takeArrow(support.ArrowLine1);
      if (!support.IsClamp()) continue;
      takeLabel(support.NameLabel2);
      takeArrow(support.ArrowLine2);
    }
    for (const ForceRec& force : truss.ForcesInUse()) {
      EXPECT_FALSE(force.Active && force.Fx == 0 && force.Fy == 0);
    }
    for (const JointRec& joint : truss.JointsInUse()) takeLabel(joint.NameLabel);
    EXPECT_TRUE(editor_.Paper.Standing.empty());
    EXPECT_EQ(editor_.Picture.Rod.Size(), truss.NumMembers);
    ExpectTheSameReopened();
  }

  void ExpectTheSameReopened() {
    Truss copy = editor_.Document;
    const Truss counted = copy;
    EXPECT_TRUE(CheckJoints(copy));
    EXPECT_EQ(Everything(copy), Everything(counted)) << "the joint list was not up to date";
    const std::string text = TrussText(copy);
    Truss reopened;
    EXPECT_EQ(ReadTrussText(reopened, editor_.Context.Bounds, text), std::nullopt);
    // The switches change their places in every file.
    reopened.Settings = copy.Settings;
    EXPECT_EQ(TrussText(reopened), text);
    EXPECT_EQ(SolveTruss(reopened).System.NumUnknowns(), SolveTruss(copy).System.NumUnknowns());
  }

  int NumElements() const {
    return NumLiveMembers(editor_.Document) + NumLiveSupports(editor_.Document) +
           NumActiveForces(editor_.Document);
  }
  const Truss& Document() const { return editor_.Document; }

 private:
  int Below(int count) { return static_cast<int>(random_() % static_cast<std::uint32_t>(count)); }
  float X() { return static_cast<float>(Below(52) * 10 - 10); }
  float Y() { return static_cast<float>(Below(32) * 10); }

  // Often on something that is there.
  void PressSomewhere() {
    const Truss& truss = editor_.Document;
    if (truss.NumMembers > 0 && Below(2) == 0) {
      const int member = 1 + Below(truss.NumMembers);
      if (IsRodShown(editor_.Picture, truss, member)) {
        const PixelLine rod = editor_.Picture.Rod[member];
        const float t = static_cast<float>(Below(5)) / 4;
        mouse_.MouseDown(MouseButton::Left, rod.X1 + t * (rod.X2 - rod.X1), rod.Y1 + t * (rod.Y2 - rod.Y1));
        return;
      }
    }
    if (truss.NumForces > 0 && Below(4) == 0) {
      const ForceRec& force = truss.Forces[1 + Below(truss.NumForces)];
      mouse_.MouseDown(MouseButton::Left, force.PixX2, force.PixY2);
      return;
    }
    mouse_.MouseDown(MouseButton::Left, X(), Y());
  }

  void Type() {
    for (const EditingKind kind : {MemberKind, ForceKind}) {
      if (!values_.IsOpen(kind)) continue;
      values_.txtNewCoords_Change(kind, 1, std::to_string(Below(20)));
      values_.txtNewCoords_Change(kind, 2, std::to_string(Below(10)));
      mouse_.Cancel();
      if (values_.IsOpen(kind)) values_.cmdNewCoordsOK_Click(kind);
    }
  }

  void ChangeSettings() {
    if (Below(10) != 0) return;
    mouse_.Cancel();
    DocumentSettings& settings = editor_.Document.Settings;
    settings.SnapGrid = Below(3) != 0;
    settings.SnapObject = Below(4) != 0;
    settings.XMin = static_cast<float>(Below(5) - 2);
    settings.XMax = Below(30) == 0 ? settings.XMin : settings.XMin + 20;
    settings.ForceScale = Below(30) == 0 ? 0.0F : 1000.0F;
    editor_.Redraw();
  }

  std::mt19937 random_;
  Editor editor_;
  ValueEditor values_{{.Document = editor_.Document,
                       .Canvas = editor_.Picture,
                       .Messages = editor_.Messages,
                       .Numbers = editor_.Numbers,
                       .Redraw = [this] { editor_.Redraw(); }}};
  EditingContext partners_ = [this] {
    return EditingContext{.Document = editor_.Document,
                          .Picture = editor_.Picture,
                          .Tools = editor_.Tools,
                          .Messages = editor_.Messages,
                          .ValueEditor = values_,
                          .Numbers = editor_.Numbers,
                          .Redraw = [this] { editor_.Redraw(); },
                          .ShowDrawing = [] {},
                          .PaintBacking = [this](const auto& paint) { paint(editor_.Paper); },
                          .IsOnCanvas = {}};
  }();
  MouseEditing mouse_{partners_};
  KeyboardCursor cursor_{mouse_, editor_.Document, editor_.Picture};
};

}  // namespace

TEST(RandomEditing, WhateverTheUserDoesTheTrussStaysSound) {
  int mostElements = 0;
  for (const std::uint32_t seed : {301U, 302U, 303U, 304U}) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomUser user(seed);
    for (int hundred = 1; hundred <= 40 && !testing::Test::HasFailure(); ++hundred) {
      SCOPED_TRACE("event " + std::to_string(100 * hundred));
      for (int i = 0; i < 100; ++i) user.Event();
      user.ExpectSound();
      mostElements = std::max(mostElements, user.NumElements());
    }
    EXPECT_GT(user.Document().NumMembers, NumLiveMembers(user.Document()));
  }
  EXPECT_GT(mostElements, 30);
}
