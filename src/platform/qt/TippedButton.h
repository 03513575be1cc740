// Buttons of windows that are not asked to be answered.
#pragma once

#include <QPushButton>

/// A button with the name by which tests find it. Return in a box does not press it. UTF-8 texts.
QPushButton* TippedButton(const char* name, const char* caption, const char* toolTip, QWidget* parent);
