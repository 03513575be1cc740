// What the status bar says in each of the three steps.
#pragma once

inline constexpr const char* Step1StatusText = " Step 1: Design the truss. ";

// "Unamed" and the two blanks are part of the text.
inline constexpr const char* Step2StatusText =
    " Step 2: Name the member and support forces and joints by clicking on them."
    "  Unamed ones are marked [ ] ";

inline constexpr const char* Step3StatusText =
    " Step 3: View and print the reports.  Click on a joint to see the x and y equations for that joint. ";
