#pragma once

#include "kernel/extents.h"
#include "survey/model/survey.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

namespace survey
{

/// Which text of a line of the terrain becomes its feature code.
enum class CodeSource
{
    kDescription, ///< where there is none, the coding
    kName,
    kCoding
};

/// Offsets of the design's edges, in metres: left below 0, right above.
struct DesignEdges
{
    double left = 0.0;
    double right = 0.0;
};

struct WriteOptions
{
    double spacing = 20.0;                 ///< metres between the sections that are cut, along the line; more than 0
    bool atKeyPoints = false;              ///< sections where the alignment's elements meet, too
    double halfWidth = 20.0;               ///< metres to each side; more than 0
    double scale = 200.0;                  ///< of the sections' drawings: 1 to this
    double tolerance = 0.5;                ///< metres from a section's line within which a point belongs to it
    bool snap = false;                     ///< such points are put on the line
    std::optional<DesignEdges> edges;      ///< of sections whose file says nothing of them
    std::optional<double> maxEdge;         ///< metres; longer edges make no triangle (of a surface made of points)
    std::optional<std::u16string> surface; ///< name of the one to cut; none: the first that has triangles
    CodeSource codeFrom = CodeSource::kDescription;
    bool replace = false; ///< alignments of the drawing that have a name of the survey's go, with all they have
};

/// A cross-section as it stands in the drawing.
struct WrittenSection
{
    std::u16string alignment;
    std::u16string name;
    std::u16string station;  ///< as it is stated, with the region's number where an equation repeats it
    double distance = 0.0;   ///< metres from the start of the alignment
    bool isGiven = false;    ///< measured; else cut
    size_t groundPieces = 0; ///< 0: no ground line
    size_t groundVertices = 0;
    double groundFrom = 0.0; ///< offsets of the piece that was drawn
    double groundTo = 0.0;
    std::vector<size_t> points; ///< its survey points: indexes into `Survey::points`
};

/// A point that belongs to a section and lies off its line, by more than a side is recognised within.
struct PointOffLine
{
    size_t point = 0;      ///< index into `Survey::points`
    size_t section = 0;    ///< index into `WriteResult::sections`
    double distance = 0.0; ///< metres
};

struct WriteResult
{
    std::vector<WrittenSection> sections;
    std::vector<PointOffLine> offLine;           ///< none when points are put on their lines
    std::vector<size_t> unusedPoints;            ///< of no section: indexes into `Survey::points`
    std::map<std::u16string, size_t> pointCodes; ///< how many points have each code
    std::map<std::u16string, size_t> lineCodes;  ///< how many lines
    size_t replacedAlignments = 0;
    AcGeExtents extents; ///< of what was added
    std::vector<Finding> findings;
};

/// Puts the survey into `drawing`, in memory: alignments with their sections and the sections' sheets, survey points
/// and coded lines. Nothing of it is meant to be saved when a finding is `kUnusable`, unless the user goes on
/// nevertheless. The drawing is a new one (`files::newDrawing`) or one that was read, whose contents stay as they are.
WriteResult writeDrawing(const Survey& survey, const WriteOptions& options, AcDbDatabase& drawing);

} // namespace survey
