#pragma once

namespace desktop
{

class MainWindow;

/// Asks for pictures of the drawing in front and writes them, or prints them. Called while the window does something
/// for the user; tell failures themselves.
void exportDrawing(MainWindow& window);
void printDrawing(MainWindow& window);

} // namespace desktop
