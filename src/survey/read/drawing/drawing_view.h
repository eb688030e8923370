#pragma once

#include "host/db/database.h"
#include "kernel/point3d.h"
#include "store/record.h"
#include "survey/model/survey.h"
#include "survey/read/drawing/drawing_options.h"
#include "survey/read/finding_list.h"
#include "survey/read/line_index.h"
#include "survey/read/read_options.h"

namespace survey
{

/// An entity of the model space.
struct Entity
{
    ObjectRecord* record = nullptr;
    std::string_view kind; ///< its name in drawing files
    std::u16string layer;
};

/// A drawing as those see it who take a survey out of it.
class DrawingView
{
public:
    DrawingView(Survey& survey, uint32_t file, AcDbDatabase& drawing, const ReadOptions& options);

    Survey& survey() { return m_survey; }
    FindingList& findings() { return m_findings; }
    const std::vector<Entity>& entities() const { return m_entities; }

    Place placeOf(const ObjectRecord& record) const;
    /// A place of the drawing in metres, with its axes as the survey has them.
    AcGePoint3d metres(const AcGePoint3d& point) const;
    double metres(double length) const { return length * m_metres; }
    std::u16string decoded(std::string_view value) const { return m_drawing.encoding().decode(value); }

    /// What `read` gives of an entity; a damaged number in it is a finding, and the result empty.
    template <class Read>
    auto readOf(const Entity& entity, const Read& read) -> decltype(read())
    {
        try
        {
            return read();
        }
        catch (const DamagedValue& damage)
        {
            tellDamage(entity, damage);
            return {};
        }
    }

private:
    void tellDamage(const Entity& entity, const DamagedValue& damage);

    Survey& m_survey;
    FindingList m_findings;
    AcDbDatabase& m_drawing;
    double m_metres;
    bool m_swapped;
    LineIndex m_lines;
    std::vector<Entity> m_entities;
};

/// Whether a name is among `names`; an empty list has them all.
bool isAmong(const std::vector<std::u16string>& names, std::u16string_view name);

void readDrawingAlignments(DrawingView& drawing, const DrawingOptions& what);
void readDrawingLines(DrawingView& drawing, const DrawingOptions& what);
void readDrawingPoints(DrawingView& drawing, const DrawingOptions& what);

} // namespace survey
