#pragma once

struct DatabaseCS;
class AcGePoint3d;
class AcGeVector3d;

/// Rebuilds the alignments, cross-sections and feature rows of `database` from the current drawing, in the drawing's
/// order. What the user gave a name or a code (file, scales, rotation) is carried over by name. Silent: what cannot be
/// read gives no row; an alignment that cannot be opened ends the scan; a drawing without alignments changes nothing.
void ScanCrossSections(DatabaseCS& database);

/// Offset of `point` along a section from its midpoint, in drawing units: negative towards end A (where `direction`
/// points), positive towards B. Only a point within 0.001 of the section line can be negative.
double SignedOffset(const AcGePoint3d& midpoint, const AcGeVector3d& direction, const AcGePoint3d& point);
