// The document: one plane, pin-jointed truss as a set of 1-based tables with 16-bit counters, the labels that
// carry its names, and its settings. There is one of it in the program; everyone reads and writes it
// directly.
#pragma once

#include <cstdint>
#include <string>

#include "document/DocumentSettings.h"
#include "document/Table.h"
#include "text/SharedText.h"

/// Index of a name label, 1 .. NumLabels; 0 means none.
using LabelIndex = std::int16_t;

/// No counter of the document passes this.
inline constexpr int MaxCount = 32767;

/// Each joint gives two equations, and their number is a 16-bit number too.
inline constexpr int MaxJoints = MaxCount / 2;

/// The caption of an element that has no name yet.
inline constexpr const char* UnnamedCaption = "[ ]";

/// The tag of labels and arrow segments that belong to nothing any more and are never shown again.
inline constexpr const char* DeletedTag = "del";

/// Support type codes: 1 to 4 are clamps (two reaction components, +x and +y), 5 to 8 rollers (one
/// component: +y, -y, -x, +x).
inline constexpr std::int16_t LastClampType = 4;
inline constexpr std::int16_t LastSupportType = 8;

/// A member between two ends; world coordinates. Ends meet others only where coordinates are exactly equal.
struct MemberRec {
  float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  LabelIndex NameLabel1 = 0;    ///< the label that names the member force
  LabelIndex NameLabel2 = 0;    ///< always shows the same name
  std::int16_t ArrowLine1 = 0;  ///< last of the 4 segments of the arrow near end 1
  std::int16_t ArrowLine2 = 0;  ///< last of the 4 segments of the arrow near end 2
  bool Live = false;            ///< its line is shown; erasing clears this and leaves the record
};

struct SupportRec {
  std::int16_t TypeIndex = 0;  ///< 1 to 8
  float X = 0, Y = 0;          ///< world coordinates of the supported point
  LabelIndex NameLabel1 = 0;   ///< first reaction component
  LabelIndex NameLabel2 = 0;   ///< second reaction component; 0 for a roller, where it is never read
  std::int16_t ArrowLine1 = 0;
  std::int16_t ArrowLine2 = 0;
  bool Live = false;  ///< its picture is shown

  bool IsClamp() const { return TypeIndex <= LastClampType; }
};

struct ForceRec {
  float PixX1 = 0, PixY1 = 0;  ///< pixels: the arrow's tail as last drawn
  float PixX2 = 0, PixY2 = 0;  ///< pixels: the arrow's head as last drawn
  float X = 0, Y = 0;          ///< world coordinates of the point of application
  float Fx = 0, Fy = 0;        ///< force units
  bool Active = false;         ///< erasing clears this and leaves the record
};

struct JointRec {
  float X = 0, Y = 0;  ///< world coordinates
  LabelIndex NameLabel = 0;
};

/// A name on the drawing. Names are single-byte texts of code page Windows-1252.
struct NameLabel {
  SharedText Caption = SharedText::OfConstant(UnnamedCaption);
  std::string Tag;
  float FontSize = 8;  ///< points
  bool Bold = false;
};

struct Truss {
  Table<MemberRec> Members;
  Table<SupportRec> Supports;
  Table<ForceRec> Forces;
  Table<JointRec> Joints;
  Table<NameLabel> Labels;           ///< 1 .. NumLabels
  Table<std::string> ArrowLineTags;  ///< 1 .. NumArrowLines

  // Records beyond these counters are stale and mean nothing.
  std::int16_t NumMembers = 0;   ///< erased ones included
  std::int16_t NumSupports = 0;  ///< erased ones included
  std::int16_t NumForces = 0;    ///< erased ones included
  std::int16_t NumJoints = 0;
  std::int16_t NumLabels = 0;      ///< the highest label index in use
  std::int16_t NumArrowLines = 0;  ///< 4 for each arrow

  DocumentSettings Settings;
  DerivedView View;

  /// Path (UTF-8) that the truss was read from or last saved to; empty: untitled.
  std::string FileName;

  // Loops over the records in use.
  auto MembersInUse() { return Members.First(NumMembers); }
  auto MembersInUse() const { return Members.First(NumMembers); }
  auto SupportsInUse() { return Supports.First(NumSupports); }
  auto SupportsInUse() const { return Supports.First(NumSupports); }
  auto ForcesInUse() { return Forces.First(NumForces); }
  auto ForcesInUse() const { return Forces.First(NumForces); }
  auto JointsInUse() { return Joints.First(NumJoints); }
  auto JointsInUse() const { return Joints.First(NumJoints); }

  /// The caption of a label.
  const SharedText& Name(LabelIndex label) const { return Labels[label].Caption; }
};

/// Empties the document: counters go to 0 and the truss is untitled. The settings stay, and so does the
/// storage of the tables.
void ResetAll(Truss& truss);

int NumLiveMembers(const Truss& truss);
int NumLiveSupports(const Truss& truss);
int NumActiveForces(const Truss& truss);
