#pragma once

/// The commands of the cross-sections. Both work on the current drawing and ask nothing on the command line.

/// DSS: scans the drawing and opens `VeloxaDlg`, in place of the one of an earlier run.
void DssCommand();

/// ZE: finds the objects near each section of the last scan anew.
void ZeCommand();
