// What a lecturer does on the command line: setting an exercise, marking a class's answers, comparing its
// drawings with the key.
#pragma once

#include "app/RunCommandLine.h"

/// Of the modes Exercise, Mark and Compare.
ExitStatus RunPractice(const CommandLine& commandLine, const CommandLineEnvironment& environment);
