// The largest font that fits a fixed place, so that no text is cut when the desktop's letters are large.
#pragma once

#include <QFont>
#include <QList>
#include <QSize>
#include <QString>
#include <functional>

class QLabel;
class QMenu;
class QPushButton;
class QWidget;

/// Below this size (points) letters cannot be read; no text is made smaller to fit.
inline constexpr double SmallestPoints = 6;

/// The size in points, also of a font whose size was given in pixels.
double PointsOf(const QFont& font);

/// The font in another size, its own times `factor`.
QFont ScaledFont(QFont font, double factor);

/// `wanted`, or else that font in the largest size below (whole and half points, down to `smallest`) that
/// `fits` says yes to; in the smallest size when it never does. A wanted font that is already smaller stays.
QFont LargestFont(const QFont& wanted, const std::function<bool(const QFont&)>& fits,
                  double smallest = SmallestPoints);

/// Whether the text, set with these flags of Qt::AlignmentFlag and Qt::TextFlag, needs no more than `room`
/// (pixels).
bool TextFits(const QFont& font, const QString& text, QSize room, int flags);

/// The text, or as many of its first characters and an ellipsis as fit.
QString ShortenedText(const QFont& font, const QString& text, QSize room, int flags);

/// Sets a label of fixed size in the largest font up to `wanted` in which its text fits.
void FitLabel(QLabel& label, const QFont& wanted);

/// Sets buttons of fixed sizes in one common font, the largest up to `wanted` in which all captions fit.
void FitCaptions(const QList<QPushButton*>& buttons, const QFont& wanted);

/// Sets a widget that is as large as its layout asks for, with all it contains, in the largest font up to
/// `wanted` in which it asks for no more than `room` (pixels). What does not follow the widget's font by
/// itself (larger letters, widths in letters) is set by `adapt`, for each font that is tried.
void FitWidget(QWidget& widget, const QFont& wanted, QSize room,
               const std::function<void(const QFont&)>& adapt = {});

/// Makes a menu that is about to be shown as wide as its texts. Fusion, the usual style, draws a column for
/// marks nearly as wide as a row is high, but reckons with 20 pixels: with large letters it would shorten the
/// longest text.
void FitMenu(QMenu& menu);

/// Makes the layouts of a widget ask again how large everything is, also of what was never shown.
void ForgetSizes(QWidget& widget);

/// Lets a window be no lower than its layout needs in the width that it has, whose texts wrap.
void KeepWholeHeight(QWidget& window);
