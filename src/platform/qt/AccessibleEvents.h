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

/// A screen reader says the text as soon as it has finished what it is saying. The toolkit hands the text
/// itself over from version 6.8 on; before, it only tells that the widget has something to say, which is then
/// asked for its name and description.
void Announce(QWidget& from, const QString& text);

/// From now on this listens in place of the desktop, as tests do; the desktop again when it is empty.
void ListenInstead(std::function<void(QAccessibleEvent&)> listener);
