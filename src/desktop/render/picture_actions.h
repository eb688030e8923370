#pragma once

namespace desktop
{

class Workspace;

/// Asks for pictures of the drawing in front and writes them, or prints them. Called while the window does something
/// for the user; tell failures themselves.
void exportDrawing(Workspace& workspace);
void printDrawing(Workspace& workspace);

} // namespace desktop
