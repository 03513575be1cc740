// The window over which a message or a file chooser appears.
#pragma once

class QWidget;

/// The open modal dialog, else the active window, else any window that is visible; null when there is none.
QWidget* WindowInFront();

/// While `companion` would be that window, `window` is, as long as it is visible: for a window that only
/// shows what another one is asked for. `window` must outlive it.
void ShowMessagesOver(QWidget& window, QWidget& companion);
