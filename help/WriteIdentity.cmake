# Writes a source file, OUTPUT, that says by which size and hash the program knows its help file HELP_FILE.
file(SIZE ${HELP_FILE} size)
file(SHA256 ${HELP_FILE} hash)
file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT [[
// Written by the build.
#include "app/HelpFileIdentity.h"

HelpFileIdentity BuiltHelpFile() { return {.Size = @size@, .Sha256 = "@hash@"}; }
]])
