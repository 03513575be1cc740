// Writing rich text as an OpenDocument text.
#pragma once

#include <QByteArray>
#include <QTextDocument>

/// An OpenDocument text on A4 paper with margins of 20 mm, without dates, its pictures in it. Blanks and tabs
/// are kept. The same document gives the same bytes. Empty when it would be larger than such a file can be.
QByteArray ToOdt(const QTextDocument& document);
