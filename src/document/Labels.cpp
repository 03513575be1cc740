// The index rule in one place: fresh indices first, then what erased elements had.
#include "document/Labels.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr int MostComponents = 2;

// The labels and arrows that an element can take: the first label, and the last segment of each arrow.
struct FreePlaces {
  int FirstLabel = 0;
  std::array<int, MostComponents> LastSegments{};
};

// The last index of the first `length` indices in a row, all tagged, that begin after `after`; 0 if none.
template <class IsTagged>
int FindTaggedRun(int count, int length, int after, const IsTagged& isTagged) {
  int run = 0;
  for (int i = after + 1; i <= count; ++i) {
    run = isTagged(i) ? run + 1 : 0;
    if (run == length) return i;
  }
  return 0;
}

int FindLabels(const Truss& truss, int length) {
  if (truss.NumLabels + length <= MaxCount) return truss.NumLabels + 1;
  const int last = FindTaggedRun(truss.NumLabels, length, 0,
                                 [&truss](int i) { return truss.Labels[i].Tag == DeletedTag; });
  return last == 0 ? 0 : last - length + 1;
}

std::optional<FreePlaces> FindPlaces(const Truss& truss, int components) {
  FreePlaces places;
  places.FirstLabel = FindLabels(truss, components);
  if (places.FirstLabel == 0) return std::nullopt;
  int segments = truss.NumArrowLines;
  int tagged = 0;
  for (int i = 0; i < components; ++i) {
    int& last = places.LastSegments.at(static_cast<std::size_t>(i));
    if (segments + SegmentsPerArrow <= MaxCount) {
      segments += SegmentsPerArrow;
      last = segments;
      continue;
    }
    tagged = FindTaggedRun(truss.NumArrowLines, SegmentsPerArrow, tagged,
                           [&truss](int segment) { return truss.ArrowLineTags[segment] == DeletedTag; });
    if (tagged == 0) return std::nullopt;
    last = tagged;
  }
  return places;
}

// An erased element must not go on pointing at labels that now name something else.
template <class Records>
void ForgetLabels(Records records, int first, int last) {
  const auto taken = [first, last](LabelIndex label) { return label >= first && label <= last; };
  for (auto& record : records) {
    if (record.Live || (!taken(record.NameLabel1) && !taken(record.NameLabel2))) continue;
    record.NameLabel1 = 0;
    record.NameLabel2 = 0;
  }
}

void TakeLabels(Truss& truss, int first, int length) {
  const int last = first + length - 1;
  if (first <= truss.NumLabels) {
    ForgetLabels(truss.MembersInUse(), first, last);
    ForgetLabels(truss.SupportsInUse(), first, last);
  }
  if (last > truss.NumLabels) truss.NumLabels = static_cast<std::int16_t>(last);
  truss.Labels.GrowTo(last);
  for (int label = first; label <= last; ++label) truss.Labels[label] = NameLabel{};
}

std::int16_t TakeArrow(Truss& truss, int lastSegment) {
  if (lastSegment > truss.NumArrowLines) truss.NumArrowLines = static_cast<std::int16_t>(lastSegment);
  truss.ArrowLineTags.GrowTo(lastSegment);
  for (int i = 0; i < SegmentsPerArrow; ++i) truss.ArrowLineTags[lastSegment - i].clear();
  return static_cast<std::int16_t>(lastSegment);
}

// Gives the first `components` of an element's two labels and arrows.
template <class Record>
bool CreateLabels(Truss& truss, Record& record, int components) {
  const auto places = FindPlaces(truss, components);
  if (!places) return false;
  TakeLabels(truss, places->FirstLabel, components);
  const bool isPair = components == 2;
  record.NameLabel1 = static_cast<LabelIndex>(places->FirstLabel);
  record.NameLabel2 = isPair ? static_cast<LabelIndex>(places->FirstLabel + 1) : LabelIndex{0};
  record.ArrowLine1 = TakeArrow(truss, places->LastSegments[0]);
  record.ArrowLine2 = isPair ? TakeArrow(truss, places->LastSegments[1]) : std::int16_t{0};
  return true;
}

void DeleteArrow(Truss& truss, int lastSegment) {
  for (int i = 0; i < SegmentsPerArrow; ++i) truss.ArrowLineTags[lastSegment - i] = DeletedTag;
}

}  // namespace

bool CreateMemberLabels(Truss& truss, int index) { return CreateLabels(truss, truss.Members[index], 2); }

bool CreateSupportLabels(Truss& truss, int index) {
  SupportRec& support = truss.Supports[index];
  return CreateLabels(truss, support, support.IsClamp() ? 2 : 1);
}

LabelIndex CreateJointLabel(Truss& truss) {
  if (FindLabels(truss, 1) == 0) return 0;
  JointRec joint;
  CreateJointLabels(truss, {&joint, 1});
  return joint.NameLabel;
}

int NumFreeLabels(const Truss& truss) {
  return MaxCount - truss.NumLabels +
         static_cast<int>(
             std::ranges::count(truss.Labels.First(truss.NumLabels), DeletedTag, &NameLabel::Tag));
}

void CreateJointLabels(Truss& truss, std::span<JointRec> joints) {
  int tagged = 0;  // the search goes on behind the label that was found last
  for (JointRec& joint : joints) {
    if (joint.NameLabel != 0) continue;
    int label = truss.NumLabels + 1;
    if (truss.NumLabels == MaxCount) {
      tagged = FindTaggedRun(truss.NumLabels, 1, tagged,
                             [&truss](int i) { return truss.Labels[i].Tag == DeletedTag; });
      label = tagged;
    }
    TakeLabels(truss, label, 1);
    truss.Labels[label].FontSize = JointFontSize;
    truss.Labels[label].Bold = true;
    joint.NameLabel = static_cast<LabelIndex>(label);
  }
}

void DeleteMemberLabels(Truss& truss, int index) {
  const MemberRec& member = truss.Members[index];
  truss.Labels[member.NameLabel1].Tag = DeletedTag;
  truss.Labels[member.NameLabel2].Tag = DeletedTag;
  DeleteArrow(truss, member.ArrowLine1);
  DeleteArrow(truss, member.ArrowLine2);
}

void DeleteSupportLabels(Truss& truss, int index) {
  const SupportRec& support = truss.Supports[index];
  truss.Labels[support.NameLabel1].Tag = DeletedTag;
  DeleteArrow(truss, support.ArrowLine1);
  if (!support.IsClamp()) return;
  truss.Labels[support.NameLabel2].Tag = DeletedTag;
  DeleteArrow(truss, support.ArrowLine2);
}
