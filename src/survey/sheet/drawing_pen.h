#pragma once

#include "host/db/database.h"
#include "host/db/table/symbol_tables.h"
#include "kernel/extents.h"
#include "kernel/segment2d.h"

#include <set>
#include <span>
#include <string>

class PlxDbAlignment;

namespace survey
{

/// How a text stands: its height in drawing units, its direction, and which point of it is at the place.
struct TextLook
{
    double height = 2.0;
    double rotation = 0.0; ///< radians
    AcDb::TextHorzMode across = AcDb::kTextLeft;
    AcDb::TextVertMode up = AcDb::kTextBase;
};

/// A feature code as extended data has it, see `CodeForm::stored`.
using StoredCode = std::u16string;

/// Adds entities to the model space of a drawing. Each remembers by what it was made (see `mark`), so that it can be
/// found again. Throws std::runtime_error when the drawing does not take one.
class DrawingPen
{
public:
    explicit DrawingPen(AcDbDatabase& drawing);
    DrawingPen(const DrawingPen&) = delete;
    DrawingPen& operator=(const DrawingPen&) = delete;

    /// Makes a layer that is not there; what is there stays as it is. A linetype that the drawing lacks is left out.
    /// The answer is a name that a layer can have.
    std::u16string layer(const std::u16string& name, int color, const char16_t* linetype = nullptr);
    /// What the entities made from here on remember.
    void mark(std::u16string origin) { m_origin = std::move(origin); }

    AcDbObjectId polyline(const std::u16string& layer, std::span<const PathVertex> vertices, bool closed = false);
    AcDbObjectId line(const std::u16string& layer, const AcGePoint2d& from, const AcGePoint2d& to);
    /// A polyline that is a row of upright bars between the heights, every other one filled.
    AcDbObjectId ladder(const std::u16string& layer, const AcGePoint2d& foot, double step, size_t bars, double width);
    AcDbObjectId text(const std::u16string& layer, const AcGePoint2d& at, const std::u16string& text,
                      const TextLook& look);
    AcDbObjectId codedLine(const std::u16string& layer, const AcGePoint3dArray& vertices, bool closed,
                           const StoredCode& code);
    AcDbObjectId surveyPoint(const std::u16string& layer, const AcGePoint3d& at, const std::u16string& code,
                             const std::u16string& name);
    void alignment(const std::u16string& layer, std::unique_ptr<PlxDbAlignment> alignment);

    AcDbDatabase& drawing() { return m_drawing; }
    /// Around all that was added.
    const AcGeExtents& extents() const { return m_extents; }

private:
    template <class T>
    AcDbObjectId add(const std::u16string& layer, std::unique_ptr<T> entity, const StoredCode& code = {});
    void include(const AcGePoint3d& point) { m_extents.addPoint(point); }
    void useApplication(const char16_t* name);
    void useTextStyle();

    AcDbDatabase& m_drawing;
    AcDbObjectPointer<AcDbBlockTableRecord> m_space;
    AcDbObjectId m_textStyle;
    std::u16string m_origin;
    AcGeExtents m_extents;
};

/// The application under whose name what was imported remembers where it came from.
inline constexpr const char16_t* kImportApplication = u"VELOXA_IMPORT";

} // namespace survey
