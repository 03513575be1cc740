// What the mouse handlers may ask of the numerical value editor: to open on what was picked, and to
// follow a drag. They know nothing else of it.
#pragma once

/// While the editor is open, Drawing::OpenPanel says which of its panels stands on the canvas; Deselect
/// closes it. Handles and supports are the caller's business.
class ValueEditorHost {
 public:
  virtual ~ValueEditorHost() = default;

  /// Opens the panel for a live member, or fills it anew when it is open. A fraction `t` above 0.5 edits end
  /// 2, any other end 1.
  virtual void OpenForMember(int member, float t) = 0;

  /// Opens the panel for an active force, or fills it anew when it is open.
  virtual void OpenForForce(int force) = 0;

  /// The values of the edited element have changed in its record: shows them. Nothing when it is closed.
  virtual void Refresh() = 0;
};
