// The window over which a message or a file chooser appears.
#pragma once

class QWidget;

/// The open modal dialog, else the active window, else any window that is visible; null when there is none.
QWidget* WindowInFront();
