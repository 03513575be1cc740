// While it is drawn the member is a record of no length at the end of the table, without pins and labels.
#include "editing/MemberDrawing.h"

#include "canvas/DoLabel.h"
#include "document/Labels.h"

namespace {

void AppendMember(const EditingContext& on, const MemberRec& member) {
  Truss& truss = on.Document;
  truss.Members.GrowTo(++truss.NumMembers);
  truss.Members[truss.NumMembers] = member;
}

bool CreateMember(const EditingContext& on, const MemberRec& member) {
  AppendMember(on, member);
  return DoLabel(on.Picture, on.Document, TextMeasure{}, LabelMode::Create, LabelClass::Member,
                 on.Document.NumMembers);
}

class MemberDrawing final : public Drag {
 public:
  MemberDrawing(const EditingContext& on, const SnappedPoint& start) : on_(on), start_(start) {
    AppendMember(on_, {.X1 = start.X, .Y1 = start.Y, .X2 = start.X, .Y2 = start.Y, .Live = true});
    index_ = on_.Document.NumMembers;
    on_.Picture.Rod.Resize(index_);
    Stretch(start.Pixel);
  }

  int SelfObject() const override { return index_; }

  void Move(const SnappedPoint& point, PixelPoint /*mouse*/) override {
    if (IsThere()) Stretch(point.Pixel);
  }

  void Release(const SnappedPoint& point, PixelPoint /*mouse*/) override {
    if (!IsThere()) return;
    Drop();
    if (SamePlace(start_, point)) {
      on_.ShowDrawing();
      return;
    }
    ChangeTruss(on_, [&] {
      return CreateMember(on_, {.X1 = start_.X, .Y1 = start_.Y, .X2 = point.X, .Y2 = point.Y, .Live = true});
    });
  }

  void Cancel() override {
    if (!IsThere()) return;
    Drop();
    on_.ShowDrawing();
  }

 private:
  bool IsThere() const { return on_.Document.NumMembers == index_ && on_.Picture.Rod.Size() == index_; }

  void Stretch(PixelPoint end) {
    on_.Picture.Rod[index_] = {start_.Pixel.X, start_.Pixel.Y, end.X, end.Y};
    on_.ShowDrawing();
  }

  void Drop() {
    --on_.Document.NumMembers;
    on_.Picture.Rod.Resize(on_.Document.NumMembers);
  }

  const EditingContext& on_;
  SnappedPoint start_;
  int index_ = 0;
};

// Tried on a copy, so that the message that there is no room comes at the press and not after the drag.
bool HasRoom(const Truss& truss) {
  if (truss.NumMembers == MaxCount) return false;
  if (truss.NumLabels + 2 <= MaxCount && truss.NumArrowLines + 2 * SegmentsPerArrow <= MaxCount) return true;
  Truss tried = truss;
  tried.Members.GrowTo(++tried.NumMembers);
  tried.Members[tried.NumMembers] = MemberRec{};
  return CreateMemberLabels(tried, tried.NumMembers);
}

}  // namespace

std::unique_ptr<Drag> BeginMember(const EditingContext& on, const SnappedPoint& start) {
  if (HasRoom(on.Document)) return std::make_unique<MemberDrawing>(on, start);
  ShowTrussFull(on.Messages);
  return nullptr;
}
