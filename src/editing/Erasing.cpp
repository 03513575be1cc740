#include "editing/Erasing.h"

#include "canvas/DoLabel.h"

void EraseObject(const EditingContext& on, const Selection& object) {
  if (!IsLive(on.Document, object)) return;
  if (object.Type == ObjectType::Member) {
    on.Document.Members[object.Index].Live = false;
    RemoveLabels(on.Picture, on.Document, LabelClass::Member, object.Index);
  } else {
    on.Document.Forces[object.Index].Active = false;
  }
  on.Redraw();
}

void EraseSupport(const EditingContext& on, int support) {
  on.Document.Supports[support].Live = false;
  RemoveLabels(on.Picture, on.Document, LabelClass::Support, support);
  on.Redraw();
}
