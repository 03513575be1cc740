// Names of forces and joints: giving all of them at once, clearing them, and renaming one.
#pragma once

#include <string>

#include "document/Truss.h"

/// Letters for the forces from "A" on (live supports in order, a clamp's x component before its y component;
/// then live members), numbers from "1" on for the joints in their present order. After "Z" the letters go on
/// through the code page ("[", "\", ... "a" ...); after its last character, code 255, come "AA", "AB" and so
/// on.
void AutoName(Truss& truss);

/// Resets the same names to "[ ]".
void ClearNames(Truss& truss);

/// Gives a label the text that the user typed, exactly as typed; an empty text keeps the old name. The other
/// label of a member then shows the same name, in either case.
void Rename(Truss& truss, LabelIndex label, const std::string& typedText);
