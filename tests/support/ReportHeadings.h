// The section headings of the printable report, in their order.
#pragma once

inline constexpr const char* ReportHeadings[] = {
    "Picture of the truss with applied forces:",
    "Naming the joints, member forces and reaction forces:",
    "Counting the number of unknown forces:",
    "Counting the number of determining equations:",
    "Conclusions regarding existence and uniqueness of solution:",
    "The equations:",
    "The augmented matrix for this system of equations:",
    "The augmented matrix in RREF form:",
    "The solution:"};
