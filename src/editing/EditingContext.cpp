// A change is tried on the truss itself and taken back from a copy, so that a refusal leaves nothing behind.
#include "editing/EditingContext.h"

#include "document/JointList.h"

void ShowTrussFull(MessageBox& messages) {
  messages.Show(Message{.Text = TrussFullText, .Icon = MessageIcon::Exclamation});
}

bool ChangeTruss(const EditingContext& on, const std::function<bool()>& change) {
  const Truss before = on.Document;
  const bool fits = change() && CheckJoints(on.Document);
  if (!fits) on.Document = before;
  on.Redraw();
  // The message comes last: while it waits for its answer, events may reach the handlers.
  if (!fits) ShowTrussFull(on.Messages);
  return fits;
}
