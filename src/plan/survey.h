#pragma once

#include "kernel/point3d.h"
#include "plan/vertex_index.h"

#include <string>
#include <vector>

/// A measured point with a feature code.
struct CodedPoint
{
    AcGePoint3d position;
    size_t code; ///< place of its code in the list of codes
};

/// The measured points of the current drawing that have a feature code, in its order.
struct CodedPoints
{
    std::vector<CodedPoint> points;
    std::vector<std::u16string> codes; ///< each once, without regard to case, in order of first appearance
};

CodedPoints CollectCodedPoints();

/// The vertices of all polylines of the current drawing that carry a feature code. A 2-D polyline without a lightweight
/// form counts with its vertices as they are.
VertexIndex CollectSurveyVertices();
