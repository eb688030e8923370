#pragma once

namespace console
{

/// The program `veloxa`: runs what the command line asks for. Answers the exit status: 0 done, 1 could not be done (one
/// line on standard error says why), 2 wrong usage.
int runCommandLine(int argc, char** argv);

} // namespace console
