// How a failed assertion shows the toolkit's values: a text as a text, not as the bytes that it is made of.
#pragma once

#include <QByteArray>
#include <QDebug>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <ostream>

/// As the toolkit's own messages show it.
template <class Value>
void PrintAsMessage(const Value& value, std::ostream& out) {
  QString text;
  QDebug(&text).nospace() << value;
  out << text.toStdString();
}

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QByteArray& bytes, std::ostream* out) { PrintAsMessage(bytes, *out); }
inline void PrintTo(const QPoint& point, std::ostream* out) { PrintAsMessage(point, *out); }
inline void PrintTo(const QPointF& point, std::ostream* out) { PrintAsMessage(point, *out); }
inline void PrintTo(const QSize& size, std::ostream* out) { PrintAsMessage(size, *out); }
inline void PrintTo(const QSizeF& size, std::ostream* out) { PrintAsMessage(size, *out); }
inline void PrintTo(const QRect& area, std::ostream* out) { PrintAsMessage(area, *out); }
inline void PrintTo(const QRectF& area, std::ostream* out) { PrintAsMessage(area, *out); }
