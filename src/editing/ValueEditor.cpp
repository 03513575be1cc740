// Values are computed in double precision and rounded to single once, where they are stored.
#include "editing/ValueEditor.h"

#include <cmath>
#include <limits>
#include <utility>

#include "text/NumberReader.h"
#include "text/NumberText.h"

namespace {

constexpr const char* NotNumbersText = "Invalid input.  The components must be numbers.";
constexpr const char* EraseMemberText = "Invalid input.  Erase the truss member instead.";
constexpr const char* EraseForceText = "Invalid input.  Erase the force instead.";
constexpr const char* MagnitudeText = "Invalid input.  The magnitude must be positive.";

bool FitsSingle(double value) { return std::abs(value) <= double{std::numeric_limits<float>::max()}; }

bool EqualAsSingles(RectangularVector a, RectangularVector b) {
  return static_cast<float>(a.X) == static_cast<float>(b.X) &&
         static_cast<float>(a.Y) == static_cast<float>(b.Y);
}

std::size_t BoxIndex(int box) { return box == 1 ? 0 : 1; }

}  // namespace

ValueEditor::ValueEditor(Partners partners) : on_(std::move(partners)) {}

// --- opening and closing

void ValueEditor::OpenForMember(int member, float t) {
  index_ = member;
  t_ = t;
  Update_frNewCoords(MemberKind);
  on_.Canvas.OpenPanel = ValuePanel::Member;
}

void ValueEditor::OpenForForce(int force) {
  index_ = force;
  Update_frNewCoords(ForceKind);
  on_.Canvas.OpenPanel = ValuePanel::Force;
}

void ValueEditor::Refresh() {
  if (IsOpen(MemberKind)) Update_frNewCoords(MemberKind);
  if (IsOpen(ForceKind)) Update_frNewCoords(ForceKind);
}

bool ValueEditor::IsOpen(EditingKind editingKind) const {
  return on_.Canvas.OpenPanel == (editingKind == MemberKind ? ValuePanel::Member : ValuePanel::Force);
}

// --- what is shown

const std::string& ValueEditor::Label(EditingKind editingKind, int box) const {
  return PanelOf(editingKind).Labels[BoxIndex(box)];
}

const std::string& ValueEditor::Text(EditingKind editingKind, int box) const {
  return PanelOf(editingKind).Texts[BoxIndex(box)];
}

PixelLine ValueEditor::EditedObject(EditingKind editingKind) const {
  if (editingKind == MemberKind) return on_.Canvas.Rod[index_];
  const ForceRec& force = on_.Document.Forces[index_];
  return {force.PixX1, force.PixY1, force.PixX2, force.PixY2};
}

ValueEditor::Ends ValueEditor::MemberEnds() const {
  const MemberRec& member = on_.Document.Members[index_];
  Ends ends{{double{member.X1}, double{member.Y1}}, {double{member.X2}, double{member.Y2}}};
  if (EditsSecondEnd()) std::swap(ends.Edited, ends.Other);
  return ends;
}

void ValueEditor::Fill(Panel& panel, std::array<const char*, 2> labels, double first, double second) const {
  panel.Labels = {labels[0], labels[1]};
  panel.Texts = {SevenDigitText(first, on_.Numbers.DecimalSeparator),
                 SevenDigitText(second, on_.Numbers.DecimalSeparator)};
  panel.ShownTexts = panel.Texts;
  panel.ShownValues = {first, second};
}

void ValueEditor::Update_frNewCoords(EditingKind editingKind) {
  const bool isMember = editingKind == MemberKind;
  Panel& panel = PanelOf(editingKind);
  RectangularVector vector;
  if (isMember) {
    const Ends ends = MemberEnds();
    if (panel.Chosen == Notation::Absolute) {
      Fill(panel, {"abs. x", "abs. y"}, ends.Edited.X, ends.Edited.Y);
      return;
    }
    vector = {ends.Edited.X - ends.Other.X, ends.Edited.Y - ends.Other.Y};
  } else {
    const ForceRec& force = on_.Document.Forces[index_];
    vector = {double{force.Fx}, double{force.Fy}};
  }
  if (panel.Chosen == Notation::Rectangular) {
    Fill(panel, isMember ? std::array{"rel. x", "rel. y"} : std::array{"Fx", "Fy"}, vector.X, vector.Y);
  } else {
    const PolarVector polar = RectangularToPolar(DegreeMode, vector.X, vector.Y);
    Fill(panel, isMember ? std::array{"rel. magnitude", "rel. angle"} : std::array{"magnitude", "angle"},
         polar.Magnitude, polar.Angle);
  }
}

// --- what the user does

void ValueEditor::optNotation_Click(EditingKind editingKind, Notation notation) {
  PanelOf(editingKind).Chosen = notation;
  if (IsOpen(editingKind)) Update_frNewCoords(editingKind);
}

void ValueEditor::txtNewCoords_Change(EditingKind editingKind, int box, const std::string& text) {
  PanelOf(editingKind).Texts[BoxIndex(box)] = text;
}

// A box that still shows what it was filled with stands for the value itself: seven digits of 1/3 would move
// an end by a rounding step and take the joint apart.
std::optional<double> ValueEditor::Number(const Panel& panel, std::size_t box) const {
  if (panel.Texts[box] == panel.ShownTexts[box]) return panel.ShownValues[box];
  return ReadTypedNumber(panel.Texts[box], on_.Numbers.DecimalSeparator);
}

// The position or force that two typed numbers mean, before it is rounded.
RectangularVector ValueEditor::NewValues(EditingKind editingKind, double first, double second) const {
  const Notation notation = PanelOf(editingKind).Chosen;
  RectangularVector values{first, second};
  if (notation == Notation::Polar) values = PolarToRectangular(DegreeMode, first, second);
  if (editingKind != MemberKind || notation == Notation::Absolute) return values;
  const RectangularVector other = MemberEnds().Other;
  return {other.X + values.X, other.Y + values.Y};
}

// The text of the first rule that the input breaks, or null. The order of the rules is part of what they say:
// for a polar member of no length the text is that about the magnitude, not that about erasing.
const char* ValueEditor::Refusal(EditingKind editingKind) const {
  const Panel& panel = PanelOf(editingKind);
  const auto first = Number(panel, 0);
  const auto second = Number(panel, 1);
  if (!first || !second) return NotNumbersText;
  if (panel.Chosen == Notation::Polar && *first <= 0) return MagnitudeText;
  const RectangularVector values = NewValues(editingKind, *first, *second);
  if (!FitsSingle(values.X) || !FitsSingle(values.Y)) return NotNumbersText;
  if (editingKind == MemberKind) {
    // Also where an offset is too small to be seen beside a large coordinate.
    return EqualAsSingles(values, MemberEnds().Other) ? EraseMemberText : nullptr;
  }
  return EqualAsSingles(values, {}) ? EraseForceText : nullptr;
}

bool ValueEditor::BadInput(EditingKind editingKind) {
  const char* refusal = Refusal(editingKind);
  if (refusal == nullptr) return false;
  on_.Messages.Show(Message{.Text = refusal, .Icon = MessageIcon::Critical});
  return true;
}

void ValueEditor::cmdNewCoordsOK_Click(EditingKind editingKind) {
  if (!IsOpen(editingKind) || BadInput(editingKind)) return;
  const Panel& panel = PanelOf(editingKind);
  const RectangularVector values = NewValues(editingKind, *Number(panel, 0), *Number(panel, 1));
  Deselect(on_.Canvas);
  if (editingKind == MemberKind) {
    StoreEnd(values);
  } else {
    StoreForce(values);
  }
  on_.Redraw();
}

void ValueEditor::cmdNewCoordsCancel_Click(EditingKind editingKind) {
  if (IsOpen(editingKind)) Deselect(on_.Canvas);
}

void ValueEditor::StoreEnd(RectangularVector end) {
  const auto x = static_cast<float>(end.X);
  const auto y = static_cast<float>(end.Y);
  const Graph& graph = on_.Canvas.Mapping;
  MemberRec& member = on_.Document.Members[index_];
  PixelLine& rod = on_.Canvas.Rod[index_];
  if (EditsSecondEnd()) {
    member.X2 = x;
    member.Y2 = y;
    rod.X2 = graph.XPixel(x);
    rod.Y2 = graph.YPixel(y);
  } else {
    member.X1 = x;
    member.Y1 = y;
    rod.X1 = graph.XPixel(x);
    rod.Y1 = graph.YPixel(y);
  }
}

void ValueEditor::StoreForce(RectangularVector components) {
  ForceRec& force = on_.Document.Forces[index_];
  force.Fx = static_cast<float>(components.X);
  force.Fy = static_cast<float>(components.Y);
}
