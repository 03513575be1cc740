// The writer's and the reader's order of the four switches differ: a saved file gives its show-grid value to
// snap-to-object, show-rulers to snap-to-grid, snap-to-grid to show-grid and snap-to-object to show-rulers.
// Files written that way are in use, so both orders stay.
#include "document/TrussText.h"

#include "document/JointList.h"
#include "document/Labels.h"
#include "text/NumberText.h"

namespace {

constexpr const char* CounterFullWhy =
    "the truss would need more labels or arrow lines than a 16-bit number counts";

void ReadCurrentSettings(FieldReader& fields, DocumentSettings& settings) {
  settings.SnapObject = fields.NextBoolean();
  settings.SnapGrid = fields.NextBoolean();
  settings.GridOn = fields.NextBoolean();
  settings.RulersOn = fields.NextBoolean();
  settings.XMin = fields.NextSingle();
  settings.XMax = fields.NextSingle();
  settings.HatchSpacing = fields.NextTaggedNumber();
  settings.GridX = fields.NextSingle();
  settings.YMin = fields.NextSingle();
  settings.GridY = fields.NextSingle();
  settings.ForceScale = fields.NextSingle();
  settings.SigFigs = fields.NextInteger();
}

// The older layout has no switches, and two fields of unknown meaning.
void ReadOlderSettings(FieldReader& fields, DocumentSettings& settings) {
  settings.XMin = fields.NextSingle();
  settings.XMax = fields.NextSingle();
  settings.HatchSpacing = fields.NextSingle();
  settings.GridX = fields.NextSingle();
  settings.YMin = fields.NextSingle();
  fields.NextField();
  fields.NextField();
  settings.GridY = fields.NextSingle();
  settings.ForceScale = fields.NextSingle();
  settings.SigFigs = fields.NextInteger();
}

// Appends a default record for `counter` to count; the count itself goes up when the element is complete.
template <class Record>
Record& NextRecord(Table<Record>& table, std::int16_t counter) {
  table.GrowTo(counter + 1);
  table[counter + 1] = Record{};
  return table[counter + 1];
}

// The counts of all four sections come from here; a negative one skips its section like 0.
template <class ReadElement>
void ReadSection(FieldReader& fields, const ReadElement& readElement) {
  const std::int16_t count = fields.NextInteger();
  for (int i = 1; i <= count; ++i) readElement();
}

void ReadSupport(FieldReader& fields, Truss& truss) {
  SupportRec& support = NextRecord(truss.Supports, truss.NumSupports);
  support.X = fields.NextSingle();
  support.Y = fields.NextSingle();
  support.TypeIndex = fields.NextInteger();
  if (support.TypeIndex < 1 || support.TypeIndex > LastSupportType) {
    fields.Fail("there is no support of type " + std::to_string(support.TypeIndex) + "; types are 1 to 8");
  }
  if (!CreateSupportLabels(truss, truss.NumSupports + 1)) fields.Fail(CounterFullWhy);
  support.Live = true;
  ++truss.NumSupports;
  truss.Labels[support.NameLabel1].Caption = fields.NextName();
  if (support.IsClamp()) truss.Labels[support.NameLabel2].Caption = fields.NextName();
}

void ReadMember(FieldReader& fields, Truss& truss) {
  MemberRec& member = NextRecord(truss.Members, truss.NumMembers);
  member.X1 = fields.NextSingle();
  member.Y1 = fields.NextSingle();
  member.X2 = fields.NextSingle();
  member.Y2 = fields.NextSingle();
  SharedText name1 = fields.NextName();
  SharedText name2 = fields.NextName();
  if (!CreateMemberLabels(truss, truss.NumMembers + 1)) fields.Fail(CounterFullWhy);
  member.Live = true;
  ++truss.NumMembers;
  truss.Labels[member.NameLabel1].Caption = std::move(name1);
  truss.Labels[member.NameLabel2].Caption = std::move(name2);
}

void ReadForce(FieldReader& fields, Truss& truss) {
  ForceRec& force = NextRecord(truss.Forces, truss.NumForces);
  force.X = fields.NextSingle();
  force.Y = fields.NextSingle();
  force.Fx = fields.NextSingle();
  force.Fy = fields.NextSingle();
  force.Active = true;
  ++truss.NumForces;
}

void ReadJoint(FieldReader& fields, Truss& truss) {
  JointRec& joint = NextRecord(truss.Joints, truss.NumJoints);
  joint.X = fields.NextSingle();
  joint.Y = fields.NextSingle();
  SharedText name = fields.NextName();
  joint.NameLabel = CreateJointLabel(truss);
  if (joint.NameLabel == 0) fields.Fail(CounterFullWhy);
  ++truss.NumJoints;
  truss.Labels[joint.NameLabel].Caption = std::move(name);
}

void ReadDocument(FieldReader& fields, Truss& truss) {
  if (fields.RestOfLine() == TrussFileHeader) {
    ReadCurrentSettings(fields, truss.Settings);
  } else {
    ReadOlderSettings(fields, truss.Settings);
  }
  ReadSection(fields, [&] { ReadSupport(fields, truss); });
  ReadSection(fields, [&] { ReadMember(fields, truss); });
  ReadSection(fields, [&] { ReadForce(fields, truss); });
  ReadSection(fields, [&] { ReadJoint(fields, truss); });
}

// One write statement: fields joined by commas, ended by CR LF.
class LineWriter {
 public:
  explicit LineWriter(LongText& text) : text_(text) {}
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;
  ~LineWriter() { text_ += "\r\n"; }

  LineWriter& Add(float number) { return AddField(GeneralText(number)); }
  LineWriter& Add(int number) { return AddField(std::to_string(number)); }
  LineWriter& Add(const TaggedNumber& number) { return AddField(TaggedNumberText(number)); }
  LineWriter& Add(const SharedText& name) {
    AddField("\"");
    text_.Share(name);
    text_ += "\"";
    return *this;
  }
  LineWriter& AddSwitch(bool on) { return AddField(on ? "#TRUE#" : "#FALSE#"); }

 private:
  LineWriter& AddField(std::string_view field) {
    if (!first_) text_ += ",";
    first_ = false;
    text_ += field;
    return *this;
  }

  LongText& text_;
  bool first_ = true;
};

void AddSettings(LongText& text, const DocumentSettings& settings) {
  LineWriter(text)
      .AddSwitch(settings.GridOn)
      .AddSwitch(settings.RulersOn)
      .AddSwitch(settings.SnapGrid)
      .AddSwitch(settings.SnapObject);
  LineWriter(text).Add(settings.XMin);
  LineWriter(text).Add(settings.XMax);
  LineWriter(text).Add(settings.HatchSpacing);
  LineWriter(text).Add(settings.GridX);
  LineWriter(text).Add(settings.YMin);
  LineWriter(text).Add(settings.GridY);
  LineWriter(text).Add(settings.ForceScale);
  LineWriter(text).Add(int{settings.SigFigs});
}

void AddSupports(LongText& text, const Truss& truss) {
  LineWriter(text).Add(NumLiveSupports(truss));
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    LineWriter(text).Add(support.X).Add(support.Y).Add(int{support.TypeIndex});
    LineWriter names(text);
    names.Add(truss.Name(support.NameLabel1));
    if (support.IsClamp()) names.Add(truss.Name(support.NameLabel2));
  }
}

void AddMembers(LongText& text, const Truss& truss) {
  LineWriter(text).Add(NumLiveMembers(truss));
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    LineWriter line(text);
    line.Add(member.X1).Add(member.Y1).Add(member.X2).Add(member.Y2);
    line.Add(truss.Name(member.NameLabel1)).Add(truss.Name(member.NameLabel2));
  }
}

void AddForces(LongText& text, const Truss& truss) {
  LineWriter(text).Add(NumActiveForces(truss));
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) LineWriter(text).Add(force.X).Add(force.Y).Add(force.Fx).Add(force.Fy);
  }
}

void AddJoints(LongText& text, const Truss& truss) {
  LineWriter(text).Add(int{truss.NumJoints});
  for (const JointRec& joint : truss.JointsInUse()) {
    LineWriter(text).Add(joint.X).Add(joint.Y).Add(truss.Name(joint.NameLabel));
  }
}

}  // namespace

TrussReading ReadTrussWithRest(Truss& truss, const CanvasBounds& bounds, std::string_view text) {
  return ReadTrussWithRest(truss, bounds, std::make_shared<const std::string>(text));
}

TrussReading ReadTrussWithRest(Truss& truss, const CanvasBounds& bounds,
                               std::shared_ptr<const std::string> text) {
  TrussReading reading;
  FieldReader fields(std::move(text));
  try {
    ReadDocument(fields, truss);
    reading.UnreadLine = fields.UnreadLine();
  } catch (const ReadError& readError) {
    reading.Error = readError;
  }
  truss.View = DeriveView(truss.Settings, bounds);
  return reading;
}

std::optional<ReadError> ReadTrussText(Truss& truss, const CanvasBounds& bounds, std::string_view text) {
  return ReadTrussWithRest(truss, bounds, text).Error;
}

LongText LongTrussText(Truss& truss) {
  SortJoints(truss);
  LongText text;
  text += TrussFileHeader;
  text += "\r\n";
  AddSettings(text, truss.Settings);
  AddSupports(text, truss);
  AddMembers(text, truss);
  AddForces(text, truss);
  AddJoints(text, truss);
  return text;
}

std::string TrussText(Truss& truss) { return LongTrussText(truss).Text(); }

ManyBytes TrussBytes(Truss& truss) {
  const auto text = std::make_shared<const LongText>(LongTrussText(truss));
  return {text->Size(), [text](const ManyBytes::Take& take) {
            int error = 0;
            text->ForEachPart([&](std::string_view part) {
              if (error == 0) error = take(part);
            });
            return error;
          }};
}
