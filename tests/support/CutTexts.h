// Finds texts that a window shows only in part: every label, caption and box, measured in the font that it is
// painted in against the place that it has.
#pragma once

#include <QtWidgets>
#include <string>
#include <vector>

/// The widgets of a window whose text is cut, each with its text. Texts that a user scrolls are looked at for
/// their height only, and so is what stands inside a text box, a tree or a table.
class CutTexts {
 public:
  static std::vector<std::string> In(const QWidget& window) {
    CutTexts cut;
    cut.LookAt(window);
    return cut.found_;
  }

 private:
  static constexpr int Whole = 1;  // pixels that rounding may take at a fractional scale

  void LookAt(const QWidget& widget) {
    if (!widget.isVisible()) return;
    LookAtText(widget);
    if (qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr) return;
    for (const QObject* child : widget.children()) {
      const auto* inner = qobject_cast<const QWidget*>(child);
      if (inner != nullptr && !inner->isWindow()) LookAt(*inner);
    }
  }

  void LookAtText(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
      const int flags = static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0) |
                        (label->buddy() != nullptr ? Qt::TextShowMnemonic : 0);
      Compare(widget, label->text().trimmed(), flags, label->contentsRect().size());
    } else if (const auto* push = qobject_cast<const QPushButton*>(&widget)) {
      QStyleOptionButton option;
      option.initFrom(push);
      Compare(widget, push->text(), Qt::TextShowMnemonic,
              push->style()->subElementRect(QStyle::SE_PushButtonContents, &option, push).size());
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
      LookAtButton(*button);
    } else if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
      LookAtLine(*line);
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
      QStyleOptionComboBox option;
      option.initFrom(combo);
      const QRect field =
          combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
      Compare(widget, combo->currentText(), 0, field.size());
    } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
      Compare(widget, group->title(), Qt::TextShowMnemonic, group->size());
    } else if (const auto* menu = qobject_cast<const QMenuBar*>(&widget)) {
      for (QAction* action : menu->actions()) {
        const QRect place = menu->actionGeometry(action);
        if (!menu->rect().contains(place)) Report(widget, action->text());
        Compare(widget, action->text(), Qt::TextShowMnemonic, place.size());
      }
    }
  }

  void LookAtButton(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto place = [&](QStyle::SubElement element) {
      return button.style()->subElementRect(element, &option, &button).size();
    };
    if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
      Compare(button, button.text(), Qt::TextShowMnemonic, place(QStyle::SE_CheckBoxContents));
    } else if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
      Compare(button, button.text(), Qt::TextShowMnemonic, place(QStyle::SE_RadioButtonContents));
    } else if (button.icon().isNull()) {
      Compare(button, button.text(), Qt::TextShowMnemonic, button.size());
    }
  }

  void LookAtLine(const QLineEdit& line) {
    QStyleOptionFrame option;
    option.initFrom(&line);
    option.lineWidth =
        line.hasFrame() ? line.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &line) : 0;
    QSize room = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line).size();
    const QMargins margins = line.textMargins();
    constexpr int sideMargins = 4;  // that the toolkit keeps free beside the text
    room.rwidth() -= margins.left() + margins.right() + sideMargins;
    Compare(line, line.text(), Qt::TextSingleLine, room);
  }

  void Compare(const QWidget& widget, const QString& text, int flags, QSize room) {
    if (text.isEmpty()) return;
    const QSize needed = QFontMetrics(widget.font())
                             .boundingRect(QRect(0, 0, room.width(), QWIDGETSIZE_MAX), flags, text)
                             .size();
    const bool fits = needed.width() <= room.width() + Whole && needed.height() <= room.height() + Whole;
    if (fits && !IsCovered(widget)) return;
    Report(widget, QStringLiteral("%1 (%2 by %3 in %4 by %5)")
                       .arg(text)
                       .arg(needed.width())
                       .arg(needed.height())
                       .arg(room.width())
                       .arg(room.height()));
  }

  // Whether a part of it lies outside a widget that it stands in.
  static bool IsCovered(const QWidget& widget) {
    QRect place = widget.rect();
    for (const QWidget* at = &widget; !at->isWindow(); at = at->parentWidget()) {
      place.translate(at->pos());
      if (!at->parentWidget()->rect().contains(place)) return true;
    }
    return false;
  }

  void Report(const QWidget& widget, const QString& text) {
    found_.push_back((widget.objectName() + QStringLiteral(": ") + text).toStdString());
  }

  std::vector<std::string> found_;
};
