#pragma once

struct DatabaseCS;
struct ItemReferenceLine;
class AcDbDatabase;

/// The tree outlives the drawing it was scanned from: a scan of a drawing without alignments leaves it, and so does the
/// user who changes to another drawing. What is done to a drawing is done with its own alignments only.

/// Whether an alignment of the tree is one of the current drawing.
bool BelongsToDrawing(const ItemReferenceLine& alignment);

/// Makes null every id in the shared state that names something in a drawing that is about to be closed. Names, files
/// and scales stay, for the next scan to carry over.
void ForgetDrawing(DatabaseCS& database, const AcDbDatabase* drawing);
