#include "desktop/panels/entity_facts.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/panels/survey_code.h"
#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/entity/extended_data.h"
#include "host/view/entity_text.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace desktop
{

namespace
{

struct KindName
{
    std::string_view dxfName;
    const char* english;
};

constexpr std::array kKindNames{
    KindName{"LINE", "Line"},
    KindName{"LWPOLYLINE", "Polyline"},
    KindName{"POLYLINE", "Polyline"},
    KindName{"ARC", "Arc"},
    KindName{"CIRCLE", "Circle"},
    KindName{"ELLIPSE", "Ellipse"},
    KindName{"SPLINE", "Spline"},
    KindName{"POINT", "Point"},
    KindName{"TEXT", "Text"},
    KindName{"MTEXT", "Multi-line text"},
    KindName{"ATTRIB", "Attribute"},
    KindName{"INSERT", "Block"},
    KindName{"HATCH", "Hatch"},
    KindName{"SOLID", "Solid"},
    KindName{"TRACE", "Solid"},
    KindName{"3DFACE", "Face"},
    KindName{"DIMENSION", "Dimension"},
    KindName{"LEADER", "Leader"},
    KindName{"RAY", "Ray"},
    KindName{"XLINE", "Construction line"},
    KindName{"PLXDBMEASUREPOINTOBJ", "Survey point"},
    KindName{"PLXDBALIGNMENT", "Alignment"},
};

QString number(double value)
{
    constexpr int kDecimals = 4;
    QString text = QString::number(value, 'f', kDecimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text == "-0" ? QString{"0"} : text;
}

QString place(const AcGePoint3d& point)
{
    return number(point.x) + ", " + number(point.y) + (point.z != 0.0 ? ", " + number(point.z) : QString{});
}

/// Gathers the facts of one entity, group by group.
class Facts
{
public:
    explicit Facts(AcDbObjectId id) : m_id{id}, m_record{*id.record()}, m_database{*m_record.database} {}

    std::vector<Fact> gather()
    {
        const host::InPassing inPassing;
        addCommon();
        addGeometry();
        addSurvey();
        addExtendedData();
        return std::move(m_facts);
    }

private:
    void add(const QString& name, const QString& value)
    {
        if (!value.isEmpty())
            m_facts.push_back({name, value});
    }
    void heading(const QString& name) { m_facts.push_back({name, {}, true}); }
    QString decoded(std::string_view bytes) const { return toQString(m_database.encoding().decode(bytes)); }

    void addCommon()
    {
        const std::string_view dxfName = m_database.dxfNameOf(m_record);
        const QString called = kindName(dxfName);
        const QString inFiles = QString::fromUtf8(dxfName.data(), static_cast<qsizetype>(dxfName.size()));
        heading(msg("General"));
        add(msg("Kind"), called == inFiles ? called : called + " (" + inFiles + ")");
        add(msg("Layer"), toQString(layerOf(m_record)));
        add(msg("Handle"), QString::number(m_record.handle, 16).toUpper());
        add(msg("Colour"), colour());
        add(msg("Linetype"), decoded(wordOf(6)));
        if (m_record.has(ObjectRecord::kDamaged))
            add(msg("Damaged"), msg("a value in it is no number"));
    }

    QString colour() const
    {
        OwnPairs pairs{m_record.view()};
        for (Tag tag; pairs.next(tag);)
            if (tag.code == 420)
                return "#" + QString::number(tag.integerOr(0) & 0xFFFFFF, 16).rightJustified(6, '0').toUpper();
            else if (tag.code == 62)
                return tag.integerOr(256) == 256 ? msg("by layer")
                       : tag.integerOr(256) == 0 ? msg("by block")
                                                 : QString::number(tag.integerOr(256));
        return msg("by layer");
    }

    std::string_view wordOf(int code) const
    {
        OwnPairs pairs{m_record.view()};
        for (Tag tag; pairs.next(tag);)
            if (tag.code == code)
                return tag.word();
        return {};
    }

    void addGeometry()
    {
        heading(msg("Geometry"));
        host::readOf(m_record,
                     [this]
                     {
                         addPairs();
                         return true;
                     });
        const AcDbObjectPointer<AcDbEntity> entity{m_id};
        if (!entity || m_database.dxfNameOf(m_record) == "INSERT" || m_database.dxfNameOf(m_record) == "HATCH" ||
            m_database.dxfNameOf(m_record) == "PLXDBALIGNMENT")
            return;
        double length = 0.0;
        size_t segments = 0;
        for (const CurvePath& path : entity->curves())
        {
            length += path.length();
            segments += path.segmentCount();
        }
        if (length > 0.0 && std::isfinite(length))
            add(msg("Length"), number(length));
        if (segments > 1)
            add(msg("Segments"), QString::number(segments));
    }

    /// What stands in the pairs of many kinds under the same codes.
    void addPairs()
    {
        const std::string_view kind = m_database.dxfNameOf(m_record);
        const bool isText = kind == "TEXT" || kind == "ATTRIB" || kind == "MTEXT";
        const bool isRound = kind == "ARC" || kind == "CIRCLE";
        const bool isInsert = kind == "INSERT";
        bool hasPlace = false;
        QString content;
        OwnPairs pairs{m_record.view()};
        for (Tag tag; pairs.next(tag);)
            if (tag.code == 10 && !hasPlace)
            {
                hasPlace = true;
                add(isRound || kind == "ELLIPSE" ? msg("Centre")
                    : kind == "LINE"             ? msg("Start")
                                                 : msg("Position"),
                    place(pairs.pointFrom(tag)));
            }
            else if (tag.code == 11 && kind == "LINE")
                add(msg("End"), place(pairs.pointFrom(tag)));
            else if ((tag.code == 1 || tag.code == 3) && isText)
                content += decoded(tag.value);
            else if (tag.code == 2 && isInsert)
                add(msg("Block name"), decoded(tag.value));
            else if (tag.code == 2 && kind == "HATCH")
                add(msg("Pattern"), decoded(tag.value));
            else if (tag.code == 40 && isText)
                add(msg("Height"), number(tag.real()));
            else if (tag.code == 40 && isRound)
                add(msg("Radius"), number(tag.real()));
            else if (tag.code == 7 && isText)
                add(msg("Style"), decoded(tag.value));
            else if (tag.code == 50 && (isText || isInsert))
                add(msg("Rotation"), number(tag.real()) + "°");
            else if (tag.code >= 41 && tag.code <= 43 && isInsert)
                add(msg("Scale %1").arg(QChar{u"XYZ"[tag.code - 41]}), number(tag.real()));
        add(msg("Content"), content);
    }

    void addSurvey()
    {
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{m_id})
            return addAlignment(*alignment);
        const size_t before = m_facts.size();
        heading(msg("Survey"));
        if (const AcDbObjectPointer<PlxDbPointObj> point{m_id})
        {
            for (int field = 1; field < kMostFields; ++field)
                add(field == 1 ? msg("Feature code") : msg("Field %1").arg(field), toQString(point->Get(field)));
        }
        else
            add(msg("Feature code"), toQString(surveyCodeOf(m_id)));
        if (m_facts.size() == before + 1)
            m_facts.pop_back();
    }

    void addAlignment(const PlxDbAlignment& alignment)
    {
        heading(msg("Survey"));
        add(msg("Name"), toQString(alignment.name()));
        add(msg("Cross-sections"), QString::number(alignment.sections().size()));
        add(msg("Scale of the sections"), "1:" + number(alignment.scaleValue()));
        add(msg("Search lines"), number(alignment.extent1()) + " / " + number(alignment.extent2()));
    }

    void addExtendedData()
    {
        const std::string_view data = findXData(m_record.view(), {}, m_database.encoding());
        TagReader pairs{data};
        for (Tag tag; pairs.next(tag);)
            if (tag.code == 1001)
                heading(msg("Extended data: %1").arg(decoded(tag.value)));
            else
                m_facts.push_back({QString::number(tag.code), decoded(tag.value)});
    }

    static constexpr int kMostFields = 16;

    AcDbObjectId m_id;
    ObjectRecord& m_record;
    AcDbDatabase& m_database;
    std::vector<Fact> m_facts;
};

} // namespace

QString kindName(std::string_view dxfName)
{
    const auto* const known = std::find_if(kKindNames.begin(), kKindNames.end(),
                                           [dxfName](const KindName& each) { return each.dxfName == dxfName; });
    return known != kKindNames.end() ? msg(known->english)
                                     : QString::fromUtf8(dxfName.data(), static_cast<qsizetype>(dxfName.size()));
}

std::vector<Fact> factsOf(AcDbObjectId entity)
{
    return entity.isNull() || entity.isErased() ? std::vector<Fact>{} : Facts{entity}.gather();
}

std::vector<Fact> factsOfAll(const std::vector<AcDbObjectId>& entities)
{
    std::map<QString, size_t> kinds;
    std::map<QString, size_t> layers;
    for (const AcDbObjectId id : entities)
    {
        ++kinds[kindName(id.database()->dxfNameOf(*id.record()))];
        ++layers[toQString(layerOf(*id.record()))];
    }
    std::vector<Fact> facts;
    if (entities.empty())
        return facts;
    facts.push_back({msg("%1 objects").arg(entities.size()), {}, true});
    for (const auto& [kind, count] : kinds)
        facts.push_back({kind, QString::number(count)});
    facts.push_back({msg("Layers"), {}, true});
    for (const auto& [layer, count] : layers)
        facts.push_back({layer, QString::number(count)});
    return facts;
}

} // namespace desktop
