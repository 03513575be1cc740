// A numerical value editor with a member and a force to edit.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "canvas/RedrawTruss.h"
#include "editing/ValueEditor.h"
#include "support/FakeMessageBox.h"
#include "support/TrussBuilder.h"

inline constexpr const char* NotNumbers = "Invalid input.  The components must be numbers.";
inline constexpr const char* EraseMember = "Invalid input.  Erase the truss member instead.";
inline constexpr const char* EraseForce = "Invalid input.  Erase the force instead.";
inline constexpr const char* NoMagnitude = "Invalid input.  The magnitude must be positive.";

inline constexpr float Largest = std::numeric_limits<float>::max();

struct ValueEditorTest : testing::Test {
  FakeMessageBox messages;
  Drawing drawing;
  int redraws = 0;
  Truss truss = TrussBuilder().Member(0, 0, 3, 4).Force(3, 4, -1, 0);
  ValueEditor editor = Editor(NumberFormat{});

  ValueEditor Editor(const NumberFormat& numbers) {
    Prepare();
    return ValueEditor({truss, drawing, messages, numbers, [this] { ++redraws; }});
  }

  // 10 pixels to a world unit, the origin at (100, 200).
  void Prepare() {
    drawing.Mapping.SetMapping(100, 200, 200, 100, 0, 10, 0, 10);
    FitTables(drawing, truss);
    PlaceObjects(drawing, truss);
  }

  void Use(const Truss& other) {
    truss = other;
    Prepare();
  }

  // As picking leaves things: handles shown, supports asleep.
  void Pick() {
    drawing.MoveHandleB.Visible = true;
    drawing.MoveHandleS.Visible = true;
    drawing.SupportsEnabled = false;
  }

  void OpenMember(Notation notation, float t = 1) {
    Pick();
    editor.OpenForMember(1, t);
    editor.optNotation_Click(MemberKind, notation);
  }

  void OpenForce(Notation notation) {
    Pick();
    editor.OpenForForce(1);
    editor.optNotation_Click(ForceKind, notation);
  }

  void Type(EditingKind kind, const std::string& first, const std::string& second) {
    editor.txtNewCoords_Change(kind, 1, first);
    editor.txtNewCoords_Change(kind, 2, second);
  }

  void Enter(EditingKind kind, const std::string& first, const std::string& second) {
    messages.Shown.clear();
    Type(kind, first, second);
    editor.cmdNewCoordsOK_Click(kind);
  }

  void ExpectShown(EditingKind kind, const char* label1, const char* text1, const char* label2,
                   const char* text2) const {
    EXPECT_EQ(editor.Label(kind, 1), label1);
    EXPECT_EQ(editor.Text(kind, 1), text1);
    EXPECT_EQ(editor.Label(kind, 2), label2);
    EXPECT_EQ(editor.Text(kind, 2), text2);
  }

  // Enters two texts and expects this message, and everything else as it was.
  void ExpectRefused(EditingKind kind, const std::string& first, const std::string& second,
                     const char* text) {
    SCOPED_TRACE(testing::Message() << "\"" << first << "\", \"" << second << "\"");
    const MemberRec member = truss.Members[1];
    const PixelLine rod = drawing.Rod[1];
    Enter(kind, first, second);
    EXPECT_THAT(messages.Shown, testing::ElementsAre(Message{.Text = text, .Icon = MessageIcon::Critical}));
    EXPECT_TRUE(editor.IsOpen(kind));
    EXPECT_TRUE(drawing.MoveHandleB.Visible);
    EXPECT_TRUE(drawing.MoveHandleS.Visible);
    EXPECT_FALSE(drawing.SupportsEnabled);
    EXPECT_EQ(redraws, 0);
    EXPECT_EQ(editor.Text(kind, 1), first);
    EXPECT_EQ(editor.Text(kind, 2), second);
    ExpectMember(member.X1, member.Y1, member.X2, member.Y2);
    EXPECT_EQ(drawing.Rod[1], rod);
    ExpectForce(-1, 0);
  }

  void ExpectAccepted() const {
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(redraws, 1);
    ExpectClosed();
  }

  void ExpectClosed() const {
    EXPECT_EQ(drawing.OpenPanel, ValuePanel::None);
    EXPECT_FALSE(drawing.MoveHandleB.Visible);
    EXPECT_FALSE(drawing.MoveHandleS.Visible);
    EXPECT_TRUE(drawing.SupportsEnabled);
  }

  void ExpectMember(float x1, float y1, float x2, float y2) const {
    const MemberRec& member = truss.Members[1];
    EXPECT_EQ(member.X1, x1);
    EXPECT_EQ(member.Y1, y1);
    EXPECT_EQ(member.X2, x2);
    EXPECT_EQ(member.Y2, y2);
  }

  void ExpectForce(float fx, float fy) const {
    EXPECT_EQ(truss.Forces[1].Fx, fx);
    EXPECT_EQ(truss.Forces[1].Fy, fy);
  }
};
