#pragma once

#include "dbkit/symbol_look.h"
#include "host/db/object_id.h"
#include "kernel/point3d.h"
#include "util/owning_list.h"

#include <string>

/// What the scan finds in the drawing, as a tree of plain records: alignments, their cross-sections, and under each
/// cross-section its feature rows, in the order in which they were found. Each list owns its elements. Offsets are
/// signed distances along a section from its midpoint: negative towards end A, positive towards end B. Lengths are
/// drawing units, angles radians.

/// A feature symbol on a section.
struct BlockData : SymbolLook
{
    std::u16string m_strName; ///< the feature's code
    double m_dOffset1 = 0.0;  ///< the (first) crossing
    double m_dOffset2 = 0.0;  ///< the second crossing; 0 when there is one only
    AcDbObjectId m_idBlock;   ///< the object near the section that the row came from; null for crossings
};

/// A coded survey point of a section.
struct BlockFcode : SymbolLook
{
    std::u16string m_strFcode;
    double m_dOffset = 0.0;
    AcGePoint3d m_ptPosition; ///< in the plan; set only in the rows drawn there
};

using ListBlockData = OwningList<BlockData>;
using ListBlockFcode = OwningList<BlockFcode>;

/// One cross-section of an alignment.
struct CrossSectionXdata
{
    std::u16string m_strName;
    AcGePoint3d m_ptCenter;  ///< midpoint of the section line from A to B in the plan
    AcGeVector3d m_vecDir;   ///< unit vector from B towards A
    double m_dExtent1 = 0.0; ///< half the length of the search line
    double m_dExtent2 = 0.0;
    ListBlockData m_listBlockData1;   ///< objects near the section
    ListBlockData m_listBlockData2;   ///< feature polylines that cross it
    ListBlockFcode m_listBlockFcode1; ///< survey points, drawn on the cross-section
    ListBlockFcode m_listBlockFcode2; ///< survey points, drawn on the plan
    AcGePoint3d m_ptOrigin;           ///< offset 0 on the datum of the section's own drawing
    AcDbObjectId m_idGroundLine;
    double m_dScale = 0.0; ///< drawing units per unit of offset
    AcDbObjectIdArray m_arrDrawnIds;
};

using ListCSXdata = OwningList<CrossSectionXdata>;

/// One alignment (road centre line).
struct ItemReferenceLine
{
    std::u16string m_strName;
    AcDbObjectId m_idAlignment;
    ListCSXdata m_listCrossSections;
};

using ListItemReferenceLine = OwningList<ItemReferenceLine>;
