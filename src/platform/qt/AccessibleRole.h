// What a widget is for those who do not see it, where the toolkit cannot tell.
#pragma once

#include <QAccessible>
#include <QWidget>

/// The widget is told to have this role. To be called before somebody asks for it.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);
