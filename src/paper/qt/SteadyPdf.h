// PDF files that say nothing of the moment they were made.
#pragma once

#include <QByteArray>
#include <QString>

class QPdfWriter;

/// Says in the file what it is called, which may be nothing, and what made it. Call it before painting. Newer
/// versions of the toolkit describe a file in XML, too, with the moment and a random number in it, unless
/// they are given a description.
void DescribePdf(QPdfWriter& writer, const QString& title);

/// The file without the dates and the random number that the toolkit writes outside the description, so that
/// the same pages give the same bytes at any time and in every time zone. Takes what a described QPdfWriter
/// writes; anything else comes back as it is.
QByteArray SteadyPdf(QByteArray pdf);
