// The numerical value editor: it shows the position of a member's end, or the components of a force, in the
// notation that the user chooses, checks what he types and writes it into the truss. Whether its panel is
// open is said by Drawing::OpenPanel, so that a redraw or another tool closes it without asking.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "canvas/Drawing.h"
#include "canvas/Polar.h"
#include "document/Truss.h"
#include "editing/Picking.h"
#include "editing/ValueEditorHost.h"
#include "platform/MessageBox.h"
#include "platform/NumberFormat.h"

/// How a position or a force is written. Forces have no absolute notation.
enum class Notation { Absolute, Rectangular, Polar };

/// The two variants of the panel; each keeps the notation that was chosen on it last.
enum EditingKind : int { MemberKind = 1, ForceKind = 2 };

class ValueEditor final : public ValueEditorHost {
 public:
  /// What the editor works with; all of it must outlive the editor.
  struct Partners {
    Truss& Document;
    Drawing& Canvas;
    MessageBox& Messages;
    NumberFormat Numbers;          ///< of the user's locale
    std::function<void()> Redraw;  ///< redraws everything after the truss has changed
  };

  explicit ValueEditor(Partners partners);

  // What mouse and keyboard on the canvas ask for; handles and supports stay as the caller sets them.
  void OpenForMember(int member, float t) override;
  void OpenForForce(int force) override;
  void Refresh() override;

  // The panel's controls.

  /// Fills labels and boxes with the stored values; what was typed is lost.
  void Update_frNewCoords(EditingKind editingKind);

  /// An option was clicked: shows the stored values in that notation.
  void optNotation_Click(EditingKind editingKind, Notation notation);

  /// Box 1 or 2 was typed into. The text is a single-byte text.
  void txtNewCoords_Change(EditingKind editingKind, int box, const std::string& text);

  /// Whether what stands in the boxes is refused; the user has then been told why.
  bool BadInput(EditingKind editingKind);

  /// Writes what stands in the boxes into the truss, closes the panel and redraws; when it is refused, all
  /// stays as it was. Nothing while the panel is closed.
  void cmdNewCoordsOK_Click(EditingKind editingKind);

  void cmdNewCoordsCancel_Click(EditingKind editingKind);

  // What the panel shows.

  bool IsOpen(EditingKind editingKind) const;
  Notation ChosenNotation(EditingKind editingKind) const { return PanelOf(editingKind).Chosen; }
  /// Box and label 1 or 2; single-byte texts.
  const std::string& Label(EditingKind editingKind, int box) const;
  const std::string& Text(EditingKind editingKind, int box) const;

  /// The 1-based member or force that is edited.
  int Index() const { return index_; }

  /// The line of the member or force that is edited, in pixels, so that the panel can keep off it.
  PixelLine EditedObject(EditingKind editingKind) const;

 private:
  struct Panel {
    Notation Chosen = Notation::Absolute;
    std::array<std::string, 2> Labels, Texts;
    std::array<std::string, 2> ShownTexts{};  // as they were filled in
    std::array<double, 2> ShownValues{};      // what the shown texts stand for, with all its digits
  };

  // World coordinates of a member's ends, as far as they matter here.
  struct Ends {
    RectangularVector Edited, Other;
  };

  Panel& PanelOf(EditingKind editingKind) { return editingKind == MemberKind ? memberPanel_ : forcePanel_; }
  const Panel& PanelOf(EditingKind editingKind) const {
    return editingKind == MemberKind ? memberPanel_ : forcePanel_;
  }
  bool EditsSecondEnd() const { return IsEnd2Nearer(t_); }
  Ends MemberEnds() const;
  void Fill(Panel& panel, std::array<const char*, 2> labels, double first, double second) const;
  std::optional<double> Number(const Panel& panel, std::size_t box) const;
  const char* Refusal(EditingKind editingKind) const;
  RectangularVector NewValues(EditingKind editingKind, double first, double second) const;
  void StoreEnd(RectangularVector end);
  void StoreForce(RectangularVector components);

  Partners on_;
  Panel memberPanel_{.Chosen = Notation::Absolute, .Labels = {}, .Texts = {}};
  Panel forcePanel_{.Chosen = Notation::Rectangular, .Labels = {}, .Texts = {}};
  int index_ = 0;
  float t_ = 0;  // where the member was picked: 0 at end 1, 1 at end 2
};
