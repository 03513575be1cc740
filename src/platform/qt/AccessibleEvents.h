// Telling those who listen to the program instead of looking at it what has changed.
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>
#include <functional>

/// Whether somebody listens. Who has to look for what has changed need not while nobody does.
bool IsSomebodyListening();

/// Hands an event on. Nothing happens while nobody listens.
void TellListeners(QAccessibleEvent& event);

/// A screen reader says the text, whatever has the keys. From version 6.8 on the toolkit hands the text
/// itself over. Before, a change of a name or description reaches the reader without its text; so a notice
/// with this name comes up in the status bar of the window, which has one without a size where it has none to
/// be seen.
void Announce(QWidget& from, const QString& text);

/// From now on this listens in place of the desktop, as tests do; the desktop again when it is empty.
void ListenInstead(std::function<void(QAccessibleEvent&)> listener);
