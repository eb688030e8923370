#pragma once

#include "kernel/matrix3d.h"

#include <string_view>

/// Where a block reference puts its block, as its pairs say: position, scales, rotation, plane, and rows and columns.
struct InsertPlacement
{
    std::string_view block; ///< name as it stands in the file
    AcGePoint3d position;   ///< in the reference's own plane
    double scaleX = 1.0;
    double scaleY = 1.0;
    double scaleZ = 1.0;
    double rotation = 0.0; ///< radians
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    int columns = 1;
    int rows = 1;
    double columnSpacing = 0.0;
    double rowSpacing = 0.0;

    /// How many times the block stands there.
    size_t count() const { return static_cast<size_t>(columns) * static_cast<size_t>(rows); }
    /// Carries the block's coordinates (its base point taken off) into the world, for the index-th of `count()`.
    AcGeMatrix3d toWorld(size_t index = 0) const;
};

InsertPlacement readInsertPlacement(std::string_view pairs);
