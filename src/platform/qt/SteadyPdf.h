// PDF files that say nothing of the moment they were made.
#pragma once

#include <QByteArray>

/// The file without its date of creation, so that the same pages give the same bytes in every time zone.
/// Takes what QPdfWriter writes; anything else comes back as it is.
QByteArray WithoutDates(QByteArray pdf);
