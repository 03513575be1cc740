// Writing rich text as an OpenDocument text.
#pragma once

#include <QByteArray>
#include <QTextDocument>
#include <memory>

#include "paper/qt/DocumentWalk.h"

/// An OpenDocument text on the paper of Page.h, without dates, its pictures in it with their descriptions,
/// its headings an outline, its tables of one-cell rows whose headers are shown again on each page. Blanks
/// and tabs are kept. The same document gives the same bytes. Empty when it would be larger than such a file
/// can be.
QByteArray ToOdt(const QTextDocument& document);

/// The same of a document that is not there as a whole.
std::unique_ptr<DocumentWriter> NewOdtWriter(const QString& title);
