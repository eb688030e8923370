#pragma once

#include "host/db/entity/polyline.h"

#include <optional>

struct CrossSectionXdata;

/// The ground line of a section, asked where it stands over the section's datum. Opened when it is first asked, and
/// open for as long as the object lives; the section is not needed any longer.
class GroundLine
{
public:
    explicit GroundLine(const CrossSectionXdata& section);

    /// Whether it can be read: a lightweight polyline that is not erased.
    bool isReadable() { return static_cast<bool>(opened()); }

    /// The ground at `offset` of the section, in drawing units: where the vertical from the section's datum upwards
    /// meets the ground line first, in order along that line. Nothing when the ground lies below the datum, more than
    /// 1000 above it, or cannot be read.
    std::optional<AcGePoint3d> FindGroundPoint(double offset);

private:
    const AcDbObjectPointer<AcDbPolyline>& opened();

    AcDbObjectId m_id;
    AcGePoint2d m_origin; ///< offset 0 on the datum
    double m_scale;
    std::optional<AcDbObjectPointer<AcDbPolyline>> m_line;
    AcDbPolyline m_probe{2}; ///< the vertical: moved, not made anew, for every question
    AcGePoint3dArray m_met;
};
