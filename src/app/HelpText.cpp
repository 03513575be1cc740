// The text of --help, of which the manual page is made as well.
#include "app/CommandLine.h"

const char* HelpText() {
  return R"(Orvane teaches and checks the statics of plane, pin-jointed trusses.

orvane [FILE...]                            open the window, on FILE when given; one for each of several
orvane --report[=SECTION,...] FILE...       print reports: counting, joints, equations, rref, solutions
                                            (all when none is named); also why: what stands behind the
                                            conclusion, checks: oversights of the drawing,
                                            steps: the elimination, one operation after the other, and
                                            byjoint: the method of joints, as it is done by hand
orvane --json [--matrices] FILE...          one JSON object per file and line
orvane --json --explain FILE...             the same with the exact verdict, its reasons, and the checks
orvane --csv=equations|rref|solutions FILE  that table as CSV
orvane --picture=OUT [--named] FILE         the truss with its forces as .png, .svg or .pdf, by the ending of
                                            OUT; --named adds the names of forces and joints
orvane --picture=OUT --motion=K FILE        the truss with the K-th of the motions that --report=why tells
orvane --picture=OUT --forces FILE          the truss with the forces that the solutions give, and its legend
orvane --document=OUT FILE                  the printable report as .rtf, .pdf, .odt or .html
orvane --document=OUT --with=forces,why FILE  the same with sections behind the solution: the drawing of the
                                            forces, and why this conclusion
orvane --document=OUT --with=steps,byjoint FILE  the same with the elimination step by step, and with the
                                            forces as they are found joint by joint
orvane --document=OUT --with=checks FILE    the same with the checks of the drawing; "why" has them too
orvane --exercise=OUT.pdf --variants=N --seed=S FILE  N exercise sheets with the same truss under other loads,
                                            and the lecturer's solutions; the same seed makes the same sheets.
                                            --mirrored turns some of them round, --renamed gives other names
orvane --exercise=OUT.xml --variants=N --seed=S FILE  the same as a question bank for Moodle
orvane --mark=ANSWERS.csv FILE...           a class's answers marked, as CSV: a line for each student, a column
                                            for each force; with --variants=N --seed=S those to such sheets
orvane --mark --key=KEY.trs FILE...         a class's drawings compared with the key, as CSV; with --report
                                            in words
orvane --convert=OUT.trs FILE               write FILE again in the current layout
orvane --autoname ...                       with any of the above: name the forces and joints first
orvane --help | --version                   print this text, or the version

FILE may be "-" for standard input, OUT "-" for standard output, which gets pictures as PNG and documents
as RTF. Control characters in names are shown as pictures, such as ␛ for escape.
Exit status: 0 all done; 1 a file could not be read whole or an output not written; 2 wrong arguments.
)";
}
